// The windows as a screen reader meets them: every control answers to its
// own name ("Number(7)", "Equal", "Readout"; a memory cell's label to
// "Label1" and the cell's name) and describes itself with its tool tip (a
// label without one, with what it shows), and the keys can be pressed
// through the accessibility interface alone.
#include <QAccessible>
#include <QTest>
#include <memory>
#include <string>
#include <vector>

#include "forms/runtime.h"
#include "memory/cells.h"
#include "qtbind/form_window.h"
#include "running_calculator.h"

using guitest::RunningCalculator;

namespace {

// Every accessible object under `root`, depth first.
void Collect(QAccessibleInterface* root, std::vector<QAccessibleInterface*>& into) {
    if (!root) return;
    into.push_back(root);
    for (int i = 0; i < root->childCount(); ++i) Collect(root->child(i), into);
}

std::vector<QAccessibleInterface*> Tree(QWidget* window) {
    std::vector<QAccessibleInterface*> all;
    Collect(QAccessible::queryAccessibleInterface(window), all);
    return all;
}

QAccessibleInterface* Named(QWidget* window, const QString& name) {
    for (QAccessibleInterface* item : Tree(window)) {
        if (item->text(QAccessible::Name) == name) return item;
    }
    return nullptr;
}

}  // namespace

class AccessibleTest : public QObject {
    Q_OBJECT

  private slots:
    void init() { calc = std::make_unique<RunningCalculator>(); }
    void cleanup() {
        calc.reset();
        guitest::Settle();
    }

    // The keys by their names, each with its tool tip for a description.
    void KeysAreNamedAndDescribed() {
        QWidget* window = calc->CalculatorWindow();
        QVERIFY(window);
        const struct {
            const char* name;
            const char* description;
        } keys[] = {{"Number(7)", "7"},
                    {"Number(0)", "0"},
                    {"Plus", "Add"},
                    {"Minus", "Subtract"},
                    {"Equal", "Equals"},
                    {"Foot", "Foot"},
                    {"Decimal", "Decimal Point"},
                    {"Spacebar", "Space"},
                    {"SquareRoot", "Square Root"},
                    {"CancelEntry", "Cancel Entry"}};
        for (const auto& key : keys) {
            QAccessibleInterface* item = Named(window, QString::fromLatin1(key.name));
            QVERIFY2(item, key.name);
            QCOMPARE(item->role(), QAccessible::Button);
            QCOMPARE(item->text(QAccessible::Description), QString::fromUtf8(key.description));
            QVERIFY(item->actionInterface());
            QVERIFY(item->actionInterface()->actionNames().contains(
                QAccessibleActionInterface::pressAction()));
        }
        // The readout has no tool tip: it is described by what it shows.
        QAccessibleInterface* readout = Named(window, QStringLiteral("Readout"));
        QVERIFY(readout);
        QCOMPARE(readout->text(QAccessible::Description), QStringLiteral("0."));
    }

    // Every control that has a widget, on every window the program has
    // made, answers to its own name.
    void EveryControlOfEveryWindowIsNamed() {
        NewMemory();
        calc->P().Calculator->GetMenu("mnuConverter").Click();
        guitest::Settle();
        int windows = 0;
        for (forms::Form* form : calc->P().runtime.OpenForms()) {
            qtbind::FormWindow* window = calc->Binding().WindowFor(*form);
            if (!window || form->MdiParent()) continue;
            ++windows;
            for (const auto& control : form->Controls()) {
                if (!calc->Binding().WidgetFor(*control)) continue;
                const QString name = QString::fromStdString(control->FullName());
                QVERIFY2(Named(window, name), qPrintable(name));
            }
        }
        // The calculator, its tape, the converter and the memory window.
        QVERIFY(windows >= 4);
    }

    // 12 feet, then plus 6 inches, pressed through the keys' press actions
    // alone: the readout shows each entry as it grows, and the sum.
    void KeysArePressedThroughTheirActions() {
        QWidget* window = calc->CalculatorWindow();
        Press(window, "Number(1)");
        QTRY_COMPARE(calc->ReadoutText(), QStringLiteral("1"));
        Press(window, "Number(2)");
        QTRY_COMPARE(calc->ReadoutText(), QStringLiteral("12"));
        Press(window, "Foot");
        QTRY_COMPARE(calc->ReadoutText(), QStringLiteral("12'- "));
        Press(window, "Equal");
        QTRY_COMPARE(calc->TapeLines(), 1);
        Press(window, "Plus");
        QTRY_COMPARE(calc->ReadoutText(), QString());
        Press(window, "Number(6)");
        QTRY_COMPARE(calc->ReadoutText(), QStringLiteral("6"));
        Press(window, "Inch");
        QTRY_COMPARE(calc->ReadoutText(), QStringLiteral("6\""));
        Press(window, "Equal");
        QTRY_COMPARE(calc->ReadoutText(), QStringLiteral(" 12'- 6\""));
        QCOMPARE(Named(window, QStringLiteral("Readout"))->text(QAccessible::Description),
                 QStringLiteral(" 12'- 6\""));
        QCOMPARE(calc->TapeLines(), 4);
        QCOMPARE(calc->TapeLine(4), QStringLiteral(" 12'- 6\" "));
    }

    // A memory cell's label carries the cell's name, and follows it when
    // the cell is renamed.
    void ACellsLabelCarriesTheCellsName() {
        NewMemory();
        NewMemory();
        QWidget* parent = calc->Binding().WindowFor(*calc->P().MDIForm1);
        QVERIFY(parent);
        QVERIFY(Named(parent, QStringLiteral("Label1 Memory 1")));
        QVERIFY(Named(parent, QStringLiteral("Label1 Memory 2")));
        QCOMPARE(Named(parent, QStringLiteral("Label1 Memory 1"))->text(QAccessible::Description),
                 QStringLiteral("0."));
        QVERIFY(!Named(parent, QStringLiteral("Label1")));

        forms::Form* first = nullptr;
        for (forms::Form* form : calc->P().runtime.OpenForms()) {
            if (memory::IsCell(*form) && form->Caption() == "Memory 1") first = form;
        }
        QVERIFY(first);
        first->SetCaption("Stud wall");
        guitest::Settle();
        QVERIFY(Named(parent, QStringLiteral("Label1 Stud wall")));
        QVERIFY(!Named(parent, QStringLiteral("Label1 Memory 1")));
    }

  private:
    void NewMemory() {
        calc->P().Calculator->GetMenu("NewMemory").Click();
        calc->Binding().AfterEvent();
        guitest::Settle();
    }
    static void Press(QWidget* window, const char* name) {
        QAccessibleInterface* key = Named(window, QString::fromLatin1(name));
        QVERIFY2(key, name);
        QVERIFY2(key->actionInterface(), name);
        key->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    }

    std::unique_ptr<RunningCalculator> calc;
};

QTEST_MAIN(AccessibleTest)
#include "accessible_test.moc"
