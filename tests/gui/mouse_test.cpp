// Mouse clicks on the key pad: a left click on a key is its Click, a click
// where two keys lie on one another reaches the front one, and a right
// click opens the popup menu and presses nothing.
#include <QAction>
#include <QMenu>
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

    void RightClickOpensThePopupAndPressesNothing() {
        RightClickOn("Number(7)");
        QMenu* popup = OpenPopup();
        QVERIFY(popup);
        QCOMPARE(calc->ReadoutText(), QStringLiteral("0."));
        const QList<QAction*> entries = popup->actions();
        QVERIFY(entries.size() > 2);
        QCOMPARE(entries.first()->text(), QStringLiteral("New Memory"));
        QCOMPARE(entries.last()->text(), QStringLiteral("Cancel"));
        // Its Cancel entry just closes it.
        QTest::mouseClick(popup, Qt::LeftButton, Qt::NoModifier,
                          popup->actionGeometry(entries.last()).center());
        guitest::Settle();
        QVERIFY(!OpenPopup());
        QCOMPARE(calc->ReadoutText(), QStringLiteral("0."));

        calc->Type("4");
        RightClickOn("Equal");
        QVERIFY(OpenPopup());
        CloseWithEscape();
        QCOMPARE(calc->ReadoutText(), QStringLiteral("4"));
        QCOMPARE(calc->TapeLines(), 0);
        QCOMPARE(calc->beeper.count, 0);
    }

    // The form's own area opens it as well.
    void RightClickOnTheFormOpensThePopup() {
        QWidget* surface = calc->Widget("Readout")->parentWidget();
        QWidget* window = surface->window();
        const QPoint bare = surface->mapTo(window, QPoint(3, 3));
        QCOMPARE(window->childAt(bare), surface);
        QTest::mouseClick(window->windowHandle(), Qt::RightButton, Qt::NoModifier, bare);
        guitest::Settle();
        QVERIFY(OpenPopup());
        CloseWithEscape();
    }

  private:
    // The right button through the window system at the middle of a key.
    void RightClickOn(const char* name) {
        QWidget* key = calc->Widget(name);
        QVERIFY(key);
        QWidget* window = key->window();
        const QPoint at = key->mapTo(window, key->rect().center());
        QTest::mouseClick(window->windowHandle(), Qt::RightButton, Qt::NoModifier, at);
        guitest::Settle();
    }
    QMenu* OpenPopup() { return qobject_cast<QMenu*>(QApplication::activePopupWidget()); }
    void CloseWithEscape() {
        QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Escape);
        guitest::Settle();
        QVERIFY(!OpenPopup());
    }

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
