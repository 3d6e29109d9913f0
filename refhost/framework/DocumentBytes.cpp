#include "refhost/framework/DocumentBytes.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

#include "refhost/data/Characters.h"

namespace refhost {

namespace {

/// How the bytes of a document make characters, told by its first bytes as the parser tells it.
struct ByteLayout {
    std::string_view fStart;
    std::size_t fUnit;         // bytes of a character of the basic alphabet
    std::size_t fSignificant;  // which of them holds it; the others are 0
    char fElementEnd;          // ">"
    std::string_view fSpace;
};

using namespace std::string_view_literals;

constexpr std::string_view kAsciiSpace = " \t\r\n";

// clang-format off
constexpr ByteLayout kByteLayouts[] = {
    {"\x00\x00\xFE\xFF"sv, 4, 3, '>', kAsciiSpace},
    {"\xFF\xFE\x00\x00"sv, 4, 0, '>', kAsciiSpace},
    {"\x00\x00\x00<"sv,    4, 3, '>', kAsciiSpace},
    {"<\x00\x00\x00"sv,    4, 0, '>', kAsciiSpace},
    {"\xFE\xFF"sv,         2, 1, '>', kAsciiSpace},
    {"\xFF\xFE"sv,         2, 0, '>', kAsciiSpace},
    {"\x00<"sv,            2, 1, '>', kAsciiSpace},
    {"<\x00"sv,            2, 0, '>', kAsciiSpace},
    {"\x4C\x6F\xA7\x94"sv, 1, 0, '\x6E', "\x40\x05\x0D\x25\x15"sv},  // EBCDIC
    {""sv,                 1, 0, '>', kAsciiSpace},
};
// clang-format on

const ByteLayout& LayoutOf(std::string_view document)
{
    return *std::find_if(std::begin(kByteLayouts), std::end(kByteLayouts),
                         [&](const ByteLayout& row) { return document.starts_with(row.fStart); });
}

/// The character of the basic alphabet at a place; 0xFF for any other, which none of them is.
char CharacterAt(std::string_view document, const ByteLayout& layout, std::size_t place)
{
    for (std::size_t byte = 0; byte < layout.fUnit; ++byte)
        if (byte != layout.fSignificant && document[place + byte] != '\0') return '\xFF';
    return document[place + layout.fSignificant];
}

bool HasNul(std::string_view document, const ByteLayout& layout)
{
    if (layout.fUnit == 1) return document.find('\0') != std::string_view::npos;
    for (std::size_t place = 0; place < document.size(); place += layout.fUnit)
        if (CharacterAt(document, layout, place) == '\0') return true;
    return false;
}

bool EndsInBlanks(std::string_view document, const ByteLayout& layout)
{
    for (std::size_t end = document.size(); end > 0; end -= layout.fUnit) {
        const char character = CharacterAt(document, layout, end - layout.fUnit);
        if (character == layout.fElementEnd) return true;
        if (layout.fSpace.find(character) == std::string_view::npos) return false;
    }
    return true;
}

constexpr std::size_t kBlockBytes = sizeof(std::uint64_t);

bool IsAsciiBlock(std::string_view text, std::size_t place)
{
    if (text.size() - place < kBlockBytes) return false;
    std::uint64_t block = 0;
    std::memcpy(&block, text.data() + place, kBlockBytes);
    return (block & 0x8080808080808080U) == 0;
}

/// Whether the XML declaration names an encoding other than UTF-8.
bool NamesOtherEncoding(std::string_view document)
{
    if (!document.starts_with("<?xml")) return false;
    const std::string_view declaration = document.substr(0, document.find("?>"));
    const std::size_t name = declaration.find("encoding");
    if (name == std::string_view::npos) return false;
    const std::size_t quote = declaration.find_first_of("\"'", name);
    if (quote == std::string_view::npos) return false;
    const std::string_view encoding = declaration.substr(quote + 1, 5);
    return strncasecmp(encoding.data(), "utf-8", std::min<std::size_t>(encoding.size(), 5)) != 0;
}

}  // namespace

std::string FindOverlookedBytes(std::string_view document)
{
    const ByteLayout& layout = LayoutOf(document);
    if (document.size() % layout.fUnit != 0) return "half a character at the end";
    if (HasNul(document, layout)) return "a NUL character";
    if (!EndsInBlanks(document, layout))
        return "something else than blanks behind the root element";
    return {};
}

bool IsToBeUtf8(std::string_view document)
{
    return LayoutOf(document).fStart.empty() && !NamesOtherEncoding(document);
}

std::optional<std::size_t> FindIllFormedUtf8(std::string_view document)
{
    if (!IsToBeUtf8(document)) return {};
    for (std::size_t place = 0; place < document.size();) {
        if (IsAsciiBlock(document, place)) {
            place += kBlockBytes;
            continue;
        }
        const Character character = FirstCharacter(document.substr(place));
        if (character.fIsBroken) return place;
        place += character.fBytes;
    }
    return {};
}

}  // namespace refhost
