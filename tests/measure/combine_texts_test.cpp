#include "measure/combine_texts.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>

namespace measure {
namespace {

constexpr std::int16_t kAdd = 1;
constexpr std::int16_t kSubtract = 2;

class CombineTextsTest : public ::testing::Test {
  protected:
    std::int16_t pendingOperation = 0;
    double resultValue = 0.0;
    std::int16_t fractionCount = 0;
    int signals = 0;
    CombineState state{pendingOperation, resultValue, fractionCount, 16, [this] { ++signals; }};

    std::string first;
    std::string second;
    std::string result;

    void Combine(std::int16_t operation, std::string firstText, std::string secondText) {
        pendingOperation = operation;
        first = std::move(firstText);
        second = std::move(secondText);
        CombineTexts(first, second, result, state);
    }

    void ExpectResult(const std::string& text, double value) {
        EXPECT_EQ(result, text);
        EXPECT_EQ(first, text);
        EXPECT_EQ(second, "");
        EXPECT_DOUBLE_EQ(resultValue, value);
        EXPECT_EQ(pendingOperation, 0);
        EXPECT_EQ(signals, 0);
    }

    void ExpectRefused(const std::string& firstText, const std::string& secondText) {
        EXPECT_EQ(result, "ERROR");
        EXPECT_EQ(first, firstText);
        EXPECT_EQ(second, secondText);
        EXPECT_EQ(pendingOperation, 0);
        EXPECT_EQ(signals, 1);
    }
};

// ---------------------------------------------------------------------------
// The cases of a drop between cells of different kinds

TEST_F(CombineTextsTest, EmptyLengthTakesOnArea) {
    Combine(kAdd, " 0\"", " 1'- 100\" sq.");
    ExpectResult(" 1'- 100\" sq.", 244);
}

TEST_F(CombineTextsTest, NonzeroLengthRefusesArea) {
    resultValue = 7.0;
    Combine(kAdd, " 5\"", " 1'- 100\" sq.");
    ExpectRefused(" 5\"", " 1'- 100\" sq.");
    EXPECT_EQ(resultValue, 7.0);
}

TEST_F(CombineTextsTest, AreaRefusesEmptyLengthOnlyFirstMayBeEmpty) {
    Combine(kAdd, " 1'- 100\" sq.", " 0\"");
    ExpectRefused(" 1'- 100\" sq.", " 0\"");
}

TEST_F(CombineTextsTest, EmptyAreaTakesOnVolume) {
    Combine(kAdd, " 0\" sq.", " 0\" cu.");
    ExpectResult(" 0\" cu.", 0);
}

TEST_F(CombineTextsTest, SubtractFromEmptyCellOfOtherKind) {
    Combine(kSubtract, " 0\"", " 1'- 0\" sq.");
    ExpectResult("- 1'- 0\" sq.", -144);
}

TEST_F(CombineTextsTest, AreaFractionOnlyReadsAsItsNumerator) {
    Combine(kAdd, "1/2\" sq.", " 0\" sq.");
    ExpectResult(" 1\" sq.", 1);
}

TEST_F(CombineTextsTest, AreaFractionOnlyAddedToEmptyArea) {
    Combine(kAdd, " 0\" sq.", "1/2\" sq.");
    ExpectResult(" 1\" sq.", 1);
}

TEST_F(CombineTextsTest, AreaLeadingZeroCountsAsEmpty) {
    // Judged by its leading number, " 0'- 5\" sq." is an empty operand.
    Combine(kAdd, " 0'- 5\" sq.", " 1\" sq.");
    ExpectResult(" 1\" sq.", 1);
}

TEST_F(CombineTextsTest, FirstReadingZeroTakesSecondsKind) {
    // Kinds differ, the first reads 0, the second is a length: code 1, and the
    // first is then read as a length after all.
    Combine(kAdd, " 0'- 5\" sq.", " 3\"");
    ExpectResult(" 8\"", 8);
}

TEST_F(CombineTextsTest, AreaFirstThenVolumeIsRefused) {
    Combine(kAdd, " 2'- 0\" sq.", " 1'- 0\" cu.");
    ExpectRefused(" 2'- 0\" sq.", " 1'- 0\" cu.");
}

TEST_F(CombineTextsTest, RefusalWithoutErrorSignalHandler) {
    state.SignalError = nullptr;
    Combine(kAdd, " 5\"", " 1\" cu.");
    EXPECT_EQ(result, "ERROR");
    EXPECT_EQ(pendingOperation, 0);
}

// ---------------------------------------------------------------------------
// Same kinds

TEST_F(CombineTextsTest, AddLengths) {
    Combine(kAdd, " 1'- 3\"", " 4 1/2\"");
    ExpectResult(" 1'- 7 1/2\"", 19.5);
    EXPECT_EQ(fractionCount, 8);
}

TEST_F(CombineTextsTest, SubtractLengths) {
    Combine(kSubtract, " 1'- 3\"", " 4 1/2\"");
    ExpectResult(" 10 1/2\"", 10.5);
}

TEST_F(CombineTextsTest, NegativeLengthResultHasSign) {
    Combine(kSubtract, " 3\"", " 1'- 0\"");
    ExpectResult("- 9\"", -9);
}

TEST_F(CombineTextsTest, NegativeOperand) {
    Combine(kAdd, "- 1'- 0\"", " 3\"");
    ExpectResult("- 9\"", -9);
}

TEST_F(CombineTextsTest, LengthsAtThirtySeconds) {
    state.AccuracyDenominator = 32;
    Combine(kAdd, "1/32\"", "1/32\"");
    ExpectResult("1/16\"", 0.0625);
}

TEST_F(CombineTextsTest, BareNumbersAddAsInches) {
    Combine(kAdd, "12.5", "1");
    ExpectResult(" 1'- 1 1/2\"", 13.5);
}

TEST_F(CombineTextsTest, AddAreas) {
    Combine(kAdd, " 6'- 100 1/2\" sq.", " 1'- 43 1/2\" sq.");
    ExpectResult(" 8'- 0\" sq.", 1152);
}

TEST_F(CombineTextsTest, SubtractAreas) {
    Combine(kSubtract, " 6'- 100 1/2\" sq.", " 100\" sq.");
    ExpectResult(" 6'- 0 1/2\" sq.", 864.5);
}

TEST_F(CombineTextsTest, AddVolumes) {
    Combine(kAdd, " 1'- 1000\" cu.", " 728\" cu.");
    ExpectResult(" 2'- 0\" cu.", 3456);
}

TEST_F(CombineTextsTest, SubtractVolumesBelowZero) {
    Combine(kSubtract, " 1'- 0\" cu.", " 2'- 0\" cu.");
    ExpectResult("- 1'- 0\" cu.", -1728);
}

TEST_F(CombineTextsTest, FirstMayBeTheResultTextItself) {
    pendingOperation = kAdd;
    result = " 5\"";
    second = " 7\"";
    CombineTexts(result, second, result, state);
    EXPECT_EQ(result, " 1'- 0\"");
    EXPECT_EQ(second, "");
    EXPECT_EQ(resultValue, 12.0);
}

TEST_F(CombineTextsTest, OverflowKeepsResultValue) {
    resultValue = 5.0;
    Combine(kAdd, "1.4e307'", "1.4e307'");
    ExpectResult(" 5\"", 5);
}

// ---------------------------------------------------------------------------
// Codes other than add and subtract

TEST_F(CombineTextsTest, MultiplyComputesNothing) {
    resultValue = 3.0;
    result = " as it came";
    Combine(3, " 5\"", " 7\"");
    ExpectResult(" as it came", 3);
}

TEST_F(CombineTextsTest, DivideComputesNothing) {
    result = " as it came";
    Combine(4, " 5\" sq.", " 7\" sq.");
    ExpectResult(" as it came", 0);
}

TEST_F(CombineTextsTest, NoneComputesNothing) {
    result = "x";
    Combine(0, " 5\"", " 7\"");
    ExpectResult("x", 0);
}

TEST_F(CombineTextsTest, DifferentKindsAreRefusedWhateverTheCode) {
    Combine(3, " 5\"", " 7\" sq.");
    ExpectRefused(" 5\"", " 7\" sq.");
}

}  // namespace
}  // namespace measure
