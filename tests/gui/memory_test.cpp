// Memory cells in the real windows: a cell is a small framed widget inside
// the memory window, and values go between the readout and the cells with
// the real mouse, added over the right half of a cell's label and taken
// away over its left half.
#include <QCursor>
#include <QTest>
#include <memory>
#include <optional>
#include <string>

#include "forms/runtime.h"
#include "memory/cells.h"
#include "qtbind/form_window.h"
#include "running_calculator.h"

using guitest::RunningCalculator;

class MemoryTest : public QObject {
    Q_OBJECT

  private slots:
    void init() { calc = std::make_unique<RunningCalculator>(); }
    void cleanup() {
        if (calc && calc->P().runtime.Dragging()) calc->P().runtime.CancelDrag();
        calc.reset();
        guitest::Settle();
    }

    // Each cell is a widget inside the memory window, at the model's place
    // in that window's inner area, with its yellow label on it.
    void CellsLieInsideTheMemoryWindow() {
        calc->NewMemory();
        calc->NewMemory();
        qtbind::FormWindow* parent = calc->Binding().WindowFor(*calc->P().MDIForm1);
        QVERIFY(parent && parent->isVisible());
        for (const char* name : {"Memory 1", "Memory 2"}) {
            forms::Form& cell = Cell(name);
            qtbind::FormWindow* window = calc->Binding().WindowFor(cell);
            QVERIFY(window && window->isVisible());
            QVERIFY(window->isWindow() == false);
            QCOMPARE(window->window(), static_cast<QWidget*>(parent));
            QCOMPARE(window->pos(), QPoint(calc->Scale().ToPixelsX(cell.Left()),
                                           calc->Scale().ToPixelsY(cell.Top())));
            QVERIFY(window->TitleBar() && window->CloseBox());
            QVERIFY(LabelWidget(cell)->isVisible());
        }
        // The second cell stands below the first.
        QVERIFY(Window("Memory 2")->y() > Window("Memory 1")->y());
    }

    // 8' Enter, then the readout dragged onto the right half of the first
    // cell's label: the cell holds 8 feet and its tape the value the cell
    // had, the sign line and the rule. The cell then dragged onto the left
    // half of the second, which held 2 feet, leaves 2' - 8' there.
    void ValuesGoFromTheReadoutToACellAndFromCellToCell() {
        calc->NewMemory();
        calc->NewMemory();
        forms::Form& first = Cell("Memory 1");
        forms::Form& second = Cell("Memory 2");
        const int firstTape = TapeIndex(first);
        const int secondTape = TapeIndex(second);

        Commit("8'");
        DragReadoutOnto(first, RightHalf(first));
        QCOMPARE(memory::ValueLabel(first).Caption(), std::string(" 8'- 0\" "));
        QCOMPARE(calc->P().tape->TapeRowCount()[firstTape], 3);
        QCOMPARE(TapeLine(firstTape, 1), std::string(" + 8'- "));
        QCOMPARE(TapeLine(firstTape, 2), std::string("---------------- "));
        QCOMPARE(TapeLine(firstTape, 3), std::string(" 8'- 0\" "));

        // The first Escape clears the entry, the second the sum under way.
        calc->Press(Qt::Key_Escape);
        calc->Press(Qt::Key_Escape);
        Commit("2'");
        DragReadoutOnto(second, RightHalf(second));
        QCOMPARE(memory::ValueLabel(second).Caption(), std::string(" 2'- 0\" "));

        DragLabelOnto(first, second, LeftHalf(second));
        QVERIFY(!calc->P().runtime.Dragging());
        QCOMPARE(memory::ValueLabel(first).Caption(), std::string(" 8'- 0\" "));
        QCOMPARE(memory::ValueLabel(second).Caption(), std::string("- 6'- 0\" "));
        QCOMPARE(calc->P().tape->TapeRowCount()[secondTape], 6);
        QCOMPARE(TapeLine(secondTape, 4), std::string(" -  8'- 0\" "));
        QCOMPARE(TapeLine(secondTape, 5), std::string("---------------- "));
        QCOMPARE(TapeLine(secondTape, 6), std::string("- 6'- 0\" "));
        // The cell dropped on becomes the cell whose tape shows.
        QCOMPARE(static_cast<int>(calc->P().tape->CurrentTape), secondTape);
    }

    // Over a cell's label the cursor shows the plus on the right half and
    // the minus on the left half, as the cell's DragOver chooses them.
    void TheCursorShowsPlusAndMinusOverACell() {
        calc->NewMemory();
        forms::Form& cell = Cell("Memory 1");
        Commit("8'");
        QWidget* readout = calc->Widget("Readout");
        QWidget* top = readout->window();
        const QPoint from(readout->width() / 2, readout->height() / 2);
        QCursor::setPos(readout->mapToGlobal(from));
        QTest::mousePress(top->windowHandle(), Qt::LeftButton, Qt::NoModifier,
                          readout->mapTo(top, from));
        QVERIFY(calc->P().runtime.Dragging());
        QWidget* label = LabelWidget(cell);
        QWidget* parent = label->window();
        QTest::mouseMove(parent->windowHandle(), label->mapTo(parent, RightHalf(cell)));
        QCOMPARE(calc->Binding().DragCursorPicture(), std::optional<std::string>("Image1"));
        QTest::mouseMove(parent->windowHandle(), label->mapTo(parent, LeftHalf(cell)));
        QCOMPARE(calc->Binding().DragCursorPicture(), std::optional<std::string>("Image2"));
        QTest::keyClick(parent->windowHandle(), Qt::Key_Escape);
        guitest::Settle();
        QVERIFY(!calc->P().runtime.Dragging());
        QTest::mouseRelease(parent->windowHandle(), Qt::LeftButton, Qt::NoModifier,
                            label->mapTo(parent, LeftHalf(cell)));
        guitest::Settle();
        QCOMPARE(memory::ValueLabel(cell).Caption(), std::string("0."));
    }

    // The close box of a cell closes it: the cell leaves the list of open
    // forms and its widget goes.
    void TheCloseBoxClosesTheCell() {
        calc->NewMemory();
        calc->NewMemory();
        const int before = calc->P().MemoryCount;
        qtbind::FormWindow* window = Window("Memory 1");
        const QRect box = *window->CloseBox();
        QWidget* top = window->window();
        QTest::mouseClick(top->windowHandle(), Qt::LeftButton, Qt::NoModifier,
                          window->mapTo(top, box.center()));
        guitest::Settle();
        QVERIFY(!FindCell("Memory 1"));
        QVERIFY(FindCell("Memory 2"));
        QCOMPARE(calc->P().MemoryCount, before - 1);
    }

  private:
    forms::Form* FindCell(const std::string& caption) {
        for (forms::Form* form : calc->P().runtime.OpenForms()) {
            if (memory::IsCell(*form) && form->Caption() == caption) return form;
        }
        return nullptr;
    }
    forms::Form& Cell(const std::string& caption) {
        forms::Form* form = FindCell(caption);
        if (!form) qFatal("no cell %s", caption.c_str());
        return *form;
    }
    qtbind::FormWindow* Window(const std::string& caption) {
        return calc->Binding().WindowFor(Cell(caption));
    }
    QWidget* LabelWidget(forms::Form& cell) {
        return calc->Binding().WidgetFor(memory::ValueLabel(cell));
    }
    int TapeIndex(forms::Form& cell) { return *memory::CellNumber(cell); }
    std::string TapeLine(int tape, int row) { return calc->P().tape->Grid1().Cell(row, tape); }

    // Points of a label, clear of its first 270 twips where a drop is
    // refused and of its ends.
    QPoint LeftHalf(forms::Form& cell) {
        QWidget* label = LabelWidget(cell);
        const int start = calc->Scale().ToPixelsX(300);
        return QPoint(std::max(start, label->width() / 2 - 10), label->height() / 2);
    }
    QPoint RightHalf(forms::Form& cell) {
        QWidget* label = LabelWidget(cell);
        return QPoint(label->width() * 3 / 4, label->height() / 2);
    }

    void Commit(const char* text) {
        calc->Type(text);
        calc->Press(Qt::Key_Return);
    }

    // The press begins the drag; the source holds the mouse from then on,
    // and the move and the release reach the program in the window under
    // the pointer.
    void Drag(QWidget* from, const QPoint& fromAt, QWidget* to, const QPoint& toAt) {
        QWidget* fromTop = from->window();
        QWidget* toTop = to->window();
        // The drop must land on the target itself, nothing in front of it.
        QCOMPARE(calc->Binding().ControlAt(to->mapToGlobal(toAt)),
                 calc->Binding().WindowFor(*CellOfWidget(to))->ControlOf(to));
        QCursor::setPos(from->mapToGlobal(fromAt));
        QTest::mousePress(fromTop->windowHandle(), Qt::LeftButton, Qt::NoModifier,
                          from->mapTo(fromTop, fromAt));
        QVERIFY(calc->P().runtime.Dragging());
        QTest::mouseMove(fromTop->windowHandle(), from->mapTo(fromTop, fromAt + QPoint(0, 1)));
        QTest::mouseMove(toTop->windowHandle(), to->mapTo(toTop, toAt));
        QTest::mouseRelease(toTop->windowHandle(), Qt::LeftButton, Qt::NoModifier,
                            to->mapTo(toTop, toAt));
        guitest::Settle();
        QVERIFY(!calc->P().runtime.Dragging());
    }
    forms::Form* CellOfWidget(QWidget* widget) {
        for (forms::Form* form : calc->P().runtime.OpenForms()) {
            if (memory::IsCell(*form) && LabelWidget(*form) == widget) return form;
        }
        return nullptr;
    }
    void DragReadoutOnto(forms::Form& cell, const QPoint& at) {
        QWidget* readout = calc->Widget("Readout");
        Drag(readout, QPoint(readout->width() / 2, readout->height() / 2), LabelWidget(cell), at);
    }
    void DragLabelOnto(forms::Form& source, forms::Form& target, const QPoint& at) {
        QWidget* label = LabelWidget(source);
        Drag(label, QPoint(label->width() / 2, label->height() / 2), LabelWidget(target), at);
    }

    std::unique_ptr<RunningCalculator> calc;
};

QTEST_MAIN(MemoryTest)
#include "memory_test.moc"
