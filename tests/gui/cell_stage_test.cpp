// Which memory cells show in the memory window: cells lie on one another in
// the order they came or were last made active, and a cell shows where no
// cell above it covers it and it lies in the window's area.
#include "qtbind/cell_stage.h"

#include <gtest/gtest.h>

#include <map>

#include "forms/runtime.h"

namespace {

using forms::Form;

class CellStageTest : public ::testing::Test {
  protected:
    Form& Cell(const char* name, QRect rect) {
        Form& form = runtime.CreateForm(name, forms::BorderStyle::Sizable);
        rects[&form] = rect;
        stage.Raise(form);
        return form;
    }
    std::vector<Form*> Showing(QRect area = QRect(0, 0, 400, 300)) {
        return stage.Showing(area, [this](const Form& cell) { return rects.at(&cell); });
    }

    forms::Runtime runtime{forms::Services{}, forms::ScreenInfo{}};
    std::map<const Form*, QRect> rects;
    qtbind::CellStage stage;
};

TEST_F(CellStageTest, OfCellsStackedOnOneAnotherTheTopOneShows) {
    for (int i = 0; i < 1000; ++i) Cell("MemoryForm", QRect(0, 0, 129, 42));
    const std::vector<Form*> showing = Showing();
    ASSERT_EQ(showing.size(), 1u);
    EXPECT_EQ(showing.front(), stage.Order().back());
}

TEST_F(CellStageTest, ACellPartlyCoveredShowsAndComesFirst) {
    Form& below = Cell("MemoryForm", QRect(0, 0, 129, 42));
    Form& above = Cell("MemoryForm", QRect(0, 20, 129, 42));
    EXPECT_EQ(Showing(), (std::vector<Form*>{&below, &above}));
}

TEST_F(CellStageTest, ACellCoveredByTwoTogetherDoesNotShow) {
    Form& covered = Cell("MemoryForm", QRect(0, 0, 100, 40));
    Form& left = Cell("MemoryForm", QRect(0, 0, 50, 40));
    Form& right = Cell("MemoryForm", QRect(50, 0, 50, 40));
    EXPECT_EQ(Showing(), (std::vector<Form*>{&left, &right}));
    // Made active, it comes on top and covers them both.
    stage.Raise(covered);
    EXPECT_EQ(Showing(), (std::vector<Form*>{&covered}));
}

TEST_F(CellStageTest, CellsOutsideTheAreaDoNotShow) {
    Form& in = Cell("MemoryForm", QRect(0, 0, 129, 42));
    Form& edge = Cell("MemoryForm", QRect(390, 290, 129, 42));
    Cell("MemoryForm", QRect(400, 0, 129, 42));
    Cell("MemoryForm", QRect(0, 300, 129, 42));
    EXPECT_EQ(Showing(), (std::vector<Form*>{&in, &edge}));
    EXPECT_TRUE(Showing(QRect()).empty());
}

TEST_F(CellStageTest, AHiddenCellShowsNothingAndCoversNothing) {
    Form& below = Cell("MemoryForm", QRect(0, 0, 129, 42));
    Form& hidden = Cell("MemoryForm", QRect());
    EXPECT_EQ(Showing(), (std::vector<Form*>{&below}));
    stage.Remove(hidden);
    EXPECT_FALSE(stage.Contains(hidden));
    EXPECT_EQ(stage.Size(), 1u);
}

TEST_F(CellStageTest, RemovingTheTopCellUncoversTheOneBeneath) {
    Form& beneath = Cell("MemoryForm", QRect(0, 0, 129, 42));
    Form& top = Cell("MemoryForm", QRect(0, 0, 129, 42));
    EXPECT_EQ(Showing(), (std::vector<Form*>{&top}));
    stage.Remove(top);
    EXPECT_EQ(Showing(), (std::vector<Form*>{&beneath}));
}

TEST_F(CellStageTest, RaisingKeepsEveryCellOnce) {
    Form& a = Cell("MemoryForm", QRect(0, 0, 10, 10));
    Form& b = Cell("MemoryForm", QRect(20, 0, 10, 10));
    Form& c = Cell("MemoryForm", QRect(40, 0, 10, 10));
    stage.Raise(a);
    stage.Raise(a);
    EXPECT_EQ(stage.Order(), (std::vector<Form*>{&b, &c, &a}));
}

}  // namespace
