#include "refhost/framework/NumberParsing.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>
#include <system_error>

#include "refhost/framework/Blanks.h"

#include "refhost/data/CharacterSet.h"

namespace refhost {

namespace {

constexpr CharacterSet kDecimalDigits("0123456789");

/// Without the blanks around it and without a leading "+".
std::string_view NumberPart(std::string_view text)
{
    while (!text.empty() && IsBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && IsBlank(text.back()))
        text.remove_suffix(1);
    if (text.size() > 1 && text[0] == '+' && text[1] != '-') text.remove_prefix(1);
    return text;
}

/// Tells apart the two ways in which a well-formed number leaves the range of a double: whether its
/// first digit that is not zero stands far behind the point.
bool IsTooSmall(std::string_view number)
{
    const std::size_t mark = std::min(number.find_first_of("eE"), number.size());
    const std::string_view mantissa = number.substr(0, mark);
    const auto point = static_cast<std::int64_t>(std::min(mantissa.find('.'), mantissa.size()));
    const auto first = static_cast<std::int64_t>(mantissa.find_first_of("123456789"));
    if (mark == number.size()) return first > point;

    std::string_view exponentText = number.substr(mark + 1);
    if (exponentText.starts_with('+')) exponentText.remove_prefix(1);
    std::int64_t exponent = 0;
    const auto read =
        std::from_chars(exponentText.data(), exponentText.data() + exponentText.size(), exponent);
    if (read.ec == std::errc::result_out_of_range) return exponentText.starts_with('-');
    return exponent < first - point;
}

int ClampedToInt(double value)
{
    constexpr double kLeast = std::numeric_limits<int>::min();
    constexpr double kMost = std::numeric_limits<int>::max();
    return static_cast<int>(std::clamp(value, kLeast, kMost));
}

/// Of digits with at most one point among them, which nearly all numbers of a document are. A whole
/// number of 15 digits and the powers of ten that may divide it are exact as doubles, so the one
/// division rounds as the text itself would be; nothing for any other text.
std::optional<double> ShortDecimal(std::string_view number)
{
    constexpr std::size_t kExactDigits = 15;
    constexpr double kPowers[kExactDigits + 1] = {1e0, 1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                                  1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};
    const bool negative = number.starts_with('-');
    if (negative) number.remove_prefix(1);
    if (number.size() > kExactDigits + 1) return {};

    std::int64_t whole = 0;
    std::size_t digits = 0;
    std::size_t beforePoint = number.size();
    for (const char character : number) {
        const auto digit = static_cast<unsigned char>(character - '0');
        if (digit <= 9) {
            whole = whole * 10 + digit;
            ++digits;
        } else if (character == '.' && beforePoint == number.size()) {
            beforePoint = digits;
        } else {
            return {};
        }
    }
    if (digits == 0 || digits > kExactDigits) return {};
    const std::size_t decimals = beforePoint < digits ? digits - beforePoint : 0;
    const double value = static_cast<double>(whole) / kPowers[decimals];
    return negative ? -value : value;
}

/// Of a text that `NumberPart` gave.
std::optional<double> DoubleOf(std::string_view number)
{
    if (const auto decimal = ShortDecimal(number)) return decimal;
    const char* end = number.data() + number.size();
    double value = 0.0;
    const auto read = std::from_chars(number.data(), end, value);
    if (read.ptr != end || read.ec == std::errc::invalid_argument) return {};
    if (read.ec == std::errc::result_out_of_range) {
        if (IsTooSmall(number)) return 0.0;
        return {};
    }
    if (!std::isfinite(value)) return {};
    return value;
}

}  // namespace

std::optional<double> ParseDouble(std::string_view text) { return DoubleOf(NumberPart(text)); }

std::optional<int> ParseInteger(std::string_view text)
{
    const std::string_view number = NumberPart(text);
    const bool negative = number.starts_with('-');
    const std::string_view digits = number.substr(negative ? 1 : 0);
    if (digits.empty() || !kDecimalDigits.HasAll(digits)) {
        const std::optional<double> value = DoubleOf(number);
        if (!value) return {};
        return ClampedToInt(*value);
    }
    int value = 0;
    const auto read = std::from_chars(number.data(), number.data() + number.size(), value);
    if (read.ec == std::errc()) return value;
    return negative ? std::numeric_limits<int>::min() : std::numeric_limits<int>::max();
}

}  // namespace refhost
