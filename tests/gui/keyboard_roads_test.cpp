// Roads beside the keys of the calculator, for the keyboard alone: Tab
// walks only the controls on show, the menu key and Shift+F10 open the
// popup menu at the readout, and Ctrl+C copies the value without changing
// anything.
#include <QApplication>
#include <QClipboard>
#include <QMenu>
#include <QTest>
#include <memory>
#include <set>
#include <sstream>
#include <string>

#include "forms/runtime.h"
#include "memory/cells.h"
#include "running_calculator.h"

using guitest::RunningCalculator;

class KeyboardRoadsTest : public QObject {
    Q_OBJECT

  private slots:
    void init() { calc = std::make_unique<RunningCalculator>(); }
    void cleanup() {
        if (QWidget* popup = QApplication::activePopupWidget()) popup->close();
        calc.reset();
        guitest::Settle();
    }

    // Tab goes round every key on show and never to Backspace or Pi, which
    // stand behind Foot and Inch.
    void TabPassesOverTheKeysBehindOthers() {
        std::set<std::string> reached;
        for (int i = 0; i < 60; ++i) {
            calc->Press(Qt::Key_Tab);
            QWidget* focus = calc->CalculatorWindow()->focusWidget();
            QVERIFY(focus);
            reached.insert(focus->objectName().toStdString());
        }
        QVERIFY(!reached.count("Backspace"));
        QVERIFY(!reached.count("Pi"));
        for (const char* key : {"Number(0)", "Number(9)", "Foot", "Inch", "Equal", "Plus",
                                "SquareRoot", "CancelEntry", "Spacebar"}) {
            QVERIFY2(reached.count(key), key);
        }
        // The model is as it was: both keys are still there.
        QVERIFY(calc->P().Calculator->Find("Backspace")->Visible());
        QVERIFY(calc->P().Calculator->Find("Pi")->Visible());
    }

    // With Show Keys off the keys lie below the window's edge: Tab takes
    // the focus to none of them.
    void TabPassesOverTheKeysOutOfTheWindow() {
        calc->P().Calculator->GetMenu("ShowKeys").Click();
        calc->Binding().AfterEvent();
        guitest::Settle();
        QVERIFY(!calc->P().Calculator->GetMenu("ShowKeys").Checked());
        QWidget* before = calc->CalculatorWindow()->focusWidget();
        for (int i = 0; i < 5; ++i) {
            calc->Press(Qt::Key_Tab);
            QCOMPARE(calc->CalculatorWindow()->focusWidget(), before);
        }
        calc->P().Calculator->GetMenu("ShowKeys").Click();
        calc->Binding().AfterEvent();
        guitest::Settle();
        calc->Press(Qt::Key_Tab);
        QVERIFY(calc->CalculatorWindow()->focusWidget() != before);
    }

    void TheMenuKeyOpensThePopupAtTheReadout_data() {
        QTest::addColumn<int>("key");
        QTest::addColumn<int>("modifiers");
        QTest::newRow("menu key") << int(Qt::Key_Menu) << int(Qt::NoModifier);
        QTest::newRow("Shift+F10") << int(Qt::Key_F10) << int(Qt::ShiftModifier);
    }
    // The popup of a right click on the readout, placed at the readout; no
    // key is pressed by it and the entry stays.
    void TheMenuKeyOpensThePopupAtTheReadout() {
        QFETCH(int, key);
        QFETCH(int, modifiers);
        calc->Type("5");
        const std::string before = State();
        calc->Press(Qt::Key(key), Qt::KeyboardModifiers(modifiers));
        auto* popup = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        QVERIFY(popup);
        QCOMPARE(calc->P().runtime.LastPopupMenu(), &calc->P().Calculator->GetMenu("mnuPopup1"));
        QWidget* readout = calc->Widget("Readout");
        QCOMPARE(popup->geometry().topLeft(), readout->mapToGlobal(QPoint(0, readout->height())));
        QCOMPARE(State(), before);
        QTest::keyClick(popup, Qt::Key_Escape);
        guitest::Settle();
        QVERIFY(!QApplication::activePopupWidget());
        QCOMPARE(State(), before);
    }

    // Ctrl+C and Ctrl+Insert copy the readout without its outer blanks,
    // and nothing of the calculator changes.
    void CopyTakesTheReadout() {
        calc->Type("12'");
        calc->Press(Qt::Key_Return);
        calc->Type("+6");
        calc->Press(Qt::Key_Return);
        QCOMPARE(calc->ReadoutText(), QStringLiteral(" 12'- 6\""));
        const std::string before = State();
        calc->Press(Qt::Key_C, Qt::ControlModifier);
        QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("12'- 6\""));
        QCOMPARE(State(), before);
        QGuiApplication::clipboard()->setText(QStringLiteral("something else"));
        calc->Press(Qt::Key_Insert, Qt::ControlModifier);
        QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("12'- 6\""));
        QCOMPARE(State(), before);
    }

    // With a memory cell active, the cell's value.
    void CopyTakesTheActiveCell() {
        calc->NewMemory();
        forms::Form* cell = nullptr;
        for (forms::Form* form : calc->P().runtime.OpenForms()) {
            if (memory::IsCell(*form)) cell = form;
        }
        QVERIFY(cell);
        memory::ValueLabel(*cell).SetCaption(" 3'- 4\" ");
        calc->P().runtime.Activate(*cell);
        calc->Binding().AfterEvent();
        guitest::Settle();
        const std::string before = State();
        QWidget* memory = calc->Binding().WindowFor(*calc->P().MDIForm1);
        QTest::keyClick(memory->windowHandle(), Qt::Key_C, Qt::ControlModifier);
        guitest::Settle();
        QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("3'- 4\""));
        QCOMPARE(State(), before);
    }

  private:
    // What a key could change.
    std::string State() {
        core::Program& p = calc->P();
        std::ostringstream out;
        out << "[" << p.calc->Readout.Caption() << "] [" << p.calc->ActionLabel.Caption()
            << "] tape " << calc->TapeLines() << " current " << p.tape->CurrentTape << " pending "
            << p.state.PendingOperation << " focus " << calc->ModelFocus();
        return out.str();
    }

    std::unique_ptr<RunningCalculator> calc;
};

QTEST_MAIN(KeyboardRoadsTest)
#include "keyboard_roads_test.moc"
