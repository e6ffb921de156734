// Zoom and its guards on the model: the width 3000 counts as small for the
// way down and as large for the way back, so that neither moves a control.
#include <gtest/gtest.h>

#include "app_fixture.h"
#include "shell/zoom.h"

namespace {

using Zoom = StartedApp;

struct Rect {
    double left, top, width, height;
    bool operator==(const Rect&) const = default;
};

std::vector<Rect> Rectangles(const forms::Form& f) {
    std::vector<Rect> all;
    for (const auto& c : f.Controls())
        all.push_back({c->Left(), c->Top(), c->Width(), c->Height()});
    return all;
}

TEST_F(Zoom, AWidthOf3000ScalesNothingEitherWay) {
    forms::Form& calc = *P().Calculator;
    calc.SetWidth(3000);
    const auto before = Rectangles(calc);
    shell::ZoomSmallClick(P());
    EXPECT_EQ(Rectangles(calc), before);
    EXPECT_EQ(calc.Width(), 3000);
    shell::ZoomLargeClick(P());
    EXPECT_EQ(Rectangles(calc), before);
    EXPECT_EQ(calc.Width(), 3000);
    EXPECT_TRUE(calc.GetMenu("ZoomLarge").Checked());
}

TEST_F(Zoom, TheEvenCorrectionFollowsTheReadBackLeft) {
    forms::Form& calc = *P().Calculator;
    // 130 x 0.75 = 97.5 reads back as 98, even: 10 is added. 670 x 0.75 =
    // 502.5 reads back as 502, even as well. 1210 x 0.75 = 907.5 reads 908.
    shell::ZoomSmallClick(P());
    EXPECT_EQ(calc.Get("Number", 7).Left(), 107.5);
    EXPECT_EQ(calc.Get("Number", 8).Left(), 512.5);
    EXPECT_EQ(calc.Get("Number", 9).Left(), 917.5);
    // 180 x 0.75 = 135, odd: no correction.
    EXPECT_EQ(calc.Get("Label1").Left(), 135);
}

TEST_F(Zoom, ManyRoundTripsNeverDrift) {
    forms::Form& calc = *P().Calculator;
    const auto design = Rectangles(calc);
    for (int i = 0; i < 50; ++i) {
        shell::ZoomSmallClick(P());
        shell::ZoomLargeClick(P());
    }
    EXPECT_EQ(Rectangles(calc), design);
    EXPECT_EQ(calc.Width(), shell::kLargeWidth);
}

TEST_F(Zoom, TheCommonDialogKeepsNoRectangleAndTheLoopGoesOn) {
    forms::Form& calc = *P().Calculator;
    shell::ZoomSmallClick(P());
    const forms::Control& dialog = calc.Get("CMDialog1");
    EXPECT_FALSE(dialog.HasRectangle());
    EXPECT_EQ(dialog.Width(), 0);
    // The pictures after it in the list were scaled all the same.
    EXPECT_EQ(calc.Get("Image3").Width(), 360);
}

}  // namespace
