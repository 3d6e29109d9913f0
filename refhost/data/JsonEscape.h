#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>

namespace refhost {

/// Writes texts of any bytes as JSON strings hold them, without the quotes, piece by piece:
///     while (!text.empty()) out = TakeEscaped(text, out);
/// What is not UTF-8 becomes U+FFFD. At `out` there is room of `EscapedRoom`; the end is returned.
char* TakeEscaped(std::string_view& text, char* out);

/// The same for JSON within a script element, where no `<` may stand.
char* TakeEscapedForScript(std::string_view& text, char* out);

/// A text as a whole.
std::string EscapedJson(std::string_view text);

constexpr std::size_t kEscapedPiece = 1024;  ///< how many bytes, or a few more, are taken at once

/// The most bytes that come of one piece of a text so long.
constexpr std::size_t EscapedRoom(std::size_t size)
{
    constexpr std::size_t kLongestEscape = 6;
    constexpr std::size_t kBeyond = 128;  // a last block, and what is copied behind an end
    return std::min(size, kEscapedPiece) * kLongestEscape + kBeyond;
}

}  // namespace refhost
