// Texts that no key would ever produce: nothing may crash, and what comes out
// keeps its form.

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <cstring>
#include <random>
#include <string>
#include <vector>

#include "measure/combine_texts.h"
#include "measure/format_text.h"
#include "measure/number_text.h"
#include "measure/parse_text.h"
#include "measure/read_number.h"

namespace measure {
namespace {

bool Same(double a, double b) {
    if (std::isnan(a) || std::isnan(b)) return std::isnan(a) && std::isnan(b);
    return std::memcmp(&a, &b, sizeof a) == 0;
}

bool EndsWith(const std::string& text, const std::string& end) {
    return text.size() >= end.size() &&
           text.compare(text.size() - end.size(), end.size(), end) == 0;
}

std::string TrimmedOfBlanks(const std::string& text) {
    const auto first = text.find_first_not_of(' ');
    if (first == std::string::npos) return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::vector<std::string> HostileTexts() {
    std::vector<std::string> texts = {
        "",
        " ",
        "-",
        "--",
        "- -",
        "'",
        "\"",
        "'''\"\"\"",
        "/",
        "//",
        "/0",
        "1/0",
        "0/0",
        "-0/0",
        "1e400",
        "1e400'",
        "-1e400'1e400 1e400/1e-400",
        "9999999999999999999'",
        "1e308'1e308 1e308/1e-308",
        "1.7976931348623157e308\"",
        "&HFFFFFFFFFFFFFFFFFFFF'",
        "&O7777777777777777777777'",
        "5'--3",
        "1'2'3'4'5",
        "sq",
        "cu",
        "sqcu",
        " 1'- 0\" sq. cu.",
        "\t\n",
        "\xff\xfe\x80'\x81\"",
        "1\xe2\x80\x99 2\xe2\x80\x9d",
        std::string("1\0'2\0\"", 6),
        std::string(3, '\0'),
        std::string(40000, '9') + "'",
        std::string(40000, '-'),
        std::string(40000, '\''),
        std::string(40000, '"'),
        std::string(40000, '/'),
        std::string(40000, ' ') + "5'3" + std::string(40000, ' '),
        "1'" + std::string(40000, '\t') + "-3 1/2\"",
        "1/" + std::string(40000, '0'),
        "0." + std::string(50000, '0') + "1'",
        std::string(70000, '1') + " sq.",
    };
    // Random junk, from all bytes and from the characters that mean something.
    std::mt19937 engine(20240611);
    const std::string meaningful = "0123456789'\"-/ .eEdD&HhOo+sqcu\t\n";
    for (int i = 0; i < 2000; ++i) {
        const std::size_t length = engine() % 60;
        std::string text;
        for (std::size_t j = 0; j < length; ++j) {
            if (i % 2 == 0) {
                text += static_cast<char>(engine() % 256);
            } else {
                text += meaningful[engine() % meaningful.size()];
            }
        }
        texts.push_back(text);
    }
    return texts;
}

TEST(HostileText, ReadNumberIsFiniteAndRepeatable) {
    for (const std::string& text : HostileTexts()) {
        const double value = ReadNumber(text);
        EXPECT_TRUE(std::isfinite(value)) << text;
        EXPECT_TRUE(Same(value, ReadNumber(text))) << text;
    }
}

TEST(HostileText, LengthParseRewritesTextAsItsUnsignedValue) {
    for (const std::string& original : HostileTexts()) {
        std::string text = original;
        double value = 0.0;
        ParseLengthText(text, value);

        std::string again = original;
        double valueAgain = 0.0;
        ParseLengthText(again, valueAgain);
        EXPECT_TRUE(Same(value, valueAgain)) << original;

        // The text is the value before its sign, written as NumberText.
        EXPECT_TRUE(text == NumberText(value) || text == NumberText(-value))
            << "\"" << text << "\" for " << value;
        EXPECT_FALSE(text.empty());
    }
}

template <typename Parse>
void CheckSolidParse(Parse parse) {
    for (const std::string& original : HostileTexts()) {
        std::string text = original;
        double value = 0.0;
        parse(text, value);

        std::string again = original;
        double valueAgain = 0.0;
        parse(again, valueAgain);
        EXPECT_TRUE(Same(value, valueAgain));

        // Only trimmed, and the sign taken off.
        const std::string trimmed = TrimmedOfBlanks(original);
        EXPECT_TRUE(text == trimmed || "-" + text == trimmed);
    }
}

TEST(HostileText, AreaParseOnlyTrims) {
    CheckSolidParse(ParseAreaText);
}

TEST(HostileText, VolumeParseOnlyTrims) {
    CheckSolidParse(ParseVolumeText);
}

TEST(HostileText, ParsedValuesFormatToMeasurementText) {
    std::int16_t count = 0;
    for (const std::string& original : HostileTexts()) {
        std::string text = original;
        double value = 0.0;
        ParseLengthText(text, value);
        for (std::int16_t accuracy : {16, 32, 0}) {
            std::string written;
            FormatLength(value, written, accuracy, count);
            EXPECT_TRUE(EndsWith(written, "\"")) << written;
            EXPECT_EQ(written.front() == '-', value < 0) << written;
        }
        std::string area;
        FormatArea(value, area, count);
        EXPECT_TRUE(EndsWith(area, "\""));
        std::string volume;
        FormatVolume(value, volume, count);
        EXPECT_TRUE(EndsWith(volume, "\""));
    }
}

TEST(HostileText, CombineEndsInErrorOrAMeasurement) {
    const std::vector<std::string> texts = HostileTexts();
    std::int16_t pending = 0;
    double resultValue = 0.0;
    std::int16_t count = 0;
    int signals = 0;
    CombineState state{pending, resultValue, count, 16, [&] { ++signals; }};

    for (std::size_t i = 0; i + 1 < texts.size(); ++i) {
        for (std::int16_t operation : {1, 2}) {
            std::string first = texts[i];
            std::string second = texts[texts.size() - 1 - i];
            std::string result;
            pending = operation;
            const int signalsBefore = signals;
            CombineTexts(first, second, result, state);

            EXPECT_EQ(pending, 0);
            if (result == "ERROR") {
                EXPECT_EQ(signals, signalsBefore + 1);
                EXPECT_EQ(first, texts[i]);
            } else {
                EXPECT_EQ(signals, signalsBefore);
                EXPECT_TRUE(EndsWith(result, "\"") || EndsWith(result, "\" sq.") ||
                            EndsWith(result, "\" cu."))
                    << result;
                EXPECT_EQ(first, result);
                EXPECT_EQ(second, "");
            }
        }
    }
}

}  // namespace
}  // namespace measure
