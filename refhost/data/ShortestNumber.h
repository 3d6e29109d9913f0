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

/// Decimals that a number has at most which `WriteShortDecimal` writes.
inline constexpr int kShortDecimals = 4;

/// The shortest text of a number that has so few decimals, never with an exponent; a zero has
/// no sign. Returns the end of the text, null for other numbers.
char* WriteShortDecimal(char* room, double number);

}  // namespace refhost
