// The ways the program writes a plain number as text.
#pragma once

#include <string>

namespace measure {

// Up to 15 significant digits, no trailing zeros, one leading blank when the
// number is not negative, no zero before the point (" .5"); very large and
// very small numbers in exponent form (" 1E+15").
//
// The exponent form is used when the number, rounded to 15 significant
// digits, has a decimal exponent of 15 or more or below -4: " 1E+15",
// " 1.23456789012346E+15", " 1.5E-05", "-2E-100", while 999999999999999 and
// .0001 are still written out. The mantissa loses its trailing zeros and the
// exponent has a sign and at least two digits. Zero (also -0) is " 0";
// infinities and not-a-number are " inf", "-inf" and " nan".
std::string NumberText(double x);

// The same digits without the leading blank and with a zero before the point
// ("0.5", "-0.5", "1E+15", "inf", "nan").
std::string PlainNumberText(double x);

// A single-precision value as it is printed into a file: the value taken to
// single precision, then the first form at 7 significant digits (exponent
// form from 1E+07 on), followed by one blank. 1635 gives " 1635 ", -15 gives
// "-15 ", 12345678 gives " 1.234568E+07 ".
std::string PrintedSingleText(double x);

}  // namespace measure
