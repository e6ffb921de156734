// The calculator at 75% behind its real window: every key, label and the
// readout drawn at its new rectangle, the readout in its small bold font,
// the window narrower and nothing cut off. And the colour dialog of the
// Colors menu: it starts on pure red, what is chosen colours the part at
// once, and Cancel leaves it.
#include <QColorDialog>
#include <QLabel>
#include <QTimer>
#include <functional>
#include <memory>

#include "running_calculator.h"
#include "shell/color_menu.h"
#include "shell/zoom.h"

namespace {

// Runs `act` on the colour dialog as soon as it is up, from inside its
// modal loop; a dialog left open is shut a while later so that the test
// fails instead of hanging.
[[nodiscard]] std::unique_ptr<QTimer> WhenColorDialogUp(std::function<void(QColorDialog&)> act) {
    auto watch = std::make_unique<QTimer>();
    QTimer* poll = watch.get();
    poll->setInterval(10);
    QObject::connect(poll, &QTimer::timeout, [poll, act] {
        auto* dialog = qobject_cast<QColorDialog*>(QApplication::activeModalWidget());
        if (!dialog || !dialog->isVisible()) return;
        poll->stop();
        act(*dialog);
        QTimer::singleShot(5000, dialog, [dialog] { dialog->reject(); });
    });
    poll->start();
    return watch;
}

class ZoomColorsTest : public QObject {
    Q_OBJECT

  private slots:
    void TheSmallCalculatorIsDrawnSmallerNotCropped() {
        guitest::RunningCalculator calc;
        QWidget* window = calc.CalculatorWindow();
        QVERIFY(window);
        auto* readout = qobject_cast<QLabel*>(calc.Widget("Readout"));
        QVERIFY(readout);
        const int largeWidth = window->width();
        const int largeFont = readout->font().pixelSize();
        QVERIFY(!readout->font().bold());

        calc.P().Calculator->GetMenu("ZoomSmall").Click();
        guitest::Settle();
        const qtbind::PixelScale& scale = calc.Scale();
        QCOMPARE(window->width() < largeWidth, true);
        QCOMPARE(calc.Widget("Number(7)")->geometry(), scale.ToPixels(107.5, 540, 360, 360));
        QCOMPARE(calc.Widget("Equal")->geometry(), scale.ToPixels(2207.5, 1350, 360, 765));
        QCOMPARE(readout->geometry(), scale.ToPixels(139, 191.25, 2385, 258.75));
        QVERIFY(readout->font().bold());
        QVERIFY(readout->font().pixelSize() < largeFont);
        QVERIFY(window->isVisible());
        // Every visible control lies inside the window's inner area.
        QWidget* surface = calc.CalculatorWindow()->Surface();
        for (QWidget* child : surface->findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
            if (!child->isVisible()) continue;
            QVERIFY2(surface->rect().contains(child->geometry()), qPrintable(child->objectName()));
        }

        calc.P().Calculator->GetMenu("ZoomLarge").Click();
        guitest::Settle();
        QCOMPARE(window->width(), largeWidth);
        QCOMPARE(calc.Widget("Number(7)")->geometry(), scale.ToPixels(130, 720, 480, 480));
        QCOMPARE(readout->font().pixelSize(), largeFont);
    }

    void TheDialogStartsOnRedAndColoursTheReadout() {
        guitest::RunningCalculator calc;
        QColor started;
        bool onTop = false;
        auto watch = WhenColorDialogUp([&](QColorDialog& dialog) {
            started = dialog.currentColor();
            onTop = dialog.windowFlags().testFlag(Qt::WindowStaysOnTopHint);
            dialog.setCurrentColor(QColor(0x12, 0x34, 0x56));
            dialog.accept();
        });
        calc.P().Calculator->GetMenu("mnuColor", 1).Click();
        guitest::Settle();
        QCOMPARE(started, QColor(255, 0, 0));
        QVERIFY(onTop);
        QCOMPARE(calc.P().calc->Readout.BackColor(), 0x563412u);
        auto* readout = qobject_cast<QLabel*>(calc.Widget("Readout"));
        QCOMPARE(readout->palette().color(readout->backgroundRole()), QColor(0x12, 0x34, 0x56));
    }

    void CancelLeavesTheColour() {
        guitest::RunningCalculator calc;
        const std::uint32_t before = calc.P().Calculator->BackColor();
        QColor started;
        auto watch = WhenColorDialogUp([&](QColorDialog& dialog) {
            started = dialog.currentColor();
            dialog.setCurrentColor(QColor(0, 0, 255));
            dialog.reject();
        });
        calc.P().Calculator->GetMenu("mnuColor", 0).Click();
        guitest::Settle();
        QCOMPARE(started, QColor(255, 0, 0));
        QCOMPARE(calc.P().Calculator->BackColor(), before);
    }
};

}  // namespace

QTEST_MAIN(ZoomColorsTest)
#include "zoom_colors_test.moc"
