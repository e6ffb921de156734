#include "forms/case_insensitive.h"

#include <gtest/gtest.h>

namespace forms {
namespace {

TEST(EqualsIgnoringCase, LettersMatchInEitherCase) {
    EXPECT_TRUE(EqualsIgnoringCase("CalcBackGround", "CalcBackground"));
    EXPECT_TRUE(EqualsIgnoringCase("SETTINGS", "settings"));
    EXPECT_TRUE(EqualsIgnoringCase("Zoom", "Zoom"));
    EXPECT_TRUE(EqualsIgnoringCase("", ""));
}

TEST(EqualsIgnoringCase, DifferentNamesDiffer) {
    EXPECT_FALSE(EqualsIgnoringCase("Zoom", "Zoo"));
    EXPECT_FALSE(EqualsIgnoringCase("Zoom", "Zoon"));
    EXPECT_FALSE(EqualsIgnoringCase("", "a"));
    EXPECT_FALSE(EqualsIgnoringCase("ConvTop", "ConvLeft"));
}

TEST(EqualsIgnoringCase, OnlyAsciiLettersAreFolded) {
    // Characters 32 apart that are not letters stay apart.
    EXPECT_FALSE(EqualsIgnoringCase("[", "{"));
    EXPECT_FALSE(EqualsIgnoringCase("@", "`"));
    EXPECT_FALSE(EqualsIgnoringCase("1", "\x11"));
    // Letters beyond ASCII are compared as bytes.
    EXPECT_FALSE(EqualsIgnoringCase("\xC3\x89", "\xC3\xA9"));
    EXPECT_TRUE(EqualsIgnoringCase("caf\xC3\xA9", "CAF\xC3\xA9"));
}

}  // namespace
}  // namespace forms
