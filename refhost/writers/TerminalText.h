#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace refhost {

/// The text as a terminal may get it: line ends and tabs are blanks, other controls show as their
/// pictures, and what would turn the direction of the line, or is no character, as U+FFFD.
std::string Printable(std::string_view text);

/// Columns of a terminal that a printable text takes: two for a wide character of East Asia, none
/// for a mark that combines with the one before.
std::size_t DisplayWidth(std::string_view text);

/// The widest word of a printable text.
std::size_t LongestWord(std::string_view text);

/// A printable text in lines of at most `width` columns, broken at blanks; a longer word is broken
/// where it must be, but never before a combining mark. At least one line.
std::vector<std::string> WrapText(std::string_view text, std::size_t width);

}  // namespace refhost
