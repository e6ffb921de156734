#include "measure/format_text.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <string>

namespace measure {
namespace {

struct FormatCase {
    const char* name;
    double value;
    std::int16_t accuracy;
    const char* text;
};

void PrintTo(const FormatCase& c, std::ostream* os) {
    *os << c.name;
}

std::string NameOf(const ::testing::TestParamInfo<FormatCase>& info) {
    return info.param.name;
}

std::string Length(double value, std::int16_t accuracy = 16) {
    std::string text = "untouched";
    std::int16_t count = 0;
    FormatLength(value, text, accuracy, count);
    return text;
}

std::string Area(double value) {
    std::string text;
    std::int16_t count = 0;
    FormatArea(value, text, count);
    return text;
}

std::string Volume(double value) {
    std::string text;
    std::int16_t count = 0;
    FormatVolume(value, text, count);
    return text;
}

class LengthTexts : public ::testing::TestWithParam<FormatCase> {};

TEST_P(LengthTexts, Writes) {
    const FormatCase& c = GetParam();
    EXPECT_EQ(Length(c.value, c.accuracy), c.text);
}

INSTANTIATE_TEST_SUITE_P(
    Examples, LengthTexts,
    ::testing::Values(FormatCase{"Zero", 0, 16, " 0\""}, FormatCase{"Half", 0.5, 16, "1/2\""},
                      FormatCase{"InchesAndHalf", 3.5, 16, " 3 1/2\""},
                      FormatCase{"OneFoot", 12, 16, " 1'- 0\""},
                      FormatCase{"FeetAndInches", 147, 16, " 12'- 3\""},
                      FormatCase{"FeetInchesSixteenth", 147.0625, 16, " 12'- 3 1/16\""},
                      FormatCase{"Negative", -3.5, 16, "- 3 1/2\""},
                      FormatCase{"ThirtySecondAtThirtySeconds", 3.03125, 32, " 3 1/32\""},
                      FormatCase{"CarryIntoFeetKeepsTrace", 11.99, 16, " 1'- 0 \""},
                      FormatCase{"TinyRoundsToZero", 0.001, 16, " 0\""}),
    NameOf);

INSTANTIATE_TEST_SUITE_P(Edge, LengthTexts,
                         ::testing::Values(
                             // The unrounded remainder decides that a fraction is written, even
                             // when it rounds to nothing: a blank stands before the inch mark.
                             FormatCase{"TraceAfterFeet", 12.001, 16, " 1'- 0 \""},
                             FormatCase{"TraceAfterInches", 3.001, 16, " 3 \""},
                             FormatCase{"CarryToWholeInchKeepsTrace", 3.99, 16, " 4 \""},
                             FormatCase{"WholeFeetWriteZeroInches", 144, 16, " 12'- 0\""},
                             FormatCase{"UnderOneInchHasNoBlank", 0.5, 16, "1/2\""},
                             FormatCase{"UnderOneInchNegative", -0.5, 16, "-1/2\""},
                             FormatCase{"NegativeTinyKeepsSign", -0.001, 16, "- 0\""},
                             FormatCase{"NegativeFeet", -147, 16, "- 12'- 3\""},
                             FormatCase{"NegativeZero", -0.0, 16, " 0\""},
                             FormatCase{"ThirtySecondAtThirtySecondsAlone", 0.03125, 32, "1/32\""},
                             FormatCase{"ThirtySecondAtSixteenthsTiesToZero", 0.03125, 16, " 0\""},
                             FormatCase{"CountHalfTiesToZero", 1.0 / 32, 16, " 0\""},
                             FormatCase{"CountOneAndHalfTiesToTwo", 3.0 / 32, 16, "1/8\""},
                             FormatCase{"CountTwoAndHalfTiesToTwo", 5.0 / 32, 16, "1/8\""},
                             FormatCase{"CountThreeAndHalfTiesToFour", 7.0 / 32, 16, "1/4\""},
                             FormatCase{"TieWithInches", 5 + 5.0 / 32, 16, " 5 1/8\""},
                             FormatCase{"TieWithFeet", 12 + 7.0 / 32, 16, " 1'- 0 1/4\""},
                             FormatCase{"CarryAtThirtySeconds", 11.99, 32, " 1'- 0 \""},
                             FormatCase{"NoCarryAtThirtySeconds", 11.97, 32, " 11 31/32\""},
                             FormatCase{"OtherAccuracyWritesNoFraction", 3.5, 10, " 3 \""},
                             FormatCase{"OtherAccuracyWholeInches", 12, 0, " 1'- 0\""},
                             FormatCase{"OtherAccuracyUnderOneInch", 0.5, 8, " 0\""},
                             FormatCase{"FeetInExponentForm", 1.2e16, 16, " 1E+15'- 0\""},
                             FormatCase{"FeetWithFifteenDigits", 123456789012345.0 * 12 + 3.5, 16,
                                        " 123456789012345'- 3 1/2\""}),
                         NameOf);

// Every count of the fraction at both accuracies, in lowest terms.
struct FractionCase {
    const char* name;
    std::int16_t accuracy;
    std::int16_t count;
    const char* fraction;
};

void PrintTo(const FractionCase& c, std::ostream* os) {
    *os << c.name;
}

class FractionTexts : public ::testing::TestWithParam<FractionCase> {};

TEST_P(FractionTexts, WritesLowestTerms) {
    const FractionCase& c = GetParam();
    const double value = 2.0 + static_cast<double>(c.count) / c.accuracy;
    std::string text;
    std::int16_t count = -1;
    FormatLength(value, text, c.accuracy, count);
    EXPECT_EQ(text, std::string(" 2 ") + c.fraction + "\"");
    EXPECT_EQ(count, c.count);
}

INSTANTIATE_TEST_SUITE_P(
    Table, FractionTexts,
    ::testing::Values(
        FractionCase{"Sixteenths1", 16, 1, "1/16"}, FractionCase{"Sixteenths2", 16, 2, "1/8"},
        FractionCase{"Sixteenths3", 16, 3, "3/16"}, FractionCase{"Sixteenths4", 16, 4, "1/4"},
        FractionCase{"Sixteenths5", 16, 5, "5/16"}, FractionCase{"Sixteenths6", 16, 6, "3/8"},
        FractionCase{"Sixteenths7", 16, 7, "7/16"}, FractionCase{"Sixteenths8", 16, 8, "1/2"},
        FractionCase{"Sixteenths9", 16, 9, "9/16"}, FractionCase{"Sixteenths10", 16, 10, "5/8"},
        FractionCase{"Sixteenths11", 16, 11, "11/16"}, FractionCase{"Sixteenths12", 16, 12, "3/4"},
        FractionCase{"Sixteenths13", 16, 13, "13/16"}, FractionCase{"Sixteenths14", 16, 14, "7/8"},
        FractionCase{"Sixteenths15", 16, 15, "15/16"},
        FractionCase{"ThirtySeconds1", 32, 1, "1/32"},
        FractionCase{"ThirtySeconds2", 32, 2, "1/16"},
        FractionCase{"ThirtySeconds3", 32, 3, "3/32"}, FractionCase{"ThirtySeconds4", 32, 4, "1/8"},
        FractionCase{"ThirtySeconds5", 32, 5, "5/32"},
        FractionCase{"ThirtySeconds6", 32, 6, "3/16"},
        FractionCase{"ThirtySeconds7", 32, 7, "7/32"}, FractionCase{"ThirtySeconds8", 32, 8, "1/4"},
        FractionCase{"ThirtySeconds9", 32, 9, "9/32"},
        FractionCase{"ThirtySeconds10", 32, 10, "5/16"},
        FractionCase{"ThirtySeconds11", 32, 11, "11/32"},
        FractionCase{"ThirtySeconds12", 32, 12, "3/8"},
        FractionCase{"ThirtySeconds13", 32, 13, "13/32"},
        FractionCase{"ThirtySeconds14", 32, 14, "7/16"},
        FractionCase{"ThirtySeconds15", 32, 15, "15/32"},
        FractionCase{"ThirtySeconds16", 32, 16, "1/2"},
        FractionCase{"ThirtySeconds17", 32, 17, "17/32"},
        FractionCase{"ThirtySeconds18", 32, 18, "9/16"},
        FractionCase{"ThirtySeconds19", 32, 19, "19/32"},
        FractionCase{"ThirtySeconds20", 32, 20, "5/8"},
        FractionCase{"ThirtySeconds21", 32, 21, "21/32"},
        FractionCase{"ThirtySeconds22", 32, 22, "11/16"},
        FractionCase{"ThirtySeconds23", 32, 23, "23/32"},
        FractionCase{"ThirtySeconds24", 32, 24, "3/4"},
        FractionCase{"ThirtySeconds25", 32, 25, "25/32"},
        FractionCase{"ThirtySeconds26", 32, 26, "13/16"},
        FractionCase{"ThirtySeconds27", 32, 27, "27/32"},
        FractionCase{"ThirtySeconds28", 32, 28, "7/8"},
        FractionCase{"ThirtySeconds29", 32, 29, "29/32"},
        FractionCase{"ThirtySeconds30", 32, 30, "15/16"},
        FractionCase{"ThirtySeconds31", 32, 31, "31/32"}),
    [](const ::testing::TestParamInfo<FractionCase>& info) {
        return std::string(info.param.name);
    });

// ---------------------------------------------------------------------------
// The fraction count left in the caller's field

TEST(FractionCount, HoldsTheLastCount) {
    std::string text;
    std::int16_t count = 0;
    FormatLength(3.5, text, 16, count);
    EXPECT_EQ(count, 8);
    FormatLength(3.5, text, 32, count);
    EXPECT_EQ(count, 16);
}

TEST(FractionCount, RoundsHalfToEven) {
    std::string text;
    std::int16_t count = 9;
    FormatLength(1.0 / 32, text, 16, count);
    EXPECT_EQ(count, 0);
    FormatLength(3.0 / 32, text, 16, count);
    EXPECT_EQ(count, 2);
    FormatLength(5.0 / 32, text, 16, count);
    EXPECT_EQ(count, 2);
    FormatLength(7.0 / 32, text, 16, count);
    EXPECT_EQ(count, 4);
}

TEST(FractionCount, CarryClearsIt) {
    std::string text;
    std::int16_t count = 5;
    FormatLength(11.99, text, 16, count);
    EXPECT_EQ(count, 0);
}

TEST(FractionCount, UntouchedAtOtherAccuracy) {
    std::string text;
    std::int16_t count = 5;
    FormatLength(3.5, text, 10, count);
    EXPECT_EQ(count, 5);
}

TEST(FractionCount, FailedConversionKeepsOldCount) {
    std::string text;
    std::int16_t count = 7;
    FormatLength(std::numeric_limits<double>::quiet_NaN(), text, 16, count);
    EXPECT_EQ(count, 7);
    EXPECT_EQ(text.rfind(" nan'-", 0), 0u) << text;
}

TEST(FormatLength, ValueIsNotChanged) {
    const double value = -147.0625;
    double copy = value;
    std::string text;
    std::int16_t count = 0;
    FormatLength(copy, text, 16, count);
    EXPECT_EQ(copy, value);
    EXPECT_EQ(text, "- 12'- 3 1/16\"");
}

TEST(FormatLength, NonFiniteValuesDoNotFail) {
    std::string text;
    std::int16_t count = 0;
    FormatLength(std::numeric_limits<double>::infinity(), text, 16, count);
    EXPECT_EQ(text.rfind(" inf'-", 0), 0u) << text;
    FormatLength(-std::numeric_limits<double>::infinity(), text, 16, count);
    EXPECT_EQ(text.rfind("- inf'-", 0), 0u) << text;
    FormatLength(std::numeric_limits<double>::max(), text, 32, count);
    EXPECT_EQ(text.back(), '"');
    FormatLength(std::numeric_limits<double>::denorm_min(), text, 16, count);
    EXPECT_EQ(text, " 0\"");
}

// ---------------------------------------------------------------------------
// Areas and volumes

TEST(FormatArea, FeetAndSquareInches) {
    EXPECT_EQ(Area(964.5), " 6'- 100 1/2\"");
    EXPECT_EQ(Area(144), " 1'- 0\"");
    EXPECT_EQ(Area(0), " 0\"");
    EXPECT_EQ(Area(-144), "- 1'- 0\"");
}

TEST(FormatArea, InchesRunTo143) {
    EXPECT_EQ(Area(287.9375), " 1'- 143 15/16\"");
}

TEST(FormatArea, CarryAt144) {
    EXPECT_EQ(Area(143.99), " 1'- 0 \"");
}

TEST(FormatArea, AlwaysSixteenths) {
    // A thirty-second ties to the even count 0 whatever the length accuracy.
    EXPECT_EQ(Area(0.03125), " 0\"");
    EXPECT_EQ(Area(10 + 3.0 / 32), " 10 1/8\"");
}

TEST(FormatVolume, FeetAndCubicInches) {
    EXPECT_EQ(Volume(1728), " 1'- 0\"");
    EXPECT_EQ(Volume(3455.9375), " 1'- 1727 15/16\"");
    EXPECT_EQ(Volume(-1728 * 2.0), "- 2'- 0\"");
    EXPECT_EQ(Volume(0.5), "1/2\"");
}

TEST(FormatVolume, CarryAt1728) {
    EXPECT_EQ(Volume(1727.99), " 1'- 0 \"");
}

}  // namespace
}  // namespace measure
