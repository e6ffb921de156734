#include "measure/whole_numbers.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace measure {
namespace {

TEST(ToInt16, TiesGoToTheEvenNumber) {
    EXPECT_EQ(ToInt16(0.5), 0);
    EXPECT_EQ(ToInt16(1.5), 2);
    EXPECT_EQ(ToInt16(2.5), 2);
    EXPECT_EQ(ToInt16(3.5), 4);
    EXPECT_EQ(ToInt16(-0.5), 0);
    EXPECT_EQ(ToInt16(-1.5), -2);
    EXPECT_EQ(ToInt16(-2.5), -2);
}

TEST(ToInt16, NonTiesGoToTheNearest) {
    EXPECT_EQ(ToInt16(2.4999), 2);
    EXPECT_EQ(ToInt16(2.5001), 3);
    EXPECT_EQ(ToInt16(-2.6), -3);
    EXPECT_EQ(ToInt16(15.84), 16);
}

TEST(ToInt16, LimitsFitAndBeyondFails) {
    EXPECT_EQ(ToInt16(32767.0), 32767);
    EXPECT_EQ(ToInt16(32767.4), 32767);
    EXPECT_EQ(ToInt16(-32768.0), -32768);
    EXPECT_EQ(ToInt16(-32768.5), -32768);        // tie to the even -32768
    EXPECT_FALSE(ToInt16(32767.5).has_value());  // tie to the even 32768
    EXPECT_FALSE(ToInt16(32768.0).has_value());
    EXPECT_FALSE(ToInt16(-32769.0).has_value());
    EXPECT_FALSE(ToInt16(1e300).has_value());
}

TEST(ToInt16, NotANumberAndInfinityFail) {
    EXPECT_FALSE(ToInt16(std::numeric_limits<double>::quiet_NaN()).has_value());
    EXPECT_FALSE(ToInt16(std::numeric_limits<double>::infinity()).has_value());
    EXPECT_FALSE(ToInt16(-std::numeric_limits<double>::infinity()).has_value());
}

TEST(ToInt32, TiesAndLimits) {
    EXPECT_EQ(ToInt32(2.5), 2);
    EXPECT_EQ(ToInt32(3.5), 4);
    EXPECT_EQ(ToInt32(2147483646.5), 2147483646);
    EXPECT_EQ(ToInt32(-2147483648.5), std::numeric_limits<std::int32_t>::min());
    EXPECT_FALSE(ToInt32(2147483647.5).has_value());
    EXPECT_FALSE(ToInt32(-2147483649.0).has_value());
    EXPECT_FALSE(ToInt32(std::numeric_limits<double>::quiet_NaN()).has_value());
}

TEST(FixedPoint4, KeepsFourDecimals) {
    EXPECT_EQ(ToFixedPoint4(1.0), 10000);
    EXPECT_EQ(ToFixedPoint4(1.23456), 12346);
    EXPECT_EQ(ToFixedPoint4(-1.23454), -12345);
    EXPECT_EQ(ToFixedPoint4(0.00004), 0);
    EXPECT_DOUBLE_EQ(FromFixedPoint4(12345), 1.2345);
    EXPECT_DOUBLE_EQ(FromFixedPoint4(-5), -0.0005);
}

TEST(FixedPoint4, TiesGoToTheEvenNumber) {
    // These scale to exact halves: 0.5, 2.5, 3.5, 4.5 and 20001.5.
    EXPECT_EQ(ToFixedPoint4(0.00005), 0);
    EXPECT_EQ(ToFixedPoint4(0.00025), 2);
    EXPECT_EQ(ToFixedPoint4(0.00035), 4);
    EXPECT_EQ(ToFixedPoint4(0.00045), 4);
    EXPECT_EQ(ToFixedPoint4(2.00015), 20002);
    EXPECT_EQ(ToFixedPoint4(-0.00025), -2);
}

TEST(FixedPoint4, TooLargeFails) {
    EXPECT_TRUE(ToFixedPoint4(9.2e14).has_value());
    EXPECT_TRUE(ToFixedPoint4(-9.2e14).has_value());
    EXPECT_FALSE(ToFixedPoint4(9.3e14).has_value());
    EXPECT_FALSE(ToFixedPoint4(-9.3e14).has_value());
    EXPECT_FALSE(ToFixedPoint4(1e300).has_value());
    EXPECT_FALSE(ToFixedPoint4(std::numeric_limits<double>::quiet_NaN()).has_value());
    EXPECT_FALSE(ToFixedPoint4(std::numeric_limits<double>::infinity()).has_value());
}

TEST(AddInt16, OverflowFailsInsteadOfWrapping) {
    EXPECT_EQ(AddInt16(32766, 1), 32767);
    EXPECT_FALSE(AddInt16(32767, 1).has_value());
    EXPECT_EQ(AddInt16(-32767, -1), -32768);
    EXPECT_FALSE(AddInt16(-32768, -1).has_value());
    EXPECT_EQ(AddInt16(11, 1), 12);
}

}  // namespace
}  // namespace measure
