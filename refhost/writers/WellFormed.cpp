#include "refhost/writers/WellFormed.h"

#include <algorithm>

#include "refhost/data/Characters.h"

namespace refhost {

namespace {

bool IsAscii(std::string_view text)
{
    return std::ranges::all_of(text, [](char c) { return static_cast<signed char>(c) >= 0; });
}

/// The length of the part of a text that is well-formed.
std::size_t SoundLength(std::string_view text)
{
    std::size_t at = 0;
    while (at < text.size()) {
        const Character character = FirstCharacter(text.substr(at));
        if (character.fIsBroken) break;
        at += character.fBytes;
    }
    return at;
}

}  // namespace

std::string_view WellFormed(std::string_view text, std::string& scratch)
{
    if (IsAscii(text)) return text;
    std::size_t sound = SoundLength(text);
    if (sound == text.size()) return text;
    scratch.clear();
    while (true) {
        scratch += text.substr(0, sound);
        text.remove_prefix(sound);
        if (text.empty()) return scratch;
        scratch += kReplacementText;
        text.remove_prefix(FirstCharacter(text).fBytes);
        sound = SoundLength(text);
    }
}

}  // namespace refhost
