#pragma once

#include <string_view>

namespace refhost {

/// What stands for bytes that are no character: U+FFFD.
inline constexpr std::string_view kReplacementText = "\uFFFD";

/// A character of a text in UTF-8.
struct Character {
    char32_t fCode = 0;      ///< U+FFFD where the bytes are no character
    std::size_t fBytes = 0;  ///< how many bytes it takes; 1 or more
    bool fIsBroken = false;  ///< the bytes are no character
};

/// The first character of a text that is not empty. Bytes that are none count as one broken
/// character as far as they could have begun one.
Character FirstCharacter(std::string_view text);

/// The front of a text that `bytes` hold, without half a character at its end.
std::string_view WholeCharacters(std::string_view text, std::size_t bytes);

}  // namespace refhost
