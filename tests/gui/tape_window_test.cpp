// The tape window on screen: it follows the calculator's window when that
// one is moved, and a drag of its top edge leaves it at a whole number of
// lines with its bottom edge where it was.
#include <QTest>
#include <cmath>
#include <memory>

#include "running_calculator.h"

using guitest::RunningCalculator;

namespace {
// The tape's height is 400 twips and 225 for each line.
double LinesOf(double height) {
    return (height - 400) / 225;
}
}  // namespace

class TapeWindowTest : public QObject {
    Q_OBJECT

  private slots:
    void init() { calc = std::make_unique<RunningCalculator>(); }
    void cleanup() {
        calc.reset();
        guitest::Settle();
    }

    void TheTapeFollowsTheCalculator() {
        qtbind::FormWindow* calcWindow = calc->CalculatorWindow();
        qtbind::FormWindow* tapeWindow = calc->TapeWindow();
        QVERIFY(calcWindow && tapeWindow);
        QVERIFY(tapeWindow->isVisible());
        const qtbind::PixelScale& scale = calc->Scale();

        const QPoint to = calcWindow->pos() + QPoint(-37, 52);
        calcWindow->move(to);
        guitest::Settle();

        const forms::Form& calcForm = *calc->P().Calculator;
        const forms::Form& tape = *calc->P().frmTape;
        QCOMPARE(calcForm.Left(), scale.ToTwipsX(to.x()));
        QCOMPARE(calcForm.Top(), scale.ToTwipsY(to.y()));
        // In the model: 240 twips in, the bottom 60 twips down over it.
        QCOMPARE(tape.Left(), calcForm.Left() + 240);
        QCOMPARE(tape.Top() + tape.Height(), calcForm.Top() + 60);
        // On screen, the same in pixels.
        QCOMPARE(tapeWindow->pos(),
                 QPoint(scale.ToPixelsX(tape.Left()), scale.ToPixelsY(tape.Top())));
        QCOMPARE(tapeWindow->size(), scale.ToPixels(tape.Width(), tape.Height()));
        QCOMPARE(tapeWindow->x(), calcWindow->x() + scale.ToPixelsX(240));
        const int bottom = tapeWindow->y() + tapeWindow->height();
        QVERIFY(std::abs(bottom - (calcWindow->y() + scale.ToPixelsY(60))) <= 1);
        // Moving the calculator gives the focus back to Equal.
        QCOMPARE(calc->ModelFocus(), std::string("Equal"));
    }

    void DraggingTheTopEdgeSnapsToWholeLines() {
        qtbind::FormWindow* tapeWindow = calc->TapeWindow();
        QVERIFY(tapeWindow && tapeWindow->isVisible());
        const forms::Form& tape = *calc->P().frmTape;
        const qtbind::PixelScale& scale = calc->Scale();
        const double bottom = tape.Top() + tape.Height();
        const double linesBefore = LinesOf(tape.Height());
        QCOMPARE(linesBefore, std::floor(linesBefore));

        // Up by a line and a half, to the next whole pixel.
        const int up = static_cast<int>(std::ceil(1.5 * 225 / scale.TwipsPerPixelY()));
        const QPoint grip(tapeWindow->width() / 2, 1);
        QWindow* handle = tapeWindow->windowHandle();
        const QPoint dropAt = handle->mapToGlobal(grip - QPoint(0, up));
        QTest::mousePress(handle, Qt::LeftButton, Qt::NoModifier, grip);
        QTest::mouseMove(handle, grip - QPoint(0, up));
        // The window has moved under the mouse, which is let go where it is.
        QTest::mouseRelease(handle, Qt::LeftButton, Qt::NoModifier, handle->mapFromGlobal(dropAt));
        guitest::Settle();

        const double lines = LinesOf(tape.Height());
        QCOMPARE(lines, std::floor(lines));
        QCOMPARE(lines, linesBefore + 2);
        QCOMPARE(tape.Top() + tape.Height(), bottom);
        QCOMPARE(tapeWindow->height(), scale.ToPixelsY(tape.Height()));
        QCOMPARE(tapeWindow->y(), scale.ToPixelsY(tape.Top()));
    }

  private:
    std::unique_ptr<RunningCalculator> calc;
};

QTEST_MAIN(TapeWindowTest)
#include "tape_window_test.moc"
