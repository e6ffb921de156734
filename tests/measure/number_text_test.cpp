#include "measure/number_text.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

namespace measure {
namespace {

struct NumberCase {
    const char* name;
    double value;
    const char* text;   // NumberText
    const char* plain;  // PlainNumberText
};

void PrintTo(const NumberCase& c, std::ostream* os) {
    *os << c.name;
}

class NumberTextCases : public ::testing::TestWithParam<NumberCase> {};

TEST_P(NumberTextCases, Writes) {
    const NumberCase& c = GetParam();
    EXPECT_EQ(NumberText(c.value), c.text);
    EXPECT_EQ(PlainNumberText(c.value), c.plain);
}

constexpr double kInf = std::numeric_limits<double>::infinity();

INSTANTIATE_TEST_SUITE_P(
    Str, NumberTextCases,
    ::testing::Values(
        NumberCase{"Zero", 0.0, " 0", "0"}, NumberCase{"NegativeZero", -0.0, " 0", "0"},
        NumberCase{"One", 1.0, " 1", "1"}, NumberCase{"MinusOne", -1.0, "-1", "-1"},
        NumberCase{"Half", 0.5, " .5", "0.5"}, NumberCase{"MinusHalf", -0.5, "-.5", "-0.5"},
        NumberCase{"Decimal", 12.5, " 12.5", "12.5"}, NumberCase{"Whole", 147.0, " 147", "147"},
        NumberCase{"Hundred", 100.0, " 100", "100"},
        NumberCase{"InchesOfFeet", 63.5, " 63.5", "63.5"},
        NumberCase{"SumWithBinaryNoise", 0.1 + 0.2, " .3", "0.3"},
        NumberCase{"Third", 1.0 / 3.0, " .333333333333333", "0.333333333333333"},
        NumberCase{"TwoThirdsRounded", 2.0 / 3.0, " .666666666666667", "0.666666666666667"},
        NumberCase{"FifteenDigitsRounded", 12.34567890123456, " 12.3456789012346",
                   "12.3456789012346"},
        NumberCase{"FifteenDigitWhole", 123456789012345.0, " 123456789012345", "123456789012345"},
        NumberCase{"LargestWrittenOut", 999999999999999.0, " 999999999999999", "999999999999999"},
        NumberCase{"TenToTheFourteen", 1e14, " 100000000000000", "100000000000000"},
        NumberCase{"TenToTheFifteen", 1e15, " 1E+15", "1E+15"},
        NumberCase{"SixteenDigits", 1234567890123456.0, " 1.23456789012346E+15",
                   "1.23456789012346E+15"},
        NumberCase{"RoundsUpIntoExponentForm", 999999999999999.9, " 1E+15", "1E+15"},
        NumberCase{"NegativeLarge", -2.5e20, "-2.5E+20", "-2.5E+20"},
        NumberCase{"TenThousandth", 0.0001, " .0001", "0.0001"},
        NumberCase{"SmallWrittenOut", 0.00015, " .00015", "0.00015"},
        NumberCase{"HundredThousandth", 0.00001, " 1E-05", "1E-05"},
        NumberCase{"SmallExponent", 1.5e-5, " 1.5E-05", "1.5E-05"},
        NumberCase{"NegativeSmall", -2.5e-7, "-2.5E-07", "-2.5E-07"},
        NumberCase{"ThreeDigitExponent", 1e100, " 1E+100", "1E+100"},
        NumberCase{"ThreeDigitNegativeExponent", 1e-100, " 1E-100", "1E-100"},
        NumberCase{"LargestDouble", 1.7976931348623157e308, " 1.79769313486232E+308",
                   "1.79769313486232E+308"},
        NumberCase{"SmallestDouble", 5e-324, " 4.94065645841247E-324", "4.94065645841247E-324"},
        NumberCase{"Infinity", kInf, " inf", "inf"},
        NumberCase{"MinusInfinity", -kInf, "-inf", "-inf"},
        NumberCase{"NotANumber", std::numeric_limits<double>::quiet_NaN(), " nan", "nan"}),
    [](const ::testing::TestParamInfo<NumberCase>& info) { return std::string(info.param.name); });

}  // namespace
}  // namespace measure
