#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace refhost {

/// True for the bytes that can be copied as they are: ASCII without controls, and without the
/// specials.
template <char... kSpecials>
inline constexpr std::array<bool, 256> kPlainBytes = [] {
    std::array<bool, 256> plain{};
    for (std::size_t byte = ' '; byte < 0x80; ++byte)
        plain[byte] = ((static_cast<char>(byte) != kSpecials) && ...);
    return plain;
}();

/// How many of them the text begins with.
template <char... kSpecials>
std::size_t PlainRun(std::string_view text)
{
    std::size_t length = 0;
    while (length < text.size() &&
           kPlainBytes<kSpecials...>[static_cast<unsigned char>(text[length])])
        ++length;
    return length;
}

}  // namespace refhost
