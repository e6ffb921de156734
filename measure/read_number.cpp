#include "measure/read_number.h"

#include <charconv>
#include <cmath>
#include <string>
#include <system_error>

namespace measure {

namespace {

bool IsSkipped(char c) {
    return c == ' ' || c == '\t' || c == '\n';
}
bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

// Walks the text one character at a time, stepping over blanks, tabs and line
// feeds wherever they stand, so that the reader below never sees them.
class Cursor {
  public:
    explicit Cursor(std::string_view text) : text_(text) {}

    bool AtEnd() {
        while (index_ < text_.size() && IsSkipped(text_[index_])) ++index_;
        return index_ >= text_.size();
    }
    // Only valid when AtEnd() is false.
    char Peek() const { return text_[index_]; }
    void Next() { ++index_; }

    bool Accept(char c) {
        if (AtEnd() || Peek() != c) return false;
        Next();
        return true;
    }

  private:
    std::string_view text_;
    std::size_t index_ = 0;
};

int DigitValue(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    return 99;
}

// The digits after &H or &O. Multiplying by 16 or 8 is exact, so only the
// additions round. A number too large for a double reads as nothing.
double ReadWithBase(Cursor& cursor, int base) {
    double value = 0.0;
    bool anyDigit = false;
    while (!cursor.AtEnd()) {
        const int digit = DigitValue(cursor.Peek());
        if (digit >= base) break;
        value = value * base + digit;
        anyDigit = true;
        cursor.Next();
    }
    if (!anyDigit || !std::isfinite(value)) return 0.0;
    return value;
}

// A decimal exponent with more significant digits than this can only mean a
// result beyond the range of a double, or zero, for any text that fits in
// memory: both read as 0.
constexpr std::size_t kMaxExponentDigits = 9;

}  // namespace

double ReadNumber(std::string_view text) {
    Cursor cursor(text);
    if (cursor.AtEnd()) return 0.0;

    if (cursor.Accept('&')) {
        if (cursor.AtEnd()) return 0.0;
        const char kind = cursor.Peek();
        cursor.Next();
        if (kind == 'H' || kind == 'h') return ReadWithBase(cursor, 16);
        if (kind == 'O' || kind == 'o') return ReadWithBase(cursor, 8);
        return 0.0;
    }

    // The number is gathered without the skipped characters into the plain
    // form that std::from_chars reads: [-]digits[.digits][e[-]digits].
    std::string number;
    if (cursor.Accept('-')) {
        number += '-';
    } else {
        cursor.Accept('+');
    }

    bool anyDigit = false;
    bool point = false;
    while (!cursor.AtEnd()) {
        const char c = cursor.Peek();
        if (IsDigit(c)) {
            anyDigit = true;
        } else if (c == '.' && !point) {
            point = true;
            // from_chars wants a digit on at least one side of the point.
            if (!anyDigit) number += '0';
        } else {
            break;
        }
        number += c;
        cursor.Next();
    }
    if (!anyDigit) return 0.0;

    if (!cursor.AtEnd()) {
        const char c = cursor.Peek();
        if (c == 'E' || c == 'e' || c == 'D' || c == 'd') {
            cursor.Next();
            bool negativeExponent = false;
            if (cursor.Accept('-')) {
                negativeExponent = true;
            } else {
                cursor.Accept('+');
            }
            std::string exponent;
            bool anyExponentDigit = false;
            while (!cursor.AtEnd() && IsDigit(cursor.Peek())) {
                anyExponentDigit = true;
                // Leading zeros carry nothing and would only count as digits.
                if (!(exponent.empty() && cursor.Peek() == '0')) exponent += cursor.Peek();
                cursor.Next();
            }
            // An E with no digits behind it adds nothing: "1E" reads 1.
            if (anyExponentDigit && !exponent.empty()) {
                if (exponent.size() > kMaxExponentDigits) return 0.0;
                number += 'e';
                if (negativeExponent) number += '-';
                number += exponent;
            }
        }
    }

    double value = 0.0;
    const char* first = number.data();
    const char* last = first + number.size();
    const auto [end, error] = std::from_chars(first, last, value);
    // Too large or too small for a double: a failed read counts as nothing.
    if (error != std::errc() || end != last || !std::isfinite(value)) return 0.0;
    // "-0" is no number below zero.
    if (value == 0.0) return 0.0;
    return value;
}

}  // namespace measure
