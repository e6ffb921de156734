// Keys typed on the calculator's window reach its KeyPress once each: the
// entry shows in the readout, Enter commits exactly once, a blank typed on
// the focused Equal is a blank, and Escape clears in two stages.
#include <QApplication>
#include <QTest>
#include <memory>

#include "running_calculator.h"

using guitest::RunningCalculator;

class KeyboardTest : public QObject {
    Q_OBJECT

  private slots:
    void init() { calc = std::make_unique<RunningCalculator>(); }
    void cleanup() {
        calc.reset();
        guitest::Settle();
    }

    void TypedEntryCommitsOnEnter() {
        QVERIFY(calc->KeyTarget());
        calc->Type("5'3");
        QCOMPARE(calc->ReadoutText(), QStringLiteral("5'- 3"));
        QCOMPARE(calc->TapeLines(), 0);

        calc->Press(Qt::Key_Return);
        QCOMPARE(calc->ReadoutText(), QStringLiteral("5'- 3"));
        QCOMPARE(calc->TapeLines(), 1);
        QCOMPARE(calc->TapeLine(1), QStringLiteral("5'- 3 "));
        QCOMPARE(calc->P().state.FirstValue.value_or(-1), 63.0);
    }

    void EnterCommitsOnceWithTheFocusOnEqual() {
        QCOMPARE(calc->CalculatorWindow()->focusWidget(), calc->Widget("Equal"));
        calc->Type("5");
        calc->Press(Qt::Key_Return);
        // A second press of Equal would have added the total once more.
        QCOMPARE(calc->TapeLines(), 1);
        QCOMPARE(calc->ReadoutText(), QStringLiteral("5"));
        QCOMPARE(calc->beeper.count, 0);
    }

    void KeypadEnterAndEqualsSignCommitOnce() {
        calc->Type("7");
        calc->Press(Qt::Key_Enter, Qt::KeypadModifier);
        QCOMPARE(calc->TapeLines(), 1);
        calc->Type("+2=");
        // The sum, a rule and the result; Equal once more would have added
        // the total again.
        QCOMPARE(calc->TapeLines(), 4);
        QCOMPARE(calc->ReadoutText(), QStringLiteral(" 9\""));
        QCOMPARE(calc->P().state.FirstValue.value_or(-1), 9.0);
    }

    void SpaceOnTheFocusedEqualTypesABlank() {
        QCOMPARE(calc->CalculatorWindow()->focusWidget(), calc->Widget("Equal"));
        calc->Type("4");
        calc->Press(Qt::Key_Space);
        QCOMPARE(calc->ReadoutText(), QStringLiteral("4 "));
        QCOMPARE(calc->TapeLines(), 0);
        QVERIFY(!calc->P().state.FirstValue.has_value());
        QCOMPARE(calc->ModelFocus(), std::string("Equal"));
    }

    void EscapeTwiceClearsWithAClearOnTheTape() {
        calc->Type("5'3");
        calc->Press(Qt::Key_Return);
        calc->Type("7");
        calc->Press(Qt::Key_Escape);
        QCOMPARE(calc->ReadoutText(), QStringLiteral("0."));
        QCOMPARE(calc->TapeLines(), 1);
        QVERIFY(calc->P().state.FirstValue.has_value());

        calc->Press(Qt::Key_Escape);
        QCOMPARE(calc->ReadoutText(), QStringLiteral("0."));
        QVERIFY(!calc->P().state.FirstValue.has_value());
        QCOMPARE(calc->TapeLines(), 4);
        QCOMPARE(calc->TapeLine(3), QStringLiteral("Clear "));
    }

  private:
    std::unique_ptr<RunningCalculator> calc;
};

QTEST_MAIN(KeyboardTest)
#include "keyboard_test.moc"
