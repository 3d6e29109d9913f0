#include "refhost/data/JsonEscape.h"

#include <array>

namespace refhost {

namespace {

struct Escape {
    char fText[6] = {};  // \u001F is the longest
    unsigned char fLength = 0;
};

constexpr Escape Letter(char letter) { return {{'\\', letter}, 2}; }

constexpr Escape Code(unsigned byte)
{
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    return {{'\\', 'u', '0', '0', kDigits[byte / 16], kDigits[byte % 16]}, 6};
}

constexpr std::array<Escape, 128> kEscapes = [] {
    std::array<Escape, 128> escapes{};
    for (unsigned byte = 0; byte < ' '; ++byte)
        escapes[byte] = Code(byte);
    constexpr std::string_view kLetters = "\"\"\\\\\bb\ff\nn\rr\tt";  // each with its letter
    for (std::size_t at = 0; at < kLetters.size(); at += 2)
        escapes[static_cast<unsigned char>(kLetters[at])] = Letter(kLetters[at + 1]);
    return escapes;
}();

}  // namespace

std::string_view JsonEscapeOf(char byte)
{
    const auto code = static_cast<unsigned char>(byte);
    if (code >= kEscapes.size()) return {};
    return {kEscapes[code].fText, kEscapes[code].fLength};
}

}  // namespace refhost
