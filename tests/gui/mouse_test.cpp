// Mouse clicks on the key pad: a left click on a key is its Click, a click
// where two keys lie on one another reaches the front one, and a right
// click presses nothing.
#include <QTest>
#include <memory>

#include "running_calculator.h"

using guitest::RunningCalculator;

class MouseTest : public QObject {
    Q_OBJECT

  private slots:
    void init() { calc = std::make_unique<RunningCalculator>(); }
    void cleanup() {
        calc.reset();
        guitest::Settle();
    }

    void ClickOnSevenTypesSeven() {
        QWidget* seven = calc->Widget("Number(7)");
        QVERIFY(seven);
        QTest::mouseClick(seven, Qt::LeftButton);
        guitest::Settle();
        QCOMPARE(calc->ReadoutText(), QStringLiteral("7"));
        QCOMPARE(calc->ModelFocus(), std::string("Equal"));
    }

    void ClickOnFootPressesFootNotTheBackspaceBehindIt() {
        calc->Type("5");
        QCOMPARE(calc->ReadoutText(), QStringLiteral("5"));
        ClickAtTheMiddleOf("Foot", "Backspace");
        // Backspace would have left "0.".
        QCOMPARE(calc->ReadoutText(), QStringLiteral("5'- "));
    }

    void ClickOnInchPressesInchNotThePiBehindIt() {
        calc->Type("5");
        ClickAtTheMiddleOf("Inch", "Pi");
        QCOMPARE(calc->ReadoutText(), QStringLiteral("5\""));
    }

    void RightClickPressesNothing() {
        QWidget* seven = calc->Widget("Number(7)");
        QVERIFY(seven);
        QTest::mouseClick(seven, Qt::RightButton);
        guitest::Settle();
        QCOMPARE(calc->ReadoutText(), QStringLiteral("0."));

        calc->Type("4");
        QTest::mouseClick(calc->Widget("Equal"), Qt::RightButton);
        guitest::Settle();
        QCOMPARE(calc->ReadoutText(), QStringLiteral("4"));
        QCOMPARE(calc->TapeLines(), 0);
        QCOMPARE(calc->beeper.count, 0);
    }

  private:
    // A left click through the window system at the middle of `front`,
    // where `behind` lies too.
    void ClickAtTheMiddleOf(const char* front, const char* behind) {
        QWidget* frontKey = calc->Widget(front);
        QWidget* backKey = calc->Widget(behind);
        QVERIFY(frontKey && backKey);
        QCOMPARE(backKey->geometry(), frontKey->geometry());
        QWidget* window = frontKey->window();
        const QPoint at = frontKey->mapTo(window, frontKey->rect().center());
        QCOMPARE(window->childAt(at), frontKey);
        QTest::mouseClick(window->windowHandle(), Qt::LeftButton, Qt::NoModifier, at);
        guitest::Settle();
    }

    std::unique_ptr<RunningCalculator> calc;
};

QTEST_MAIN(MouseTest)
#include "mouse_test.moc"
