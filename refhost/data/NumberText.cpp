#include "refhost/data/NumberText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "refhost/data/CharacterSet.h"
#include "refhost/data/ShortestNumber.h"

namespace refhost {

namespace {

// From here to there a number is written without an exponent, as powers of ten.
constexpr int kFirstPlainPlace = -15;  // 1e-16 is 0.1 times ten to -15
constexpr int kLastPlainPlace = 17;

constexpr int kMostIntegerDigits = 309;  // of the largest double

void StripTrailingZeros(std::string& digits) { digits.erase(digits.find_last_not_of('0') + 1); }

/// Keeps the first `kept` digits, rounded half away from zero.
void RoundDigits(DecimalDigits& number, long kept)
{
    if (kept >= static_cast<long>(number.fDigits.size())) return;
    if (kept < 0) {
        number.fDigits.clear();
        return;
    }
    const auto count = static_cast<std::size_t>(kept);
    const bool up = number.fDigits[count] >= '5';
    number.fDigits.resize(count);
    if (!up) return StripTrailingZeros(number.fDigits);

    while (!number.fDigits.empty() && number.fDigits.back() == '9')
        number.fDigits.pop_back();
    if (number.fDigits.empty()) {
        number.fDigits = "1";
        ++number.fPointPlace;
    } else {
        ++number.fDigits.back();
    }
}

/// The digits with a point behind the first `pointPlace` of them.
std::string WithPoint(const std::string& digits, int pointPlace)
{
    if (pointPlace <= 0)
        return "0." + std::string(static_cast<std::size_t>(-pointPlace), '0') + digits;
    const auto place = static_cast<std::size_t>(pointPlace);
    if (place >= digits.size()) return digits + std::string(place - digits.size(), '0');
    return digits.substr(0, place) + '.' + digits.substr(place);
}

/// A number of few digits, rounded without printing all the digits that it has in binary: empty
/// where the number is larger, or so near a half of the last place that those would decide.
std::string FewDigits(double value, int decimals)
{
    constexpr std::uint32_t kPowers[] = {1,       10,        100,        1000,       10'000,
                                         100'000, 1'000'000, 10'000'000, 100'000'000};
    constexpr double kMostUnits = 1e9;
    constexpr double kSafely = 1e-6;  // more than the product is off
    if (decimals < 0 || decimals >= static_cast<int>(std::size(kPowers))) return {};
    const std::uint32_t power = kPowers[decimals];
    const double scaled = std::fabs(value) * power;
    if (!(scaled < kMostUnits)) return {};
    const auto below = static_cast<std::uint32_t>(scaled);
    const double part = scaled - below;
    if (std::fabs(part - 0.5) < kSafely) return {};
    const std::uint32_t units = below + (part > 0.5 ? 1 : 0);
    char room[kLongestNumber];
    char* end = room;
    if (value < 0.0 && units > 0) *end++ = '-';
    end = std::to_chars(end, room + kLongestNumber, units / power).ptr;
    if (decimals > 0) *end++ = '.';
    std::uint32_t rest = units % power;
    for (std::uint32_t place = power / 10; place > 0; place /= 10) {
        *end++ = static_cast<char>('0' + rest / place);
        rest %= place;
    }
    return {room, end};
}

std::string ExponentText(int exponent)
{
    const std::string number = std::to_string(std::abs(exponent));
    return (exponent < 0 ? "e-" : "e+") + std::string(number.size() < 2 ? 1 : 0, '0') + number;
}

}  // namespace

DecimalDigits ShortestDigits(double value)
{
    DecimalDigits number;
    number.fNegative = std::signbit(value);
    if (!std::isfinite(value) || value == 0.0) return number;

    std::array<char, 32> buffer;
    const auto written = std::to_chars(buffer.data(), buffer.data() + buffer.size(),
                                       std::abs(value), std::chars_format::scientific);
    const char* exponentMark = std::find(buffer.data(), written.ptr, 'e');
    int exponent = 0;
    const char* exponentDigits = exponentMark + 1 + (exponentMark[1] == '+' ? 1 : 0);
    std::from_chars(exponentDigits, written.ptr, exponent);

    number.fDigits.push_back(buffer[0]);
    if (buffer[1] == '.') number.fDigits += std::string_view(buffer.data() + 2, exponentMark);
    StripTrailingZeros(number.fDigits);
    number.fPointPlace = exponent + 1;
    return number;
}

std::string ShortText(double value, int digits)
{
    char room[kLongestNumber];
    if (digits >= kShortDecimals) {
        if (char* end = WriteShortDecimal(room, value)) return {room, end};
    }
    if (std::isnan(value)) return "nan";
    if (std::isinf(value)) return value < 0 ? "-inf" : "inf";

    DecimalDigits number = ShortestDigits(value);
    const bool plain =
        number.fPointPlace >= kFirstPlainPlace && number.fPointPlace <= kLastPlainPlace;
    RoundDigits(number, (plain ? number.fPointPlace : 1) + static_cast<long>(std::max(digits, 0)));
    if (number.fDigits.empty()) return "0";

    const char* sign = number.fNegative ? "-" : "";
    if (plain) return sign + WithPoint(number.fDigits, number.fPointPlace);
    return sign + WithPoint(number.fDigits, 1) + ExponentText(number.fPointPlace - 1);
}

std::string FixedText(double value, int decimals)
{
    if (std::string text = FewDigits(value, decimals); !text.empty()) return text;
    std::string text(static_cast<std::size_t>(kMostIntegerDigits + 2 + std::max(decimals, 0)), ' ');
    const auto written = std::to_chars(text.data(), text.data() + text.size(), value,
                                       std::chars_format::fixed, std::max(decimals, 0));
    text.resize(static_cast<std::size_t>(written.ptr - text.data()));
    static constexpr CharacterSet kOfZero("-0.");
    if (text.front() == '-' && kOfZero.HasAll(text)) text.erase(0, 1);
    return text;
}

std::string FixedTextOrBound(double value, int decimals)
{
    std::string text = FixedText(value, decimals);
    static constexpr CharacterSet kOfZero("0.");
    const bool isZero = kOfZero.HasAll(text);
    return value > 0.0 && isZero ? "<" + FixedText(std::pow(10.0, -decimals), decimals) : text;
}

std::string ScientificText(double value, int width)
{
    constexpr int kLongestExponent = 5;  // e+308
    std::string text(static_cast<std::size_t>(std::max(width, 0) + 2 + kLongestExponent), ' ');
    const auto write = [&](int precision) {
        const auto written = std::to_chars(text.data(), text.data() + text.size(), value,
                                           std::chars_format::scientific, precision);
        return static_cast<int>(written.ptr - text.data());
    };
    // Rounding to fewer digits may lengthen the exponent (9.9e+99), so the search begins one digit
    // above what the shortest form leaves room for.
    const int bare = write(0);
    if (bare > width) return {};
    for (int precision = width - bare;; --precision) {
        const int length = write(precision);
        if (length > width && precision > 0) continue;
        text.resize(static_cast<std::size_t>(length));
        return text;
    }
}

}  // namespace refhost
