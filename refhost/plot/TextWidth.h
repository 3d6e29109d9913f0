#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace refhost {

/// Pixels that a line of text takes, by an estimate that is rather too wide: the font that draws it
/// is not known here.
double TextWidth(std::string_view line, double fontSize);

/// Of a text of several lines, the widest.
double TextBlockWidth(std::string_view text, double fontSize);

/// The lines of a text, parted by line feeds. Never empty.
std::vector<std::string_view> TextLines(std::string_view text);

/// How many they are.
std::size_t CountLines(std::string_view text);

/// The text in lines of at most `room` pixels, broken at its own line feeds, at blanks and behind
/// commas; what doesn't fit into `mostLines` lines, and a word that is wider, ends with an
/// ellipsis.
std::vector<std::string> WrapText(std::string_view text, double fontSize, double room,
                                  std::size_t mostLines);

}  // namespace refhost
