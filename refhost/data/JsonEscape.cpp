#include "refhost/data/JsonEscape.h"

#include <array>
#include <cstring>

#include "refhost/data/Characters.h"
#include "refhost/data/PlainRun.h"

namespace refhost {

namespace {

struct Escape {
    char fText[7] = {};  // \u001F is the longest; its place is copied whole
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
    escapes['<'] = {"\\u003c", 6};
    return escapes;
}();

constexpr std::string_view kReplacement = "\xEF\xBF\xBD";

/// Takes a character that can't be copied unseen.
char* TakeSpecial(std::string_view& text, char* out)
{
    const auto first = static_cast<unsigned char>(text.front());
    if (first < kEscapes.size()) {
        const Escape& escape = kEscapes[first];
        std::memcpy(out, escape.fText, sizeof escape.fText);
        text.remove_prefix(1);
        return out + escape.fLength;
    }
    const Character character = FirstCharacter(text);
    const std::string_view bytes =
        character.fIsBroken ? kReplacement : text.substr(0, character.fBytes);
    text.remove_prefix(character.fBytes);
    return std::ranges::copy(bytes, out).out;
}

template <char... kSpecials>
char* TakePiece(std::string_view& text, char* out)
{
    const char* const end = text.data() + std::min(text.size(), kEscapedPiece);
    while (text.data() < end) {
        const std::string_view piece = text.substr(0, static_cast<std::size_t>(end - text.data()));
        const std::size_t plain = PlainRun<kSpecials...>(piece, out);
        text.remove_prefix(plain);
        out += plain;
        if (plain < piece.size()) out = TakeSpecial(text, out);
    }
    return out;
}

}  // namespace

char* TakeEscaped(std::string_view& text, char* out) { return TakePiece<'"', '\\'>(text, out); }

char* TakeEscapedForScript(std::string_view& text, char* out)
{
    return TakePiece<'"', '\\', '<'>(text, out);
}

}  // namespace refhost
