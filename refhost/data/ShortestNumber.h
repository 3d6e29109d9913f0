#pragma once

#include <cstddef>
#include <string>

namespace refhost {

/// Characters that the longest text takes: -2.2250738585072014e-308.
inline constexpr std::size_t kLongestNumber = 24;

/// The shortest text that reads back as the number, as `std::to_chars` has it: with an exponent
/// where that is shorter. Returns the end of the text; the room holds `kLongestNumber`.
char* WriteShortest(char* room, double number);

void AppendShortest(std::string& out, double number);

/// The shortest text of a number that has at most four decimals, never with an exponent; a zero has
/// no sign. Returns the end of the text, null for other numbers.
char* WriteShortDecimal(char* room, double number);

/// So many units of the last of so many decimals, all of which are written. Returns the end.
char* WriteDecimals(char* room, unsigned long long units, int decimals);

}  // namespace refhost
