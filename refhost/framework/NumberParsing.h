#pragma once

#include <optional>
#include <string_view>

namespace refhost {

/// The finite number that a text wholly is, blanks and line ends around it aside; nothing where it
/// is none. What is too small for a double is 0.
std::optional<double> ParseDouble(std::string_view text);

/// The same cut toward 0 and clamped to 32 bits. Integers of any length are numbers here.
std::optional<int> ParseInteger(std::string_view text);

}  // namespace refhost
