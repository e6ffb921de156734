// The converter's four-decimal text: ties go to the even last digit, and a
// value past the fixed-point range leaves the number before.
#include <gtest/gtest.h>

#include <limits>

#include "converter/converter_drop.h"

namespace {

std::string Text(double v) {
    double fixed = 0;
    return converter::FourDecimalText(v, fixed);
}

TEST(FourDecimalText, RoundsToFourPlacesTiesToEven) {
    EXPECT_EQ(Text(1.0 / 12), " .0833");
    EXPECT_EQ(Text(63), " 63");
    EXPECT_EQ(Text(5.25), " 5.25");
    EXPECT_EQ(Text(0.00005), " 0");       // a tie, down to the even 0
    EXPECT_EQ(Text(1.09375), " 1.0938");  // a tie, up to the even 8
    EXPECT_EQ(Text(-30.5), "-30.5");
    EXPECT_EQ(Text(1.03125), " 1.0312");  // a tie, down to the even 2
}

TEST(FourDecimalText, PastTheRangeKeepsThePreviousNumber) {
    double fixed = 0;
    EXPECT_EQ(converter::FourDecimalText(1.75, fixed), " 1.75");
    EXPECT_EQ(converter::FourDecimalText(1e20, fixed), " 1.75");
    EXPECT_EQ(converter::FourDecimalText(std::numeric_limits<double>::infinity(), fixed), " 1.75");
    EXPECT_EQ(converter::FourDecimalText(std::numeric_limits<double>::quiet_NaN(), fixed), " 1.75");
    EXPECT_EQ(converter::FourDecimalText(9e14, fixed), " 900000000000000");
}

}  // namespace
