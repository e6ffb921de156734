#include "measure/parse_text.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "measure/number_text.h"

namespace measure {
namespace {

struct ParseCase {
    const char* name;
    std::string text;
    double value;
    std::string textAfter;  // what the routine leaves in its text argument
};

void PrintTo(const ParseCase& c, std::ostream* os) {
    *os << c.name;
}

std::string NameOf(const ::testing::TestParamInfo<ParseCase>& info) {
    return info.param.name;
}

// ---------------------------------------------------------------------------
// Lengths

class LengthForms : public ::testing::TestWithParam<ParseCase> {};

TEST_P(LengthForms, Reads) {
    const ParseCase& c = GetParam();
    std::string text = c.text;
    double value = -999.0;
    ParseLengthText(text, value);
    EXPECT_DOUBLE_EQ(value, c.value);
    EXPECT_EQ(text, c.textAfter);
}

// The forms a user may type, and what the routine makes of them.
INSTANTIATE_TEST_SUITE_P(
    Accepted, LengthForms,
    ::testing::Values(ParseCase{"FeetOnly", "5'", 60, " 60"},
                      ParseCase{"InchMarkOptional", "5'3", 63, " 63"},
                      ParseCase{"FeetHyphenInches", "5'-3\"", 63, " 63"},
                      ParseCase{"FormatRoutinesForm", " 5'- 3 1/2\"", 63.5, " 63.5"},
                      ParseCase{"HyphenForTheBlank", "5'3-1/2", 63.5, " 63.5"},
                      ParseCase{"HyphensBoth", "5'-3-1/2\"", 63.5, " 63.5"},
                      ParseCase{"InchesAndFraction", "3 1/2", 3.5, " 3.5"},
                      ParseCase{"InchesHyphenFraction", "3-1/2\"", 3.5, " 3.5"},
                      ParseCase{"BareFraction", "3/4", 0.75, " .75"},
                      ParseCase{"DecimalInches", "12.5", 12.5, " 12.5"},
                      ParseCase{"DecimalFeet", "2.5'", 30, " 30"},
                      ParseCase{"NegativeWithBlank", "- 1'- 0\"", -12, " 12"},
                      ParseCase{"EmptyText", "", 0, " 0"}, ParseCase{"Letters", "abc", 0, " 0"}),
    NameOf);

INSTANTIATE_TEST_SUITE_P(Edge, LengthForms,
                         ::testing::Values(
                             // The first hyphen is taken for the one between feet and inches,
                             // the second becomes a leading blank, so the 3 lands in the
                             // fraction without a slash and is lost.
                             ParseCase{"DoubleHyphenLosesInches", "5'--3", 60, " 60"},
                             ParseCase{"SlashFirstIsNoFraction", "/2", 0, " 0"},
                             ParseCase{"SecondFootMarkEndsInches", "1'2'3", 14, " 14"},
                             ParseCase{"FeetThenBlanks", "5'   ", 60, " 60"},
                             ParseCase{"AreaSuffixCutAtInchMark", " 1'- 0\" sq.", 12, " 12"},
                             ParseCase{"VolumeSuffixCutAtInchMark", " 2'- 3\" cu.", 27, " 27"},
                             ParseCase{"SignThenBlank", "- 12'- 3\"", -147, " 147"},
                             ParseCase{"SignThenDigits", "-12'- 3\"", -147, " 147"},
                             ParseCase{"SecondSignIsNoSign", "--5", -5, " 5"},
                             ParseCase{"NegativeFraction", "-1/2\"", -0.5, " .5"},
                             ParseCase{"NegativeInches", "-3 1/2", -3.5, " 3.5"},
                             ParseCase{"LoneHyphenAfterFeet", "5'-", 60, " 60"},
                             ParseCase{"TrailingTextAfterInchMark", "7\" and more 5/8", 7, " 7"},
                             ParseCase{"FeetWithBlankAndFraction", " 1'- 0 1/2\"", 12.5, " 12.5"},
                             ParseCase{"TraceBlankReadsBack", " 1'- 0 \"", 12, " 12"},
                             ParseCase{"DenominatorTextGoesToTheEnd", "1 1/2/3", 1.5, " 1.5"},
                             // Only the first blank splits; the numerator reads "2 3" as 23.
                             ParseCase{"LaterBlanksJoinDigits", "1 2 3/4", 6.75, " 6.75"},
                             ParseCase{"ExponentFeet", " 1E+15'- 0\"", 1.2e16, " 1.2E+16"},
                             ParseCase{"UpperCaseMarksNotFolded", "1'2\" SQ.", 14, " 14"},
                             // Four decimals: the denominator 3.00004 becomes 3.
                             ParseCase{"FractionPartsKeepFourDecimals", "0 1/3.00004", 1.0 / 3.0,
                                       " .333333333333333"},
                             ParseCase{"FixedPointRoundsHalfToEven", "0 0.00005/1", 0, " 0"},
                             ParseCase{"NumeratorTooLargeForFixedPoint", "2 1e15/4", 2, " 2"},
                             // A tab does not split, so the text is a bare fraction 31/2.
                             ParseCase{"TabIsNoBlank", "3\t1/2", 15.5, " 15.5"},
                             ParseCase{"FeetOverflowIsDropped", "1e308'5", 5, " 5"}),
                         NameOf);

TEST(ParseLengthText, DenominatorZeroGivesInfinity) {
    std::string text = "1/0";
    double value = 0.0;
    ParseLengthText(text, value);
    EXPECT_TRUE(std::isinf(value));
    EXPECT_GT(value, 0.0);
    EXPECT_EQ(text, " inf");
}

TEST(ParseLengthText, NegativeDenominatorZeroGivesMinusInfinity) {
    std::string text = "-3 1/0";
    double value = 0.0;
    ParseLengthText(text, value);
    EXPECT_TRUE(std::isinf(value));
    EXPECT_LT(value, 0.0);
    EXPECT_EQ(text, " inf");
}

TEST(ParseLengthText, ZeroOverZeroIsNotANumber) {
    std::string text = "5'0/0";
    double value = 0.0;
    ParseLengthText(text, value);
    EXPECT_TRUE(std::isnan(value));
    EXPECT_EQ(text, " nan");
}

TEST(ParseLengthText, DenominatorRoundedToZeroGivesInfinity) {
    std::string text = "1/0.00004";
    double value = 0.0;
    ParseLengthText(text, value);
    EXPECT_TRUE(std::isinf(value));
}

TEST(ParseLengthText, DenominatorTooLargeForFixedPointCountsAsZero) {
    std::string text = "2 1/1e15";
    double value = 0.0;
    ParseLengthText(text, value);
    EXPECT_TRUE(std::isinf(value));
}

TEST(ParseLengthText, OverflowingSumKeepsCallersValue) {
    std::string text = "1.4e307'1.7e308";
    double value = 42.0;
    ParseLengthText(text, value);
    EXPECT_EQ(value, 42.0);
    EXPECT_EQ(text, " 42");
}

TEST(ParseLengthText, OverflowingSumWithSignNegatesCallersValue) {
    std::string text = "-1.4e307'1.7e308";
    double value = 42.0;
    ParseLengthText(text, value);
    EXPECT_EQ(value, -42.0);
    EXPECT_EQ(text, " 42");
}

TEST(ParseLengthText, NegativeZeroIsZero) {
    std::string text = "- 0\"";
    double value = 1.0;
    ParseLengthText(text, value);
    EXPECT_EQ(value, 0.0);
    EXPECT_EQ(text, " 0");
}

// Positions in a text are 16-bit: a mark that stands further in than 32767
// characters is not seen.
TEST(ParseLengthText, FootMarkBeyond16BitPositionIsNotSeen) {
    std::string text = "1" + std::string(40000, '\t') + "'3";
    double value = 0.0;
    ParseLengthText(text, value);
    // No feet: the whole text is the inches, read up to the foot mark.
    EXPECT_EQ(value, 1.0);
}

TEST(ParseLengthText, FootMarkWithin16BitPositionInLongText) {
    std::string text = "1'2\" sq." + std::string(40000, 'x');
    double value = 0.0;
    ParseLengthText(text, value);
    EXPECT_EQ(value, 14.0);
}

TEST(ParseLengthText, BlankBeyond16BitPositionIsNotSeen) {
    std::string text = "5" + std::string(40000, '\t') + " 1/2";
    double value = 0.0;
    ParseLengthText(text, value);
    // No split: the whole rest reads through the tabs and the blank up to "/".
    EXPECT_EQ(value, 51.0);
}

TEST(ParseLengthText, BlankWithin16BitPositionSplits) {
    std::string text = "5" + std::string(1000, '\t') + " 1/2";
    double value = 0.0;
    ParseLengthText(text, value);
    EXPECT_EQ(value, 5.5);
}

TEST(ParseLengthText, RestTooLongFor16BitLengthKeepsItsHyphen) {
    std::string text = "1'-5" + std::string(40000, ' ') + "x";
    double value = 0.0;
    ParseLengthText(text, value);
    // The hyphen turns into a leading blank, and the 5 lands in the fraction.
    EXPECT_EQ(value, 12.0);

    std::string shortText = "1'-5" + std::string(100, ' ') + "x";
    ParseLengthText(shortText, value);
    EXPECT_EQ(value, 17.0);
}

// ---------------------------------------------------------------------------
// Areas and volumes

class AreaForms : public ::testing::TestWithParam<ParseCase> {};

TEST_P(AreaForms, Reads) {
    const ParseCase& c = GetParam();
    std::string text = c.text;
    double value = -999.0;
    ParseAreaText(text, value);
    EXPECT_DOUBLE_EQ(value, c.value);
    EXPECT_EQ(text, c.textAfter);
}

INSTANTIATE_TEST_SUITE_P(
    Area, AreaForms,
    ::testing::Values(ParseCase{"FormattedArea", " 6'- 100 1/2\" sq.", 964.5, "6'- 100 1/2\" sq."},
                      ParseCase{"InchesRunTo143", " 1'- 143 15/16\" sq.", 287.9375,
                                "1'- 143 15/16\" sq."},
                      ParseCase{"SquareFeet", "2.5'", 360, "2.5'"},
                      ParseCase{"FractionWithoutWholeIsLost", "3/4\" sq.", 3, "3/4\" sq."},
                      ParseCase{"HalfReadsAsOne", "1/2\" sq.", 1, "1/2\" sq."},
                      ParseCase{"NegativeDropsSignOnly", "- 1'- 0\" sq.", -144, " 1'- 0\" sq."},
                      ParseCase{"Empty", "  ", 0, ""},
                      ParseCase{"InchesAndFraction", "3 1/2", 3.5, "3 1/2"}),
    NameOf);

class VolumeForms : public ::testing::TestWithParam<ParseCase> {};

TEST_P(VolumeForms, Reads) {
    const ParseCase& c = GetParam();
    std::string text = c.text;
    double value = -999.0;
    ParseVolumeText(text, value);
    EXPECT_DOUBLE_EQ(value, c.value);
    EXPECT_EQ(text, c.textAfter);
}

INSTANTIATE_TEST_SUITE_P(
    Volume, VolumeForms,
    ::testing::Values(ParseCase{"CubicFoot", " 1'- 0\" cu.", 1728, "1'- 0\" cu."},
                      ParseCase{"InchesRunTo1727", " 2'- 1727 15/16\" cu.", 3456 + 1727.9375,
                                "2'- 1727 15/16\" cu."},
                      ParseCase{"FractionWithoutWholeIsLost", "3/4\" cu.", 3, "3/4\" cu."},
                      ParseCase{"Negative", "-2'", -3456, "2'"}),
    NameOf);

}  // namespace
}  // namespace measure
