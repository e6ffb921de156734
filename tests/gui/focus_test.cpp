// The focus on the calculator: Equal has it at the start and again after a
// key; a click on a key that refuses leaves it where it was.
#include <QApplication>
#include <QTest>
#include <memory>

#include "running_calculator.h"

using guitest::RunningCalculator;

class FocusTest : public QObject {
    Q_OBJECT

  private slots:
    void init() { calc = std::make_unique<RunningCalculator>(); }
    void cleanup() {
        calc.reset();
        guitest::Settle();
    }

    void EqualHasTheFocusAtTheStart() {
        QWidget* equal = calc->Widget("Equal");
        QVERIFY(equal);
        QCOMPARE(calc->ModelFocus(), std::string("Equal"));
        QCOMPARE(calc->CalculatorWindow()->focusWidget(), equal);
        if (calc->CalculatorWindow()->isActiveWindow()) {
            QCOMPARE(QApplication::focusWidget(), equal);
        }
    }

    void AKeyGivesTheFocusBackToEqual() {
        MoveTheFocusOffEqual();
        calc->Type("3");
        QCOMPARE(calc->ReadoutText(), QStringLiteral("3"));
        QCOMPARE(calc->ModelFocus(), std::string("Equal"));
        QCOMPARE(calc->CalculatorWindow()->focusWidget(), calc->Widget("Equal"));
    }

    void AClickOnAKeyGivesTheFocusBackToEqual() {
        MoveTheFocusOffEqual();
        QTest::mouseClick(calc->Widget("Number(2)"), Qt::LeftButton);
        guitest::Settle();
        QCOMPARE(calc->ReadoutText(), QStringLiteral("2"));
        QCOMPARE(calc->ModelFocus(), std::string("Equal"));
        QCOMPARE(calc->CalculatorWindow()->focusWidget(), calc->Widget("Equal"));
    }

    void ARefusingKeyLeavesTheFocusWhereItWas() {
        const std::string elsewhere = MoveTheFocusOffEqual();
        calc->P().calc->Readout.SetCaption("2 sq");
        QTest::mouseClick(calc->Widget("Plus"), Qt::LeftButton);
        guitest::Settle();
        QCOMPARE(calc->beeper.count, 1);
        QCOMPARE(calc->ModelFocus(), elsewhere);
        QCOMPARE(calc->CalculatorWindow()->focusWidget()->objectName().toStdString(), elsewhere);
    }

  private:
    // Tab walks the focus on to another control of the calculator; returns
    // its name.
    std::string MoveTheFocusOffEqual() {
        calc->Press(Qt::Key_Tab);
        QWidget* focus = calc->CalculatorWindow()->focusWidget();
        [&] {
            QVERIFY(focus);
            QVERIFY(focus != calc->Widget("Equal"));
            QCOMPARE(calc->ModelFocus(), focus->objectName().toStdString());
        }();
        return focus ? focus->objectName().toStdString() : std::string();
    }

    std::unique_ptr<RunningCalculator> calc;
};

QTEST_MAIN(FocusTest)
#include "focus_test.moc"
