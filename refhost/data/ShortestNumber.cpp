#include "refhost/data/ShortestNumber.h"

#include <charconv>
#include <cmath>
#include <cstdint>

namespace refhost {

namespace {

constexpr int kDecimals = 4;
constexpr double kUnitsOfOne = 1e4;

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
    char* end =
        WriteDecimals(room, static_cast<std::uint64_t>(units < 0 ? -units : units), kDecimals);
    while (end[-1] == '0')
        --end;
    return end[-1] == '.' ? end - 1 : end;
}

/// 0.0001 to 0.0009 and multiples of 100000 may be shorter with an exponent.
bool MayHaveExponent(std::int64_t units)
{
    constexpr std::int64_t kFiveZeros = 1'000'000'000;
    return (units > -10 && units < 10) || units % kFiveZeros == 0;
}

}  // namespace

char* WriteDecimals(char* room, unsigned long long units, int decimals)
{
    constexpr std::size_t kMostDigits = 20;
    char digits[kMostDigits];
    const char* const end = std::to_chars(digits, digits + kMostDigits, units).ptr;
    const auto count = static_cast<int>(end - digits);
    const char* digit = digits;
    if (count <= decimals) *room++ = '0';
    for (int place = count; place > decimals; --place)
        *room++ = *digit++;
    if (decimals > 0) *room++ = '.';
    for (int place = decimals; place > count; --place)
        *room++ = '0';
    while (digit != end)
        *room++ = *digit++;
    return room;
}

char* WriteShortDecimal(char* room, double number)
{
    const ShortDecimal decimal = ShortDecimalOf(number);
    return decimal.fIsOne ? WriteUnits(room, decimal.fUnits) : nullptr;
}

char* WriteShortest(char* room, double number)
{
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
