// Keeping windows above other programs: each call puts its window at the
// front of the band, in the order of the calls, and moves nothing.
#include "forms/top_most.h"

#include "app_fixture.h"

namespace {

using TopMost = StartedApp;

TEST_F(TopMost, OffLeavesTheFormWhereItIsButOutOfTheBand) {
    forms::Form& calc = *P().Calculator;
    const double left = calc.Left(), top = calc.Top();
    forms::SetTopMost(calc, 0);
    EXPECT_EQ(calc.Left(), left);
    EXPECT_EQ(calc.Top(), top);
    EXPECT_TRUE(calc.Visible());
    for (forms::Form* f : P().runtime.TopMostBand()) EXPECT_NE(f, &calc);
}

TEST_F(TopMost, TwiceWithTheSameValueChangesNothing) {
    forms::SetTopMost(Tape(), 1);
    forms::SetTopMost(*P().Calculator, 1);
    const auto band = P().runtime.TopMostBand();
    forms::SetTopMost(*P().Calculator, 1);
    EXPECT_EQ(P().runtime.TopMostBand(), band);
}

TEST_F(TopMost, AnyNonZeroValueMeansOnTop) {
    forms::SetTopMost(*P().Calculator, 0);
    forms::SetTopMost(*P().Calculator, -1);
    ASSERT_FALSE(P().runtime.TopMostBand().empty());
    EXPECT_EQ(P().runtime.TopMostBand().front(), P().Calculator);
    forms::SetTopMost(Tape(), 7);
    EXPECT_EQ(P().runtime.TopMostBand().front(), &Tape());
}

TEST_F(TopMost, TheCalculatorLiesInFrontOfItsTape) {
    P().Calculator->GetMenu("mnuTape").Click();  // hide
    P().Calculator->GetMenu("mnuTape").Click();  // show: tape on, then calculator on
    ASSERT_GE(P().runtime.TopMostBand().size(), 2u);
    EXPECT_EQ(P().runtime.TopMostBand()[0], P().Calculator);
    EXPECT_EQ(P().runtime.TopMostBand()[1], &Tape());
}

}  // namespace
