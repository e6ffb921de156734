// Dragging the readout with the real mouse: the press begins the drag, the
// moves tell the readout which half the pointer is over and the cursor shows
// the plus or the minus, letting go adds or subtracts, and Escape or letting
// go where nothing takes the value ends the drag with nothing done.
#include <QCursor>
#include <QGuiApplication>
#include <QTest>
#include <memory>
#include <optional>
#include <string>

#include "forms/runtime.h"
#include "qtbind/drag_pictures.h"
#include "qtbind/form_surface.h"
#include "running_calculator.h"

using guitest::RunningCalculator;

class DragTest : public QObject {
    Q_OBJECT

  private slots:
    void init() {
        calc = std::make_unique<RunningCalculator>();
        readout = calc->Widget("Readout");
        QVERIFY(readout);
        QVERIFY(readout->isVisible());
    }
    void cleanup() {
        // A test that failed half way lets the mouse go.
        if (calc && calc->P().runtime.Dragging()) calc->P().runtime.CancelDrag();
        calc.reset();
        guitest::Settle();
    }

    // 5 ' Enter commits 5 feet (after Escape has put the calculator at
    // rest). Readout dragged onto its own right half adds it to itself; the
    // sum shows trimmed with one blank behind it, and the tape gets the
    // sign line, the rule of sixteen dashes and the sum. The left half then
    // takes the sum from itself.
    void DroppingReadoutOnItselfDoublesOnTheRightAndZeroesOnTheLeft() {
        CommitFiveFeet();
        const int before = calc->TapeLines();

        DragReadout(RightHalf());
        QCOMPARE(calc->ReadoutText(), QStringLiteral("10'- 0\" "));
        QCOMPARE(calc->TapeLines(), before + 3);
        QCOMPARE(calc->TapeLine(before + 1), QStringLiteral(" + 5'- "));
        QCOMPARE(calc->TapeLine(before + 2), QStringLiteral("---------------- "));
        QCOMPARE(calc->TapeLine(before + 3), QStringLiteral(" 10'- 0\" "));
        QCOMPARE(calc->P().state.FirstValue, std::optional<double>(120));
        QCOMPARE(calc->ModelFocus(), std::string("Equal"));
        QVERIFY(!calc->P().runtime.Dragging());

        DragReadout(LeftHalf());
        QCOMPARE(calc->ReadoutText(), QStringLiteral("0\" "));
        QCOMPARE(calc->TapeLines(), before + 6);
        QCOMPARE(calc->TapeLine(before + 4), QStringLiteral(" - 10'- 0\" "));
        QCOMPARE(calc->TapeLine(before + 5), QStringLiteral("---------------- "));
        QCOMPARE(calc->TapeLine(before + 6), QStringLiteral(" 0\" "));
        QCOMPARE(calc->P().state.FirstValue, std::optional<double>(0));
    }

    // The pixel on the middle itself is the right half; the one before it
    // the left half. At 100% the middle (1775 twips on the form) is a whole
    // pixel of the readout.
    void TheMiddlePixelAdds() {
        CommitFiveFeet();
        const int middle = MiddlePixel();
        QCOMPARE(calc->Scale().ToTwipsX(middle) + ReadoutModel().Left(), 1775.0);
        DragReadout(AtX(middle));
        QCOMPARE(calc->ReadoutText(), QStringLiteral("10'- 0\" "));
        DragReadout(AtX(middle - 1));
        QCOMPARE(calc->ReadoutText(), QStringLiteral("0\" "));
    }

    // At 75% the readout stands at 139 with a width of 2385: its middle,
    // 1331.5 on the form, falls inside a pixel. The pixel that holds it adds,
    // the one before it subtracts.
    void TheHalvesHoldAtSeventyFivePercent() {
        ReadoutModel().Move(139, 191.25, 2385, 258.75);
        guitest::Settle();
        CommitFiveFeet();
        const double tpp = calc->Scale().TwipsPerPixelX();
        const int left = static_cast<int>((1331.5 - 139) / tpp);  // last pixel before the middle
        QVERIFY(calc->Scale().ToTwipsX(left) + 139 < 1331.5);
        QVERIFY(calc->Scale().ToTwipsX(left + 1) + 139 >= 1331.5);
        DragReadout(AtX(left + 1));
        QCOMPARE(calc->ReadoutText(), QStringLiteral("10'- 0\" "));
        DragReadout(AtX(left));
        QCOMPARE(calc->ReadoutText(), QStringLiteral("0\" "));
    }

    // The cursor is the drag icon: the neutral sheet at the press, the minus
    // over the left half, the plus over the right half; it goes with the drag.
    void TheCursorShowsMinusAndPlusOverTheHalves() {
        CommitFiveFeet();
        Press(RightHalf());
        QVERIFY(calc->P().runtime.Dragging());
        QCOMPARE(calc->Binding().DragCursorPicture(), std::optional<std::string>("Image3"));
        QVERIFY(CursorShows("Image3"));

        Move(LeftHalf());
        QCOMPARE(calc->Binding().DragCursorPicture(), std::optional<std::string>("Image2"));
        QVERIFY(CursorShows("Image2"));
        QCOMPARE(calc->P().calc->Readout.DragIcon(), std::string("Image2"));

        Move(RightHalf());
        QCOMPARE(calc->Binding().DragCursorPicture(), std::optional<std::string>("Image1"));
        QVERIFY(CursorShows("Image1"));

        Release(RightHalf());
        QVERIFY(!calc->Binding().DragCursorPicture());
        QVERIFY(!QGuiApplication::overrideCursor());
        QCOMPARE(calc->P().calc->Readout.DragIcon(), std::string("Image3"));
    }

    // With a multiplication waiting, the cursor is the times sign on either
    // half.
    void TheCursorShowsTimesWhileMultiplying() {
        CommitFiveFeet();
        QTest::mouseClick(calc->Widget("Multiply"), Qt::LeftButton);
        guitest::Settle();
        QCOMPARE(calc->P().calc->ActionLabel.Caption(), std::string("x"));
        Press(RightHalf());
        Move(LeftHalf());
        QCOMPARE(calc->Binding().DragCursorPicture(), std::optional<std::string>("Image4"));
        QVERIFY(CursorShows("Image4"));
        Move(RightHalf());
        QCOMPARE(calc->Binding().DragCursorPicture(), std::optional<std::string>("Image4"));
        QTest::keyClick(calc->KeyTarget(), Qt::Key_Escape);
        guitest::Settle();
        Release(RightHalf());
    }

    // Escape calls the drag off: nothing is dropped, the cursor goes back,
    // and the key does not reach the calculator, which would clear.
    void EscapeCallsTheDragOff() {
        CommitFiveFeet();
        const int before = calc->TapeLines();
        Press(RightHalf());
        Move(LeftHalf());
        QTest::keyClick(calc->KeyTarget(), Qt::Key_Escape);
        guitest::Settle();
        QVERIFY(!calc->P().runtime.Dragging());
        QVERIFY(!QGuiApplication::overrideCursor());
        Release(LeftHalf());
        QCOMPARE(calc->ReadoutText(), QStringLiteral("5'- "));
        QCOMPARE(calc->TapeLines(), before);
        QCOMPARE(calc->P().state.FirstValue, std::optional<double>(60));
        // The next Escape is the calculator's again: it clears the entry.
        calc->Press(Qt::Key_Escape);
        QCOMPARE(calc->ReadoutText(), QStringLiteral("0."));
    }

    // Let go over the form where no control stands: nothing happens.
    void LettingGoOverNoControlDoesNothing() {
        CommitFiveFeet();
        const int before = calc->TapeLines();
        QWidget* surface = calc->CalculatorWindow()->Surface();
        const QPoint bare(3, readout->geometry().center().y());
        QVERIFY(!calc->Binding().ControlAt(surface->mapToGlobal(bare)));
        Press(RightHalf());
        QTest::mouseMove(Window(), surface->mapTo(surface->window(), bare));
        QTest::mouseRelease(Window(), Qt::LeftButton, Qt::NoModifier,
                            surface->mapTo(surface->window(), bare));
        guitest::Settle();
        QVERIFY(!calc->P().runtime.Dragging());
        QVERIFY(!QGuiApplication::overrideCursor());
        QCOMPARE(calc->ReadoutText(), QStringLiteral("5'- "));
        QCOMPARE(calc->TapeLines(), before);
    }

    // The pointer is followed into the program's other windows: over the
    // tape window it is over the tape's grid, which takes no drops.
    void TheDragReachesTheOtherWindows() {
        CommitFiveFeet();
        const int before = calc->TapeLines();
        qtbind::FormWindow* tape = calc->TapeWindow();
        QVERIFY(tape && tape->isVisible());
        forms::Control& grid = calc->P().tape->Grid1();
        QWidget* gridWidget = tape->WidgetFor(grid);
        QVERIFY(gridWidget);
        const QPoint over = gridWidget->rect().center();
        QCOMPARE(calc->Binding().ControlAt(gridWidget->mapToGlobal(over)), &grid);

        Press(RightHalf());
        Move(LeftHalf());
        QWindow* tapeWindow = tape->windowHandle();
        QTest::mouseMove(tapeWindow, gridWidget->mapTo(tape, over));
        // Over the grid the icon stays as the readout left it.
        QCOMPARE(calc->Binding().DragCursorPicture(), std::optional<std::string>("Image2"));
        QTest::mouseRelease(tapeWindow, Qt::LeftButton, Qt::NoModifier,
                            gridWidget->mapTo(tape, over));
        guitest::Settle();
        QVERIFY(!calc->P().runtime.Dragging());
        QCOMPARE(calc->ReadoutText(), QStringLiteral("5'- "));
        QCOMPARE(calc->TapeLines(), before);
    }

    // The right button on the readout opens the popup menu and begins no
    // drag.
    void RightButtonOnReadoutBeginsNoDrag() {
        QTest::mousePress(Window(), Qt::RightButton, Qt::NoModifier, InWindow(RightHalf()));
        QVERIFY(!calc->P().runtime.Dragging());
        QVERIFY(!QGuiApplication::overrideCursor());
        QCOMPARE(calc->P().runtime.LastPopupMenu(), &calc->P().Calculator->GetMenu("mnuPopup1"));
        QWidget* popup = QApplication::activePopupWidget();
        QVERIFY(popup);
        QTest::keyClick(popup, Qt::Key_Escape);
        guitest::Settle();
        QVERIFY(!QApplication::activePopupWidget());
    }

    // The five pictures and the design icon are 32 by 32 and drawn at the
    // ratio asked for.
    void ThePicturesAreDrawnAtAnyScale() {
        for (const char* name : {"Image1", "Image2", "Image3", "Image4", "Image5", ""}) {
            for (qreal ratio : {1.0, 1.5, 2.0}) {
                const QPixmap picture = qtbind::DragPicture(name, ratio);
                QCOMPARE(picture.devicePixelRatio(), ratio);
                QCOMPARE(picture.deviceIndependentSize(), QSizeF(32, 32));
                QVERIFY(picture.hasAlphaChannel());
            }
        }
        // Plus and minus differ by their colour as well as their sign.
        const QImage plus = qtbind::DragPicture("Image1").toImage();
        const QImage minus = qtbind::DragPicture("Image2").toImage();
        const QColor blue = plus.pixelColor(6, 16);
        const QColor red = minus.pixelColor(6, 16);
        QVERIFY(blue.blue() > blue.red());
        QVERIFY(red.red() > red.blue());
        // White in the middle of each sign.
        QCOMPARE(plus.pixelColor(16, 16), QColor(Qt::white));
        QCOMPARE(minus.pixelColor(16, 16), QColor(Qt::white));
        QCOMPARE(plus.pixelColor(16, 10), QColor(Qt::white));
        QVERIFY(minus.pixelColor(16, 10) != QColor(Qt::white));
    }

  private:
    forms::Control& ReadoutModel() { return calc->P().calc->Readout; }
    QWindow* Window() { return calc->KeyTarget(); }
    QPoint InWindow(const QPoint& local) { return readout->mapTo(readout->window(), local); }
    int MiddlePixel() { return calc->Scale().ToPixelsX(ReadoutModel().Width() / 2); }
    QPoint AtX(int x) { return QPoint(x, readout->height() / 2); }
    // Clear of the operator sign, which lies over the readout's left end.
    QPoint LeftHalf() { return AtX(readout->width() / 4); }
    QPoint RightHalf() { return AtX(readout->width() * 3 / 4); }

    void CommitFiveFeet() {
        calc->Press(Qt::Key_Escape);
        calc->Type("5'");
        calc->Press(Qt::Key_Return);
        QCOMPARE(calc->ReadoutText(), QStringLiteral("5'- "));
        QCOMPARE(calc->P().state.FirstValue, std::optional<double>(60));
        QCOMPARE(static_cast<int>(calc->P().state.PendingOperation), 0);
    }

    void Press(const QPoint& local) {
        QTest::mousePress(Window(), Qt::LeftButton, Qt::NoModifier, InWindow(local));
    }
    void Move(const QPoint& local) { QTest::mouseMove(Window(), InWindow(local)); }
    void Release(const QPoint& local) {
        QTest::mouseRelease(Window(), Qt::LeftButton, Qt::NoModifier, InWindow(local));
        guitest::Settle();
    }
    // A press on the middle, a move to `to` and a release there.
    void DragReadout(const QPoint& to) {
        Press(AtX(MiddlePixel() == to.x() ? MiddlePixel() + 5 : MiddlePixel()));
        Move(to);
        Release(to);
    }

    bool CursorShows(const std::string& picture) {
        const QCursor* cursor = QGuiApplication::overrideCursor();
        if (!cursor) return false;
        const QImage shown = cursor->pixmap().toImage();
        return shown == qtbind::DragPicture(picture, shown.devicePixelRatio()).toImage();
    }

    std::unique_ptr<RunningCalculator> calc;
    QWidget* readout = nullptr;
};

QTEST_MAIN(DragTest)
#include "drag_test.moc"
