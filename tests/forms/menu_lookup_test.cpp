#include <gtest/gtest.h>

#include "forms/form.h"
#include "forms/runtime.h"

namespace forms {
namespace {

class MenuLookup : public ::testing::Test {
  protected:
    Runtime runtime{Services{}, ScreenInfo{}};
    Form form{runtime, "Calculator", BorderStyle::FixedSingle, true};
};

TEST_F(MenuLookup, FindsItemsAtEveryDepthByNameAndIndex) {
    MenuItem& options = form.AddMenu("mnuOptions", "&Options");
    MenuItem& colors = options.Add("mnuColors", "&Colors");
    MenuItem& red = colors.Add("mnuColor", "Calculator", 0);
    MenuItem& tape = colors.Add("mnuColor", "Tape", 1);

    EXPECT_EQ(form.FindMenu("mnuOptions"), &options);
    EXPECT_EQ(form.FindMenu("mnuColor", 0), &red);
    EXPECT_EQ(form.FindMenu("mnuColor", 1), &tape);
    EXPECT_EQ(form.FindMenu("mnuColor"), nullptr);
    // Asked again, the same items come back.
    EXPECT_EQ(form.FindMenu("mnuColor", 1), &tape);
    EXPECT_EQ(&form.GetMenu("mnuColor", 0), &red);
}

TEST_F(MenuLookup, AnItemMissingOnceIsFoundOnceAdded) {
    MenuItem& file = form.AddMenu("mnuFile", "&File");
    EXPECT_EQ(form.FindMenu("mnuExit"), nullptr);
    MenuItem& exit = file.Add("mnuExit", "E&xit");
    EXPECT_EQ(form.FindMenu("mnuExit"), &exit);
    EXPECT_EQ(form.FindMenu("mnuexit"), nullptr);
}

}  // namespace
}  // namespace forms
