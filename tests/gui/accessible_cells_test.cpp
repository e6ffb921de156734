// The memory cells as a screen reader finds them: the memory window's area
// lists every open cell, in the order of the list of open forms, whether it
// has widgets or not; each is named by the cell's name, reads its value as
// text, and offers four actions that leave exactly what the mouse leaves.
#include <QAccessible>
#include <QCursor>
#include <QTest>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "accessible_tree.h"
#include "forms/runtime.h"
#include "memory/cells.h"
#include "qtbind/form_surface.h"
#include "qtbind/form_window.h"
#include "running_calculator.h"

using guitest::EventRecorder;
using guitest::RunningCalculator;
using guitest::TextOf;

namespace {

enum class Step { Add, Subtract, Clear, ShowTape };

const char* ActionName(Step step) {
    switch (step) {
        case Step::Add:
            return "Add the readout";
        case Step::Subtract:
            return "Subtract the readout";
        case Step::Clear:
            return "Clear";
        case Step::ShowTape:
            return "Show tape";
    }
    return "";
}

}  // namespace

class AccessibleCellsTest : public QObject {
    Q_OBJECT

  private slots:
    void init() { calc = std::make_unique<RunningCalculator>(); }
    void cleanup() {
        if (calc && calc->P().runtime.Dragging()) calc->P().runtime.CancelDrag();
        calc.reset();
        guitest::Settle();
    }

    // Three cells, the first covered by the third: the list still holds
    // all three, in their order, named by their names, with their values.
    void EveryCellIsListedWidgetOrNot() {
        calc->NewMemory();
        calc->NewMemory();
        calc->NewMemory();
        forms::Form& first = Cell(0);
        forms::Form& third = Cell(2);
        third.Move(first.Left(), first.Top(), third.Width(), third.Height());
        calc->Binding().AfterEvent();
        guitest::Settle();
        QVERIFY(!calc->Binding().WindowFor(first));

        QAccessibleInterface* list = CellList();
        QVERIFY(list);
        QCOMPARE(list->role(), QAccessible::List);
        QCOMPARE(list->childCount(), 3);
        for (int i = 0; i < 3; ++i) {
            QAccessibleInterface* item = list->child(i);
            QCOMPARE(item->role(), QAccessible::ListItem);
            QCOMPARE(item->text(QAccessible::Name), QStringLiteral("Memory %1").arg(i + 1));
            QCOMPARE(TextOf(item), QStringLiteral("0."));
            QCOMPARE(list->indexOfChild(item), i);
            QCOMPARE(item->parent(), list);
            QCOMPARE(
                item->actionInterface()->actionNames(),
                QStringList({"Add the readout", "Subtract the readout", "Clear", "Show tape"}));
        }
        // The covered cell takes the readout all the same.
        Commit("5'");
        Act(first, Step::Add);
        QCOMPARE(memory::ValueLabel(first).Caption(), std::string(" 5'- 0\" "));
        QCOMPARE(TextOf(list->child(0)), QStringLiteral(" 5'- 0\" "));
    }

    // A cell keeps its object, and its id, for as long as it is open: a
    // rename is told as a new name, a new value as a text update; when the
    // cell closes, its object goes and the list is told.
    void ACellsObjectFollowsTheCell() {
        calc->NewMemory();
        calc->NewMemory();
        EventRecorder events;
        QAccessibleInterface* item = CellList()->child(0);
        const QAccessible::Id id = QAccessible::uniqueId(item);
        forms::Form& first = Cell(0);

        first.SetCaption("Stud wall");
        guitest::Settle();
        QCOMPARE(QAccessible::uniqueId(CellList()->child(0)), id);
        QCOMPARE(item->text(QAccessible::Name), QStringLiteral("Stud wall"));
        QCOMPARE(events.Count(QAccessible::NameChanged, QStringLiteral("Stud wall")), 1);

        Commit("3'");
        Act(first, Step::Add);
        QCOMPARE(TextOf(item), QStringLiteral(" 3'- 0\" "));
        bool told = false;
        for (const auto& heard : EventRecorder::Heard()) {
            told |= heard.type == QAccessible::TextUpdated && heard.id == id &&
                    heard.inserted == QStringLiteral(" 3'- 0\" ");
        }
        QVERIFY(told);

        // A cell made now is told of, as the list has been looked at.
        EventRecorder::Clear();
        calc->NewMemory();
        QCOMPARE(CellList()->childCount(), 3);
        QCOMPARE(CellList()->child(2)->text(QAccessible::Name), QStringLiteral("Memory 3"));
        const QAccessible::Id third = QAccessible::uniqueId(CellList()->child(2));
        int created = 0;
        for (const auto& heard : EventRecorder::Heard()) {
            created += heard.type == QAccessible::ObjectCreated && heard.id == third;
        }
        QCOMPARE(created, 1);

        calc->P().runtime.CloseByUser(first);
        calc->Binding().AfterEvent();
        guitest::Settle();
        QCOMPARE(events.Count(QAccessible::ObjectDestroyed, QStringLiteral("Stud wall")), 1);
        QVERIFY(!QAccessible::accessibleInterface(id));
        QCOMPARE(CellList()->childCount(), 2);
        QCOMPARE(CellList()->child(0)->text(QAccessible::Name), QStringLiteral("Memory 2"));
    }

    // The same steps by the mouse and by the actions leave the same values,
    // the same lines on every tape, the same tape on show and the same
    // calculator: adds and subtracts, a clear, a drop that makes no sense
    // (an area on a length) and clicks on the strip.
    void TheActionsLeaveWhatTheMouseLeaves() {
        const std::vector<std::string> byMouse = Run(/*mouse=*/true);
        calc = std::make_unique<RunningCalculator>();
        const std::vector<std::string> byActions = Run(/*mouse=*/false);
        QCOMPARE(byActions.size(), byMouse.size());
        for (std::size_t i = 0; i < byMouse.size(); ++i) QCOMPARE(byActions[i], byMouse[i]);
        // What the mouse test of the memory window expects, once more.
        QVERIFY(byMouse[1].find("1:  + 8'- |---------------- | 8'- 0\" |") != std::string::npos);
    }

  private:
    // The steps, each followed by a picture of all that a drop can change.
    std::vector<std::string> Run(bool mouse) {
        std::vector<std::string> pictures;
        calc->NewMemory();
        calc->NewMemory();
        Commit("8'");
        pictures.push_back(Picture());
        const struct {
            int cell;
            Step step;
        } steps[] = {{0, Step::Add},      {1, Step::Subtract}, {-1, Step::Add},
                     {0, Step::Subtract}, {1, Step::ShowTape}, {0, Step::Clear},
                     {-2, Step::Add},     {0, Step::ShowTape}, {1, Step::Add}};
        for (const auto& s : steps) {
            if (s.cell == -1) {
                // A new entry: the first Escape clears it, the second the sum.
                calc->Press(Qt::Key_Escape);
                calc->Press(Qt::Key_Escape);
                Commit("2'");
            } else if (s.cell == -2) {
                // An area, which a length cell refuses.
                calc->P().calc->Readout.SetCaption(" 4 sq. ");
                calc->Binding().AfterEvent();
                guitest::Settle();
                Act(Cell(1), s.step, mouse);
            } else {
                Act(Cell(s.cell), s.step, mouse);
            }
            pictures.push_back(Picture());
        }
        return pictures;
    }

    std::string Picture() {
        core::Program& p = calc->P();
        std::ostringstream out;
        for (forms::Form* form : p.runtime.OpenForms()) {
            if (!memory::IsCell(*form)) continue;
            out << form->Caption() << "=" << memory::ValueLabel(*form).Caption()
                << " w=" << form->Width() << "; ";
        }
        const auto& counts = p.tape->TapeRowCount();
        for (std::size_t t = 0; t < counts.size(); ++t) {
            out << t << ": ";
            for (int row = 1; row <= counts[t]; ++row) {
                out << p.tape->Grid1().Cell(row, static_cast<int>(t)) << "|";
            }
            out << "; ";
        }
        out << "current " << p.tape->CurrentTape << " col " << p.tape->Grid1().Col() << " left "
            << p.tape->Grid1().LeftCol() << " title " << p.frmTape->Get("Label1").Caption();
        forms::Form* active = p.runtime.ActiveForm();
        out << " active " << (active ? active->Caption() : "none") << " pending "
            << p.state.PendingOperation << " readout [" << p.calc->Readout.Caption() << "]";
        return out.str();
    }

    void Act(forms::Form& cell, Step step, bool mouse = false) {
        if (!mouse) {
            QAccessibleInterface* item = CellList()->child(IndexOf(cell));
            QVERIFY(item);
            item->actionInterface()->doAction(QString::fromLatin1(ActionName(step)));
            guitest::Settle();
            QVERIFY(!calc->P().runtime.Dragging());
            return;
        }
        QWidget* label = calc->Binding().WidgetFor(memory::ValueLabel(cell));
        QVERIFY(label);
        switch (step) {
            case Step::Add:
                DragReadoutTo(label, QPoint(label->width() * 3 / 4, label->height() / 2));
                break;
            case Step::Subtract:
                DragReadoutTo(
                    label, QPoint(std::max(calc->Scale().ToPixelsX(300), label->width() / 2 - 10),
                                  label->height() / 2));
                break;
            case Step::Clear: {
                QWidget* top = label->window();
                const QPoint at =
                    label->mapTo(top, QPoint(label->width() / 2, label->height() / 2));
                QCursor::setPos(top->mapToGlobal(at));
                QTest::mousePress(top->windowHandle(), Qt::LeftButton, Qt::NoModifier, at);
                QTest::mouseRelease(top->windowHandle(), Qt::LeftButton, Qt::NoModifier, at);
                guitest::Settle();
                break;
            }
            case Step::ShowTape: {
                QWidget* surface = calc->Binding().WindowFor(cell)->Surface();
                QWidget* top = surface->window();
                const QPoint strip(calc->Scale().ToPixelsX(135), label->height() / 2);
                QVERIFY(!calc->Binding().ControlAt(surface->mapToGlobal(strip)));
                QTest::mouseClick(top->windowHandle(), Qt::LeftButton, Qt::NoModifier,
                                  surface->mapTo(top, strip));
                guitest::Settle();
                break;
            }
        }
        QVERIFY(!calc->P().runtime.Dragging());
    }

    void DragReadoutTo(QWidget* label, const QPoint& at) {
        QWidget* readout = calc->Widget("Readout");
        QWidget* from = readout->window();
        QWidget* to = label->window();
        const QPoint fromAt(readout->width() / 2, readout->height() / 2);
        QCursor::setPos(readout->mapToGlobal(fromAt));
        QTest::mousePress(from->windowHandle(), Qt::LeftButton, Qt::NoModifier,
                          readout->mapTo(from, fromAt));
        QTest::mouseMove(to->windowHandle(), label->mapTo(to, at));
        QTest::mouseRelease(to->windowHandle(), Qt::LeftButton, Qt::NoModifier,
                            label->mapTo(to, at));
        guitest::Settle();
    }

    int IndexOf(forms::Form& cell) {
        int i = 0;
        for (forms::Form* form : calc->P().runtime.OpenForms()) {
            if (!memory::IsCell(*form)) continue;
            if (form == &cell) return i;
            ++i;
        }
        return -1;
    }

    QAccessibleInterface* CellList() {
        QWidget* memory = calc->Binding().WindowFor(*calc->P().MDIForm1);
        return guitest::Named(memory, QStringLiteral("Memory cells"), QAccessible::List);
    }
    forms::Form& Cell(int index) {
        int i = 0;
        for (forms::Form* form : calc->P().runtime.OpenForms()) {
            if (memory::IsCell(*form) && i++ == index) return *form;
        }
        qFatal("no cell %d", index);
    }
    void Commit(const char* text) {
        calc->Type(text);
        calc->Press(Qt::Key_Return);
    }

    std::unique_ptr<RunningCalculator> calc;
};

QTEST_MAIN(AccessibleCellsTest)
#include "accessible_cells_test.moc"
