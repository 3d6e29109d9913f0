#pragma once

#include <string>

namespace refhost {

/// A number by its shortest decimal digits: 0.d1d2d3... times ten to `fPointPlace`. Zero has no
/// digits. Of a number that is not finite there is nothing but the sign.
struct DecimalDigits {
    bool fNegative = false;
    std::string fDigits;  ///< neither the first nor the last is a zero
    int fPointPlace = 0;  ///< so many digits stand before the point; negative: zeros behind it
};

DecimalDigits ShortestDigits(double value);

/// The shortest text that reads back as the value, rounded to `digits` digits behind the point
/// (half away from zero, on that text) and without trailing zeros. It has an exponent, of a sign
/// and at least two digits, only below 1e-16 and from 1e17 on; the digits are then those of the
/// mantissa. What is not finite is "inf", "-inf" or "nan".
std::string ShortText(double value, int digits);

/// From here on fixed notation shows digits that aren't there.
inline constexpr double kLongestFixed = 1e15;

/// Fixed notation as C's `printf` rounds it; a zero has no sign.
std::string FixedText(double value, int decimals);

/// The same, but a value above zero that would show as zero is told by what it is below: "<0.001".
std::string FixedTextOrBound(double value, int decimals);

/// Scientific notation as C's `printf` rounds it, with as many digits as `width` characters hold;
/// empty where they hold not even one.
std::string ScientificText(double value, int width);

}  // namespace refhost
