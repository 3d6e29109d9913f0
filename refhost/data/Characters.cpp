#include "refhost/data/Characters.h"

#include <algorithm>

namespace refhost {

namespace {

/// Which bytes may begin a character, and which may then come second; all later ones are 80 to BF.
struct LeadRow {
    unsigned char fFirst;
    unsigned char fLast;
    unsigned char fBytes;
    unsigned char fSecondFirst;
    unsigned char fSecondLast;
};

// clang-format off
constexpr LeadRow kLeads[] = {
    {0xC2, 0xDF, 2, 0x80, 0xBF},
    {0xE0, 0xE0, 3, 0xA0, 0xBF},  // below: overlong
    {0xE1, 0xEC, 3, 0x80, 0xBF},
    {0xED, 0xED, 3, 0x80, 0x9F},  // above: surrogates
    {0xEE, 0xEF, 3, 0x80, 0xBF},
    {0xF0, 0xF0, 4, 0x90, 0xBF},  // below: overlong
    {0xF1, 0xF3, 4, 0x80, 0xBF},
    {0xF4, 0xF4, 4, 0x80, 0x8F},  // above: beyond U+10FFFF
};
// clang-format on

constexpr char32_t kReplacement = 0xFFFD;

}  // namespace

Character FirstCharacter(std::string_view text)
{
    const auto byte = [text](std::size_t at) { return static_cast<unsigned char>(text[at]); };
    if (byte(0) < 0x80) return {byte(0), 1, false};
    const auto* row = std::ranges::find_if(kLeads, [lead = byte(0)](const LeadRow& candidate) {
        return candidate.fFirst <= lead && lead <= candidate.fLast;
    });
    if (row == std::end(kLeads)) return {kReplacement, 1, true};
    char32_t code = byte(0) & (0x7FU >> row->fBytes);
    for (std::size_t at = 1; at < row->fBytes; ++at) {
        const unsigned char first = at == 1 ? row->fSecondFirst : 0x80;
        const unsigned char last = at == 1 ? row->fSecondLast : 0xBF;
        if (at >= text.size() || byte(at) < first || byte(at) > last)
            return {kReplacement, at, true};
        code = code << 6U | (byte(at) & 0x3FU);
    }
    return {code, row->fBytes, false};
}

std::string_view WholeCharacters(std::string_view text, std::size_t bytes)
{
    if (text.size() <= bytes) return text;
    while (bytes > 0 && (static_cast<unsigned char>(text[bytes]) & 0xC0U) == 0x80U)
        --bytes;
    return text.substr(0, bytes);
}

}  // namespace refhost
