#include "refhost/writers/TerminalText.h"

#include <unicode/uchar.h>

#include <algorithm>

#include "refhost/data/Characters.h"

namespace refhost {

namespace {

bool IsPlainAscii(std::string_view text)
{
    return std::ranges::all_of(text, [](char c) { return c >= ' ' && c <= '~'; });
}

/// Embeddings, overrides and isolates, which reach beyond the text that holds them.
bool TurnsDirection(char32_t code)
{
    return (code >= 0x202A && code <= 0x202E) || (code >= 0x2066 && code <= 0x2069);
}

bool IsLineEnd(char32_t code)
{
    return (code >= '\t' && code <= '\r') || code == 0x85 || code == 0x2028 || code == 0x2029;
}

std::size_t CharacterWidth(char32_t code)
{
    if (code < 0x300) return 1;
    const auto character = static_cast<UChar32>(code);
    const auto type = u_charType(character);
    if (type == U_NON_SPACING_MARK || type == U_ENCLOSING_MARK || type == U_FORMAT_CHAR) return 0;
    if (code >= 0x1160 && code <= 0x11FF) return 0;  // they join the Korean letter before
    const int eastAsian = u_getIntPropertyValue(character, UCHAR_EAST_ASIAN_WIDTH);
    return eastAsian == U_EA_WIDE || eastAsian == U_EA_FULLWIDTH ? 2 : 1;
}

/// Breaks words into lines.
class LineBreaker {
public:
    explicit LineBreaker(std::size_t width) : fWidth(std::max<std::size_t>(width, 1)) {}

    void Add(std::string_view word)
    {
        const std::size_t columns = DisplayWidth(word);
        const std::size_t blank = fLine.empty() ? 0 : 1;
        if (fColumns + blank + columns <= fWidth) {
            fLine.append(blank, ' ');
            fLine += word;
            fColumns += blank + columns;
            return;
        }
        if (!fLine.empty()) EndLine();
        AddBroken(word);
    }

    std::vector<std::string> Finish()
    {
        if (!fLine.empty() || fLines.empty()) EndLine();
        return std::move(fLines);
    }

private:
    void AddBroken(std::string_view word)
    {
        while (!word.empty()) {
            const Character character = FirstCharacter(word);
            const std::size_t columns = CharacterWidth(character.fCode);
            if (fColumns > 0 && fColumns + columns > fWidth) EndLine();
            fLine += word.substr(0, character.fBytes);
            fColumns += columns;
            word.remove_prefix(character.fBytes);
        }
    }

    void EndLine()
    {
        fLines.push_back(std::move(fLine));
        fLine.clear();
        fColumns = 0;
    }

    std::size_t fWidth;
    std::vector<std::string> fLines;
    std::string fLine;
    std::size_t fColumns = 0;
};

/// Calls `take` for each word between blanks.
template <class Take>
void WalkWords(std::string_view text, Take take)
{
    while (true) {
        text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
        if (text.empty()) return;
        const std::string_view word = text.substr(0, text.find(' '));
        take(word);
        text.remove_prefix(word.size());
    }
}

}  // namespace

std::string Printable(std::string_view text)
{
    if (IsPlainAscii(text)) return std::string(text);
    std::string printable;
    while (!text.empty()) {
        const Character character = FirstCharacter(text);
        const char32_t code = character.fCode;
        if (IsLineEnd(code)) {
            printable += ' ';
        } else if (code < 0x20 || code == 0x7F) {
            printable += "\xE2\x90";  // U+2400 on, pictures in the order of the controls
            printable += static_cast<char>(code == 0x7F ? 0xA1 : 0x80 + code);
        } else if (character.fIsBroken || (code >= 0x80 && code < 0xA0) || TurnsDirection(code)) {
            printable += kReplacementText;
        } else {
            printable += text.substr(0, character.fBytes);
        }
        text.remove_prefix(character.fBytes);
    }
    return printable;
}

std::size_t DisplayWidth(std::string_view text)
{
    if (IsPlainAscii(text)) return text.size();
    std::size_t width = 0;
    while (!text.empty()) {
        const Character character = FirstCharacter(text);
        width += CharacterWidth(character.fCode);
        text.remove_prefix(character.fBytes);
    }
    return width;
}

std::size_t LongestWord(std::string_view text)
{
    std::size_t longest = 0;
    WalkWords(text, [&longest](std::string_view word) {
        longest = std::max(longest, DisplayWidth(word));
    });
    return longest;
}

std::vector<std::string> WrapText(std::string_view text, std::size_t width)
{
    LineBreaker breaker(width);
    WalkWords(text, [&breaker](std::string_view word) { breaker.Add(word); });
    return breaker.Finish();
}

}  // namespace refhost
