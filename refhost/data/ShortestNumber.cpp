#include "refhost/data/ShortestNumber.h"

#include <charconv>
#include <cmath>
#include <cstdint>

namespace refhost {

namespace {

constexpr std::uint32_t kUnitsOfOne = 10'000;  // ten to the short decimals

// Two decimals of at most 15 digits never share a double, so a decimal that gives the number has
// its shortest digits.
constexpr double kMostUnits = 1e15;

/// The units of the last decimal, signed; nothing more where the number is no such decimal.
struct ShortDecimal {
    bool fIsOne = false;
    std::int64_t fUnits = 0;
};

ShortDecimal ShortDecimalOf(double number)
{
    const double scaled = number * kUnitsOfOne;
    if (!(std::fabs(scaled) < kMostUnits)) return {};
    const auto units = static_cast<std::int64_t>(scaled + std::copysign(0.5, scaled));
    return {static_cast<double>(units) / kUnitsOfOne == number, units};
}

char* WriteUnits(char* room, std::int64_t units)
{
    if (units < 0) *room++ = '-';
    const auto size = static_cast<std::uint64_t>(units < 0 ? -units : units);
    char* end = std::to_chars(room, room + kLongestNumber - 1, size / kUnitsOfOne).ptr;
    if (size % kUnitsOfOne == 0) return end;
    *end++ = '.';
    for (std::uint64_t rest = size % kUnitsOfOne * 10; rest != 0; rest = rest % kUnitsOfOne * 10)
        *end++ = static_cast<char>('0' + rest / kUnitsOfOne);
    return end;
}

/// 0.0001 to 0.0009 and multiples of 100000 may be shorter with an exponent.
bool MayHaveExponent(std::int64_t units)
{
    constexpr std::int64_t kFiveZeros = 1'000'000'000;
    return (units > -10 && units < 10) || units % kFiveZeros == 0;
}

}  // namespace

char* WriteShortDecimal(char* room, double number)
{
    const ShortDecimal decimal = ShortDecimalOf(number);
    return decimal.fIsOne ? WriteUnits(room, decimal.fUnits) : nullptr;
}

char* WriteShortest(char* room, double number)
{
    constexpr double kFirstWithExponent = 100'000.0;
    if (std::fabs(number) < kFirstWithExponent) {
        const int whole = static_cast<int>(number);
        if (whole == number && (whole != 0 || !std::signbit(number)))
            return std::to_chars(room, room + kLongestNumber, whole).ptr;
    }
    const ShortDecimal decimal = ShortDecimalOf(number);
    if (decimal.fIsOne && !MayHaveExponent(decimal.fUnits)) return WriteUnits(room, decimal.fUnits);
    return std::to_chars(room, room + kLongestNumber, number).ptr;
}

void AppendShortest(std::string& out, double number)
{
    char room[kLongestNumber];
    out.append(room, WriteShortest(room, number));
}

}  // namespace refhost
