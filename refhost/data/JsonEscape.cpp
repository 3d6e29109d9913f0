#include "refhost/data/JsonEscape.h"

#include <array>
#include <bit>
#include <cstring>
#include <string>

#include "refhost/data/Characters.h"
#include "refhost/data/PlainRun.h"

namespace refhost {

namespace {

struct Escape {
    char fText[7] = {};  // \u001F is the longest
    unsigned char fLength = 0;

    /// Writes more than the escape, in one step.
    char* Put(char* out) const
    {
        std::memcpy(out, fText, sizeof fText);
        return out + fLength;
    }
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

/// Takes a character that can't be copied unseen.
char* TakeSpecial(std::string_view& text, char* out)
{
    const auto first = static_cast<unsigned char>(text.front());
    if (first < kEscapes.size()) {
        text.remove_prefix(1);
        return kEscapes[first].Put(out);
    }
    const Character character = FirstCharacter(text);
    const std::string_view bytes =
        character.fIsBroken ? kReplacementText : text.substr(0, character.fBytes);
    text.remove_prefix(character.fBytes);
    return std::ranges::copy(bytes, out).out;
}

#ifdef __SSE2__

/// Takes what begins before the `end`, as long as two blocks are left. A block is looked at once,
/// however many escapes it needs: a template's text has one for every few bytes.
template <char... kSpecials>
char* TakeBlocks(std::string_view& text, const char* end, char* out)
{
    constexpr std::size_t kWidth = 16;
    while (text.data() < end && text.size() >= 2 * kWidth) {
        const char* const block = text.data();
        unsigned specials = Block<kWidth>::Specials<kSpecials...>(Block<kWidth>::Load(block));
        for (std::size_t taken = 0; true; specials &= specials - 1) {
            const auto plain = static_cast<std::size_t>(std::countr_zero(specials));
            std::memcpy(out, block + taken, kWidth);
            out += plain - taken;
            text = {block + plain, static_cast<std::size_t>(text.end() - (block + plain))};
            if (plain == kWidth) break;
            const auto special = static_cast<unsigned char>(block[plain]);
            if (special >= kEscapes.size()) {
                out = TakeSpecial(text, out);
                break;
            }
            out = kEscapes[special].Put(out);
            taken = plain + 1;
        }
    }
    return out;
}

#endif

template <char... kSpecials>
char* TakePiece(std::string_view& text, char* out)
{
    const char* const end = text.data() + std::min(text.size(), kEscapedPiece);
#ifdef __SSE2__
    out = TakeBlocks<kSpecials...>(text, end, out);
#endif
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

std::string EscapedJson(std::string_view text)
{
    std::string escaped;
    std::array<char, EscapedRoom(kEscapedPiece)> room;
    while (!text.empty())
        escaped.append(room.data(), TakeEscaped(text, room.data()));
    return escaped;
}

char* TakeEscapedForScript(std::string_view& text, char* out)
{
    return TakePiece<'"', '\\', '<'>(text, out);
}

}  // namespace refhost
