// Thousands of memory cells in the real windows: a cell has widgets only
// while some part of it shows in the memory window, so a memory of any size
// paints what the window shows. A memory file that stops short leaves its
// cells stacked on one another at the window's corner, where one of them
// shows; a good file arranges them down columns, and those outside the
// window show nothing. What comes into view gets its widgets back and
// works as any cell does.
#include <QFile>
#include <QTest>
#include <memory>
#include <string>

#include "forms/runtime.h"
#include "memory/cells.h"
#include "memory/memory_file.h"
#include "qtbind/form_window.h"
#include "running_calculator.h"

using guitest::RunningCalculator;

class ManyCellsTest : public QObject {
    Q_OBJECT

  private slots:
    void init() { calc = std::make_unique<RunningCalculator>(); }
    void cleanup() {
        calc.reset();
        guitest::Settle();
    }

    // 30,000 cells of a file that promises one more: all stacked at 0, 0,
    // and the one on top is the one with widgets. The window paints.
    void AStackedMemoryShowsTheCellOnTop() {
        Open(WriteMemoryFile(30000, 30001));
        QCOMPARE(Cells().size(), std::size_t(30000));
        QCOMPARE(calc->P().ArrangingMemory, int16_t(1));  // the read failed at its end
        const std::vector<qtbind::FormWindow*> shown = CellWindows();
        QCOMPARE(shown.size(), std::size_t(1));
        QCOMPARE(shown.front()->Form(), Cells().back());
        QVERIFY(!Parent()->grab().isNull());
    }

    // A good file of 3,000 cells arranged down columns: the cells that lie
    // in the window's area have widgets, at their places; the rest none.
    void ArrangedCellsHaveWidgetsWhereTheyShow() {
        Open(WriteMemoryFile(3000, 3000));
        QCOMPARE(calc->P().ArrangingMemory, int16_t(0));
        const QRect area(QPoint(0, 0), Parent()->Surface()->size());
        std::size_t inView = 0;
        for (forms::Form* cell : Cells()) {
            const QRect rect = CellRect(*cell);
            qtbind::FormWindow* window = calc->Binding().WindowFor(*cell);
            if (rect.intersects(area)) {
                ++inView;
                QVERIFY2(window, cell->Caption().c_str());
                QCOMPARE(window->geometry(), rect);
                QVERIFY(window->isVisible());
            } else {
                QVERIFY2(!window, cell->Caption().c_str());
            }
        }
        QVERIFY(inView > 1);
        QVERIFY(inView < 3000);
        QCOMPARE(CellWindows().size(), inView);
        QVERIFY(!Parent()->grab().isNull());
    }

    // The top cell of a stack closed by its close box: the cell beneath
    // comes into view with its widgets, and takes a drop as any cell.
    void TheCellBeneathComesIntoViewAndTakesADrop() {
        Open(WriteMemoryFile(50, 51));
        forms::Form* top = Cells().back();
        forms::Form* beneath = Cells()[Cells().size() - 2];
        QVERIFY(!calc->Binding().WindowFor(*beneath));
        qtbind::FormWindow* window = calc->Binding().WindowFor(*top);
        QVERIFY(window);
        QWidget* parent = window->window();
        QTest::mouseClick(parent->windowHandle(), Qt::LeftButton, Qt::NoModifier,
                          window->mapTo(parent, window->CloseBox()->center()));
        guitest::Settle();
        QCOMPARE(Cells().size(), std::size_t(49));
        QCOMPARE(CellWindows().size(), std::size_t(1));
        QVERIFY(calc->Binding().WindowFor(*beneath));

        calc->Type("3'");
        calc->Press(Qt::Key_Return);
        QWidget* readout = calc->Widget("Readout");
        QWidget* label = calc->Binding().WidgetFor(memory::ValueLabel(*beneath));
        QVERIFY(label && label->isVisible());
        const QPoint at(label->width() * 3 / 4, label->height() / 2);
        QCOMPARE(calc->Binding().ControlAt(label->mapToGlobal(at)), &memory::ValueLabel(*beneath));
        QWidget* from = readout->window();
        const QPoint fromAt(readout->width() / 2, readout->height() / 2);
        QTest::mousePress(from->windowHandle(), Qt::LeftButton, Qt::NoModifier,
                          readout->mapTo(from, fromAt));
        QVERIFY(calc->P().runtime.Dragging());
        QTest::mouseMove(parent->windowHandle(), label->mapTo(parent, at));
        QTest::mouseRelease(parent->windowHandle(), Qt::LeftButton, Qt::NoModifier,
                            label->mapTo(parent, at));
        guitest::Settle();
        // The file gave cell 49 the value 48 feet; 3 feet added.
        QCOMPARE(memory::ValueLabel(*beneath).Caption(), std::string(" 51'- 0\" "));
    }

    // A cell taken by its title bar and put over another covers it: the
    // covered one loses its widgets, and has them again once uncovered.
    void ACellMovedOverAnotherCoversIt() {
        for (int i = 0; i < 3; ++i) calc->NewMemory();
        forms::Form& first = *Cells()[0];
        forms::Form& third = *Cells()[2];
        QCOMPARE(CellWindows().size(), std::size_t(3));
        const QPointF firstPlace(first.Left(), first.Top());
        const QRect thirdRect = CellRect(third);
        DragTitleBar(third, CellRect(first).topLeft() - thirdRect.topLeft());
        QCOMPARE(third.Left(), firstPlace.x());
        QCOMPARE(third.Top(), firstPlace.y());
        QVERIFY(!calc->Binding().WindowFor(first));
        QCOMPARE(CellWindows().size(), std::size_t(2));
        // And back where it stood.
        DragTitleBar(third, thirdRect.topLeft() - CellRect(third).topLeft());
        QCOMPARE(CellRect(third), thirdRect);
        QVERIFY(calc->Binding().WindowFor(first));
        QCOMPARE(CellWindows().size(), std::size_t(3));
    }

  private:
    // A memory file of `written` cells that promises `promised`, in the
    // program's own folder; cell n is named "Cell n" and holds n - 1 feet.
    std::string WriteMemoryFile(int written, int promised) {
        std::string text = " 1635 \r\n 1980 \r\n 3990 \r\n 1040 \r\n " + std::to_string(promised) +
                           "\r\n 1935\r\n";
        for (int n = 1; n <= written; ++n) {
            text += "Cell " + std::to_string(n) + "\r\n " + std::to_string(n - 1) + "'- 0\" \r\n";
        }
        const QString path = calc->programFolder.filePath(QStringLiteral("cells.mem"));
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly)) qFatal("cannot write %s", qPrintable(path));
        file.write(text.data(), static_cast<qint64>(text.size()));
        return QFile::encodeName(path).toStdString();
    }
    void Open(const std::string& path) {
        calc->P().MemoryFileName = path;
        memory::ReadMemoryFile(calc->P());
        calc->Binding().AfterEvent();
        guitest::Settle();
        QVERIFY(Parent() && Parent()->isVisible());
    }
    qtbind::FormWindow* Parent() { return calc->Binding().WindowFor(*calc->P().MDIForm1); }
    std::vector<forms::Form*> Cells() { return calc->Cells(); }
    // The cells' windows inside the memory window, as many as there are.
    std::vector<qtbind::FormWindow*> CellWindows() {
        std::vector<qtbind::FormWindow*> windows;
        for (QObject* child : Parent()->Surface()->children()) {
            auto* window = dynamic_cast<qtbind::FormWindow*>(child);
            if (window && window->Form()) windows.push_back(window);
        }
        return windows;
    }
    QRect CellRect(const forms::Form& cell) {
        return calc->Scale().ToPixels(cell.Left(), cell.Top(), cell.Width(), cell.Height());
    }
    // The cell's title bar taken with the mouse and moved by `by` pixels.
    void DragTitleBar(forms::Form& cell, const QPoint& by) {
        qtbind::FormWindow* window = calc->Binding().WindowFor(cell);
        QVERIFY(window);
        QWidget* parent = window->window();
        const QPoint grip = window->mapTo(parent, window->TitleBar()->center() - QPoint(20, 0));
        QTest::mousePress(parent->windowHandle(), Qt::LeftButton, Qt::NoModifier, grip);
        QTest::mouseMove(parent->windowHandle(), grip + by / 2);
        QTest::mouseMove(parent->windowHandle(), grip + by);
        QTest::mouseRelease(parent->windowHandle(), Qt::LeftButton, Qt::NoModifier, grip + by);
        guitest::Settle();
    }

    std::unique_ptr<RunningCalculator> calc;
};

QTEST_MAIN(ManyCellsTest)
#include "many_cells_test.moc"
