#pragma once

#include <string_view>

namespace refhost {

/// A character of a text in UTF-8.
struct Character {
    char32_t fCode = 0;      ///< U+FFFD where the bytes are no character
    std::size_t fBytes = 0;  ///< how many bytes it takes; 1 or more
    bool fIsBroken = false;  ///< the bytes are no character
};

/// The first character of a text that is not empty. Bytes that are none count as one broken
/// character as far as they could have begun one.
Character FirstCharacter(std::string_view text);

}  // namespace refhost
