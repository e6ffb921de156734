#include "measure/read_number.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>

namespace measure {
namespace {

struct ReadCase {
    const char* name;
    std::string text;
    double expected;
};

void PrintTo(const ReadCase& c, std::ostream* os) {
    *os << c.name;
}

class ReadNumberCases : public ::testing::TestWithParam<ReadCase> {};

TEST_P(ReadNumberCases, Reads) {
    const ReadCase& c = GetParam();
    const double value = ReadNumber(c.text);
    EXPECT_DOUBLE_EQ(value, c.expected) << "text: \"" << c.text << "\"";
    EXPECT_FALSE(std::signbit(value) && value == 0.0) << "no negative zero";
}

INSTANTIATE_TEST_SUITE_P(
    Val, ReadNumberCases,
    ::testing::Values(
        ReadCase{"Empty", "", 0}, ReadCase{"OnlyBlanks", "   \t\n", 0},
        ReadCase{"Digits", "123", 123}, ReadCase{"Decimal", "12.5", 12.5},
        ReadCase{"LeadingPoint", ".5", 0.5}, ReadCase{"TrailingPoint", "5.", 5},
        ReadCase{"OnlyPoint", ".", 0}, ReadCase{"Negative", "-12.5", -12.5},
        ReadCase{"NegativeLeadingPoint", "-.25", -0.25}, ReadCase{"Plus", "+7", 7},
        ReadCase{"LeadingBlanks", "   42", 42}, ReadCase{"BlanksBetweenDigits", "1 2", 12},
        ReadCase{"TabsAndLineFeedsBetweenDigits", "\t1\n2 3", 123},
        ReadCase{"BlankBetweenSignAndDigits", "- 5", -5},
        ReadCase{"BlanksAroundPoint", "1 . 5", 1.5}, ReadCase{"CarriageReturnStops", "1\r2", 1},
        ReadCase{"SecondPointStops", "1.2.3", 1.2}, ReadCase{"ExponentUpper", "1.5E3", 1500},
        ReadCase{"ExponentLower", "2e-2", 0.02}, ReadCase{"ExponentPlus", "2e+2", 200},
        ReadCase{"ExponentDUpper", "3D2", 300}, ReadCase{"ExponentDLower", "3d+2", 300},
        ReadCase{"ExponentWithoutDigits", "7E", 7}, ReadCase{"ExponentSignWithoutDigits", "7E-", 7},
        ReadCase{"BlanksInExponent", "1 E 2", 100},
        ReadCase{"ExponentLeadingZeros", "1e0000000000002", 100},
        ReadCase{"SecondExponentStops", "1e2e3", 100},
        ReadCase{"PointInExponentStops", "1e2.5", 100},
        ReadCase{"ExponentWithoutMantissa", "e5", 0}, ReadCase{"HexUpper", "&HFF", 255},
        ReadCase{"HexLower", "&hff", 255}, ReadCase{"HexMixedDigits", "&H1aB", 427},
        ReadCase{"HexLarge", "&HFFFF", 65535}, ReadCase{"HexWithoutDigits", "&H", 0},
        ReadCase{"HexStopsAtNonDigit", "&H1G", 1}, ReadCase{"HexWithBlanks", " & H 1 0", 16},
        ReadCase{"OctalUpper", "&O17", 15}, ReadCase{"OctalLower", "&o777", 511},
        ReadCase{"OctalStopsAtEight", "&O78", 7}, ReadCase{"OctalWithoutDigits", "&O8", 0},
        ReadCase{"AmpersandUnknown", "&X1", 0}, ReadCase{"AmpersandAlone", "&", 0},
        ReadCase{"SignBeforeHexStops", "-&H10", 0}, ReadCase{"Letters", "abc", 0},
        ReadCase{"DigitsThenLetters", "12abc", 12}, ReadCase{"StopsAtFootMark", "1'2", 1},
        ReadCase{"StopsAtSlash", "3/4", 3}, ReadCase{"DoubleSign", "--5", 0},
        ReadCase{"MixedSigns", "+-5", 0}, ReadCase{"SignAlone", "-", 0},
        ReadCase{"MinusZero", "-0", 0},
        ReadCase{"LargestFinite", "1.7976931348623157e308", 1.7976931348623157e308},
        ReadCase{"Large", "1e308", 1e308}, ReadCase{"TooLarge", "1e400", 0},
        ReadCase{"TooLargeNegative", "-1e400", 0}, ReadCase{"TooSmall", "1e-400", 0},
        ReadCase{"HugeExponent", "1e99999999999", 0},
        ReadCase{"HugeExponentOfZero", "0e99999999999", 0},
        ReadCase{"EmbeddedNulStops",
                 std::string("1\0"
                             "2",
                             3),
                 1},
        ReadCase{"HighByteStops",
                 "7\xff"
                 "8",
                 7},
        ReadCase{"ManyDigitsTooLarge", std::string(400, '9'), 0},
        ReadCase{"HexTooLarge", "&H" + std::string(300, 'F'), 0},
        ReadCase{"LongRunOfBlanks", std::string(100000, ' ') + "5", 5},
        ReadCase{"LongRunOfDigitsTooLarge", "1" + std::string(100000, '0'), 0},
        ReadCase{"LongFractionTooSmall", "0." + std::string(100000, '0') + "1", 0},
        ReadCase{"LongMantissaBalancedByExponent", "0." + std::string(99999, '0') + "1e100001",
                 10}),
    [](const ::testing::TestParamInfo<ReadCase>& info) { return std::string(info.param.name); });

}  // namespace
}  // namespace measure
