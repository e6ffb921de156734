// The windows as a screen reader meets them: each window a frame or a
// dialog named by its title, each control named by what it does ("7",
// "Add", "Clear entry", "Readout") and described by its tool tip, and the
// keys pressed through the accessibility interface alone.
#include <QAccessible>
#include <QTest>
#include <QTimer>
#include <memory>
#include <string>
#include <vector>

#include "accessible_tree.h"
#include "forms/runtime.h"
#include "memory/cells.h"
#include "qtbind/accessible_names.h"
#include "qtbind/form_window.h"
#include "running_calculator.h"

using guitest::Named;
using guitest::RunningCalculator;
using guitest::TextOf;

class AccessibleTest : public QObject {
    Q_OBJECT

  private slots:
    void init() { calc = std::make_unique<RunningCalculator>(); }
    void cleanup() {
        calc.reset();
        guitest::Settle();
    }

    // The keys by what they do, each with its tool tip for a description.
    void KeysAreNamedByWhatTheyDo() {
        QWidget* window = calc->CalculatorWindow();
        QVERIFY(window);
        const struct {
            const char* name;
            const char* description;
        } keys[] = {{"0", "0"},
                    {"1", "1"},
                    {"2", "2"},
                    {"3", "3"},
                    {"4", "4"},
                    {"5", "5"},
                    {"6", "6"},
                    {"7", "7"},
                    {"8", "8"},
                    {"9", "9"},
                    {"Decimal point", "Decimal Point"},
                    {"Space", "Space"},
                    {"Feet", "Foot"},
                    {"Inches", "Inch"},
                    {"Add", "Add"},
                    {"Subtract", "Subtract"},
                    {"Multiply", "Multiply"},
                    {"Divide", "Divide"},
                    {"Clear", "Clear"},
                    {"Clear entry", "Cancel Entry"},
                    {"Equals", "Equals"},
                    {"Square", "Square"},
                    {"Square root", "Square Root"},
                    {"Backspace", ""},
                    {"Pi", ""}};
        for (const auto& key : keys) {
            QAccessibleInterface* item = Named(window, QString::fromUtf8(key.name));
            QVERIFY2(item, key.name);
            QCOMPARE(item->role(), QAccessible::Button);
            QCOMPARE(item->text(QAccessible::Description), QString::fromUtf8(key.description));
            QVERIFY(item->actionInterface());
            QVERIFY(item->actionInterface()->actionNames().contains(
                QAccessibleActionInterface::pressAction()));
        }
    }

    // No control of any window goes by the name the program's code knows it
    // by; every one goes by its name in the table.
    void NoControlGoesByItsCodeName() {
        calc->NewMemory();
        calc->P().Calculator->GetMenu("mnuConverter").Click();
        guitest::Settle();
        int windows = 0;
        for (forms::Form* form : calc->P().runtime.OpenForms()) {
            qtbind::FormWindow* window = calc->Binding().WindowFor(*form);
            if (!window || form->MdiParent()) continue;
            ++windows;
            for (const auto& control : form->Controls()) {
                if (!calc->Binding().WidgetFor(*control)) continue;
                const QString name = qtbind::AccessibleName(*control);
                QVERIFY2(Named(window, name), qPrintable(name));
                QVERIFY2(!name.contains(QLatin1Char('(')), qPrintable(name));
                for (const char* code : {"Label1", "Grid1", "txtText1", "Command1", "Command2",
                                         "CancelEntry", "lblLabel", "cmdScrollTape"}) {
                    QVERIFY2(!name.contains(QLatin1String(code)), qPrintable(name));
                }
            }
        }
        // The calculator, its tape, the converter and the memory window.
        QVERIFY(windows >= 4);
    }

    // The other controls of the calculator, its tape and the converter.
    void LabelsAndTheTapeAreNamed() {
        calc->P().Calculator->GetMenu("mnuConverter").Click();
        guitest::Settle();
        QWidget* calculator = calc->CalculatorWindow();
        QAccessibleInterface* readout = Named(calculator, QStringLiteral("Readout"));
        QVERIFY(readout);
        QCOMPARE(readout->role(), QAccessible::StaticText);
        QCOMPARE(TextOf(readout), QStringLiteral("0."));
        QVERIFY(Named(calculator, QStringLiteral("Operation"), QAccessible::StaticText));
        QVERIFY(Named(calculator, QStringLiteral("Formula prompt"), QAccessible::StaticText));

        QWidget* tape = calc->TapeWindow();
        QAccessibleInterface* title = Named(tape, QStringLiteral("Tape name"));
        QVERIFY(title);
        QCOMPARE(TextOf(title), QStringLiteral("Calculator"));
        QVERIFY(Named(tape, QStringLiteral("Tape"), QAccessible::List));
        // The arrows are there while cells are.
        calc->NewMemory();
        QVERIFY(Named(tape, QStringLiteral("Previous tape"), QAccessible::Button));
        QVERIFY(Named(tape, QStringLiteral("Next tape"), QAccessible::Button));

        QWidget* converter = calc->Binding().WindowFor(*calc->P().Converter);
        QAccessibleInterface* dropped = Named(converter, QStringLiteral("Dropped value"));
        QVERIFY(dropped);
        QVERIFY(TextOf(dropped).contains(QStringLiteral("Drop Here")));
        for (int n = 1; n <= 5; ++n) {
            QVERIFY(
                Named(converter, QStringLiteral("Conversion %1").arg(n), QAccessible::StaticText));
        }
    }

    // Each window a frame named by its title; the tape, which has none, is
    // "Tape". A new title is a new name.
    void WindowsAreFramesNamedByTheirTitles() {
        calc->NewMemory();
        calc->P().Calculator->GetMenu("mnuConverter").Click();
        guitest::Settle();
        const struct {
            forms::Form* form;
            const char* name;
        } windows[] = {{calc->P().Calculator, "Lathmark Calculator"},
                       {calc->P().frmTape, "Tape"},
                       {calc->P().Converter, "Converter"},
                       {calc->P().MDIForm1, "Memory"}};
        for (const auto& w : windows) {
            QWidget* window = calc->Binding().WindowFor(*w.form);
            QVERIFY2(window, w.name);
            QAccessibleInterface* frame = QAccessible::queryAccessibleInterface(window);
            QCOMPARE(frame->role(), QAccessible::Window);
            QCOMPARE(frame->text(QAccessible::Name), QString::fromUtf8(w.name));
        }
        guitest::EventRecorder events;
        calc->P().MDIForm1->SetCaption("Stock");
        guitest::Settle();
        QWidget* memory = calc->Binding().WindowFor(*calc->P().MDIForm1);
        QCOMPARE(QAccessible::queryAccessibleInterface(memory)->text(QAccessible::Name),
                 QStringLiteral("Stock"));
        QVERIFY(events.Count(QAccessible::NameChanged, QStringLiteral("Stock")) >= 1);
    }

    // The name prompt is a dialog named by its title, with its buttons OK
    // and Cancel and its text box named by the line above it.
    void ThePromptIsADialog() {
        bool checked = false;
        QTimer::singleShot(0, [&] {
            guitest::Settle();
            QWidget* prompt = calc->Binding().WindowFor(*calc->P().frmInput);
            QVERIFY(prompt);
            QAccessibleInterface* dialog = QAccessible::queryAccessibleInterface(prompt);
            QCOMPARE(dialog->role(), QAccessible::Dialog);
            QCOMPARE(dialog->text(QAccessible::Name), QStringLiteral("Named Memory"));
            QVERIFY(Named(prompt, QStringLiteral("OK"), QAccessible::Button));
            QAccessibleInterface* box =
                Named(prompt, QStringLiteral("Enter a name for this memory cell:"),
                      QAccessible::EditableText);
            QVERIFY(box);
            QCOMPARE(TextOf(Named(prompt, QStringLiteral("Prompt"))),
                     QStringLiteral("Enter a name for this memory cell:"));
            QAccessibleInterface* cancel = Named(prompt, QStringLiteral("Cancel"));
            QVERIFY(cancel);
            checked = true;
            cancel->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
        });
        calc->P().Calculator->GetMenu("NamedMemory").Click();
        guitest::Settle();
        QVERIFY(checked);
        QCOMPARE(calc->P().MemoryCount, int16_t(1));
    }

    // The About box is a dialog, and its controls say what they are.
    void TheAboutBoxIsADialog() {
        bool checked = false;
        QTimer::singleShot(0, [&] {
            guitest::Settle();
            forms::Form* form = calc->P().runtime.FindOpenForm("frmAbout");
            QVERIFY(form);
            QWidget* about = calc->Binding().WindowFor(*form);
            QAccessibleInterface* dialog = QAccessible::queryAccessibleInterface(about);
            QCOMPARE(dialog->role(), QAccessible::Dialog);
            QCOMPARE(dialog->text(QAccessible::Name), QString::fromStdString(form->Caption()));
            QVERIFY(Named(about, QStringLiteral("System Info"), QAccessible::Button));
            QVERIFY(TextOf(Named(about, QStringLiteral("Version"))).startsWith("Version "));
            QVERIFY(!TextOf(Named(about, QStringLiteral("Title"))).isEmpty());
            QAccessibleInterface* ok = Named(about, QStringLiteral("OK"), QAccessible::Button);
            QVERIFY(ok);
            checked = true;
            ok->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
        });
        calc->P().Calculator->GetMenu("mnuAbout").Click();
        guitest::Settle();
        QVERIFY(checked);
        QVERIFY(!calc->P().runtime.FindOpenForm("frmAbout"));
    }

    // 12 feet, then plus 6 inches, pressed through the keys' press actions
    // alone: the readout's text shows each entry as it grows, and the sum.
    void KeysArePressedThroughTheirActions() {
        QWidget* window = calc->CalculatorWindow();
        QAccessibleInterface* readout = Named(window, QStringLiteral("Readout"));
        Press(window, "1");
        QTRY_COMPARE(TextOf(readout), QStringLiteral("1"));
        Press(window, "2");
        QTRY_COMPARE(TextOf(readout), QStringLiteral("12"));
        Press(window, "Feet");
        QTRY_COMPARE(TextOf(readout), QStringLiteral("12'- "));
        Press(window, "Equals");
        QTRY_COMPARE(calc->TapeLines(), 1);
        Press(window, "Add");
        QTRY_COMPARE(TextOf(readout), QString());
        QCOMPARE(TextOf(Named(window, QStringLiteral("Operation"))), QStringLiteral("+"));
        Press(window, "6");
        QTRY_COMPARE(TextOf(readout), QStringLiteral("6"));
        Press(window, "Inches");
        QTRY_COMPARE(TextOf(readout), QStringLiteral("6\""));
        Press(window, "Equals");
        QTRY_COMPARE(TextOf(readout), QStringLiteral(" 12'- 6\""));
        QCOMPARE(calc->TapeLines(), 4);
        QCOMPARE(calc->TapeLine(4), QStringLiteral(" 12'- 6\" "));
    }

  private:
    static void Press(QWidget* window, const char* name) {
        QAccessibleInterface* key = Named(window, QString::fromUtf8(name), QAccessible::Button);
        QVERIFY2(key, name);
        QVERIFY2(key->actionInterface(), name);
        key->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    }

    std::unique_ptr<RunningCalculator> calc;
};

QTEST_MAIN(AccessibleTest)
#include "accessible_test.moc"
