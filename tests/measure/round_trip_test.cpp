// Whatever the format routines write, the parse routines read back to the
// value within half a step of the fraction.

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <random>
#include <string>

#include "measure/format_text.h"
#include "measure/parse_text.h"

namespace measure {
namespace {

constexpr int kSamples = 20000;

// Magnitudes from a millionth to 1e20, evenly spread over the exponents, half
// of them negative; every fourth one lands exactly on a multiple of 1/64 so
// that the ties of the rounding are met as well.
class ValueSource {
  public:
    explicit ValueSource(std::uint64_t seed, double smallest) : engine_(seed) {
        exponent_ = std::uniform_real_distribution<double>(std::log10(smallest), 20.0);
    }

    double Next() {
        double magnitude = std::pow(10.0, exponent_(engine_));
        if (engine_() % 4 == 0 && magnitude < 1e12) magnitude = std::round(magnitude * 64) / 64;
        return engine_() % 2 == 0 ? magnitude : -magnitude;
    }

  private:
    std::mt19937_64 engine_;
    std::uniform_real_distribution<double> exponent_;
};

// Half a step of the fraction is the error of the rounding itself. Beyond
// that only two things can part the text from the value: feet of more than
// 15 digits, which NumberText rounds to 15 significant digits (a relative
// error of at most 5e-15 of the feet), and the rounding of the double sums
// of feet, inches and fraction in the parse (a few units of 2.2e-16
// relative). A relative allowance of 1e-14 covers both with room to spare,
// and is far below the step for any value under about 3e12 inches.
double Allowance(double value, double step) {
    return step / 2 + std::fabs(value) * 1e-14;
}

void CheckLengths(std::int16_t accuracy, std::uint64_t seed) {
    ValueSource source(seed, 1e-6);
    const double step = 1.0 / accuracy;
    std::int16_t count = 0;
    for (int i = 0; i < kSamples; ++i) {
        const double value = source.Next();
        std::string text;
        FormatLength(value, text, accuracy, count);
        std::string parsed = text;
        double back = 0.0;
        ParseLengthText(parsed, back);
        ASSERT_LE(std::fabs(back - value), Allowance(value, step))
            << "value " << value << " written as \"" << text << "\" read back as " << back;
    }
}

TEST(RoundTrip, LengthsAtSixteenths) {
    CheckLengths(16, 1601);
}

TEST(RoundTrip, LengthsAtThirtySeconds) {
    CheckLengths(32, 3201);
}

// Areas and volumes from one square or cubic inch up: below that the text is
// a bare fraction such as "1/2\" sq.", which these readers take for its
// numerator by design, so it cannot read back.
template <typename Format, typename Parse>
void CheckSolids(Format format, Parse parse, const char* suffix, std::uint64_t seed) {
    ValueSource source(seed, 1.0);
    const double step = 1.0 / 16;
    std::int16_t count = 0;
    for (int i = 0; i < kSamples; ++i) {
        const double value = source.Next();
        std::string text;
        format(value, text, count);
        text += suffix;  // as the callers do
        std::string parsed = text;
        double back = 0.0;
        parse(parsed, back);
        ASSERT_LE(std::fabs(back - value), Allowance(value, step))
            << "value " << value << " written as \"" << text << "\" read back as " << back;
    }
}

TEST(RoundTrip, Areas) {
    CheckSolids(FormatArea, ParseAreaText, " sq.", 144);
}

TEST(RoundTrip, Volumes) {
    CheckSolids(FormatVolume, ParseVolumeText, " cu.", 1728);
}

TEST(RoundTrip, AreaUnderOneSquareInchReadsAsNumerator) {
    std::string text;
    std::int16_t count = 0;
    FormatArea(0.75, text, count);
    text += " sq.";
    EXPECT_EQ(text, "3/4\" sq.");
    double back = 0.0;
    ParseAreaText(text, back);
    EXPECT_EQ(back, 3.0);
}

}  // namespace
}  // namespace measure
