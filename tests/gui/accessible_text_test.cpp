// What a screen reader reads and hears of the values: the readout's text
// and each change of it, and the tape as a list of its lines that follows
// the tape on show.
#include <QAccessible>
#include <QTest>
#include <memory>

#include "accessible_tree.h"
#include "forms/runtime.h"
#include "memory/cells.h"
#include "running_calculator.h"

using guitest::EventRecorder;
using guitest::Named;
using guitest::RunningCalculator;
using guitest::TextOf;

class AccessibleTextTest : public QObject {
    Q_OBJECT

  private slots:
    void init() { calc = std::make_unique<RunningCalculator>(); }
    void cleanup() {
        calc.reset();
        guitest::Settle();
    }

    // Each key that changes the readout is told as a text update.
    void TheReadoutTellsEachChange() {
        EventRecorder events;
        QAccessibleInterface* readout = Named(calc->CalculatorWindow(), QStringLiteral("Readout"));
        QVERIFY(readout);
        calc->Type("12'");
        QCOMPARE(TextOf(readout), QStringLiteral("12'- "));
        QStringList told;
        for (const auto& heard : EventRecorder::Heard()) {
            if (heard.type == QAccessible::TextUpdated && heard.name == QStringLiteral("Readout")) {
                told << heard.inserted;
            }
        }
        QCOMPARE(told, QStringList({"1", "12", "12'- "}));
    }

    // 12 feet plus 6 inches: the list holds the four lines, trimmed, and
    // was told of each as it came.
    void TheTapeIsAListOfItsLines() {
        EventRecorder events;
        QAccessibleInterface* tape = TapeList();
        QVERIFY(tape);
        QCOMPARE(tape->childCount(), calc->TapeLines());
        calc->Type("12'");
        calc->Press(Qt::Key_Return);
        calc->Type("+6");
        calc->Press(Qt::Key_Return);
        QCOMPARE(calc->TapeLines(), 4);
        QCOMPARE(tape->childCount(), 4);
        for (int i = 0; i < 4; ++i) {
            QAccessibleInterface* line = tape->child(i);
            QCOMPARE(line->role(), QAccessible::ListItem);
            QCOMPARE(line->text(QAccessible::Name), calc->TapeLine(i + 1).trimmed());
            QCOMPARE(TextOf(line), calc->TapeLine(i + 1).trimmed());
            QCOMPARE(tape->indexOfChild(line), i);
        }
        QCOMPARE(tape->child(3)->text(QAccessible::Name), QStringLiteral("12'- 6\""));
        QCOMPARE(events.Count(QAccessible::ObjectCreated), 4);
    }

    // A drop on a cell turns the tape to the cell's: the list holds the
    // cell's lines; the calculator made active turns it back.
    void TheListFollowsTheTapeOnShow() {
        calc->NewMemory();
        calc->Type("8'");
        calc->Press(Qt::Key_Return);
        QAccessibleInterface* tape = TapeList();
        QCOMPARE(tape->childCount(), 1);
        EventRecorder events;
        forms::Form* cell = nullptr;
        for (forms::Form* form : calc->P().runtime.OpenForms()) {
            if (memory::IsCell(*form)) cell = form;
        }
        QVERIFY(cell);
        QAccessibleInterface* cells =
            Named(calc->Binding().WindowFor(*calc->P().MDIForm1), QStringLiteral("Memory cells"));
        cells->child(0)->actionInterface()->doAction(QStringLiteral("Add the readout"));
        guitest::Settle();
        QCOMPARE(tape->childCount(), 3);
        QCOMPARE(tape->child(0)->text(QAccessible::Name), QStringLiteral("+ 8'-"));
        QCOMPARE(tape->child(1)->text(QAccessible::Name), QStringLiteral("----------------"));
        QCOMPARE(tape->child(2)->text(QAccessible::Name), QStringLiteral("8'- 0\""));
        QVERIFY(events.Count(QAccessible::ObjectCreated) >= 3);

        EventRecorder::Clear();
        calc->P().runtime.Activate(*calc->P().Calculator);
        calc->Binding().AfterEvent();
        guitest::Settle();
        QCOMPARE(tape->childCount(), 1);
        QCOMPARE(tape->child(0)->text(QAccessible::Name), calc->TapeLine(1).trimmed());
        QCOMPARE(events.Count(QAccessible::ObjectDestroyed), 3);
    }

  private:
    QAccessibleInterface* TapeList() {
        return Named(calc->TapeWindow(), QStringLiteral("Tape"), QAccessible::List);
    }

    std::unique_ptr<RunningCalculator> calc;
};

QTEST_MAIN(AccessibleTextTest)
#include "accessible_text_test.moc"
