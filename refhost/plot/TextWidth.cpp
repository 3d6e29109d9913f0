#include "refhost/plot/TextWidth.h"

#include <algorithm>
#include <array>

namespace refhost {
namespace {

constexpr std::string_view kEllipsis = "\xE2\x80\xA6";

constexpr bool IsContinuation(unsigned char byte) { return (byte & 0xC0) == 0x80; }

/// By the first byte of a character, of the font's size; by the widest of the usual fonts of pages.
constexpr double CharacterWidth(unsigned char lead)
{
    if (IsContinuation(lead)) return 0.0;
    if (lead >= 0xE3) return 1.0;  // scripts whose characters fill a square, and symbols
    if (lead >= 0x80) return 0.65;
    constexpr std::string_view kNarrow = " !'(),./:;I[]`fijlrt|";
    if (kNarrow.find(static_cast<char>(lead)) != std::string_view::npos) return 0.38;
    constexpr std::string_view kWide = "%&@GMOQWmw";
    return kWide.find(static_cast<char>(lead)) != std::string_view::npos ? 0.9 : 0.65;
}

constexpr std::array<double, 256> kWidths = [] {
    std::array<double, 256> widths{};
    for (std::size_t byte = 0; byte < widths.size(); ++byte)
        widths[byte] = CharacterWidth(static_cast<unsigned char>(byte));
    return widths;
}();

/// Words with the comma behind them; a blank before a word is part of it.
std::vector<std::string_view> WordsOf(std::string_view line)
{
    std::vector<std::string_view> words;
    std::size_t from = 0;
    for (std::size_t at = 1; at < line.size(); ++at) {
        const bool isBreak = line[at] == ' ' || (line[at - 1] == ',' && line[at] != ' ');
        if (!isBreak) continue;
        words.push_back(line.substr(from, at - from));
        from = at;
    }
    words.push_back(line.substr(from));
    return words;
}

std::string_view WithoutLeadingBlanks(std::string_view word)
{
    word.remove_prefix(std::min(word.find_first_not_of(' '), word.size()));
    return word;
}

/// As much of the text as fits with an ellipsis behind it; whole characters.
std::string Shortened(std::string_view text, double fontSize, double room)
{
    double width = TextWidth(kEllipsis, fontSize);
    std::size_t fits = 0;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const auto byte = static_cast<unsigned char>(text[at]);
        if (!IsContinuation(byte)) fits = at;
        width += kWidths[byte] * fontSize;
        if (width > room) break;
        if (at + 1 == text.size()) fits = text.size();
    }
    text = text.substr(0, fits);
    while (!text.empty() && (text.back() == ' ' || text.back() == ',')) {
        text.remove_suffix(1);
    }
    return std::string(text).append(kEllipsis);
}

}  // namespace

double TextWidth(std::string_view line, double fontSize)
{
    double width = 0.0;
    for (const char c : line) {
        width += kWidths[static_cast<unsigned char>(c)];
    }
    return width * fontSize;
}

double TextBlockWidth(std::string_view text, double fontSize)
{
    double width = 0.0;
    while (true) {
        const std::size_t end = text.find('\n');
        width = std::max(width, TextWidth(text.substr(0, end), fontSize));
        if (end == std::string_view::npos) return width;
        text.remove_prefix(end + 1);
    }
}

std::vector<std::string> WrapText(std::string_view text, double fontSize, double room,
                                  std::size_t mostLines)
{
    std::vector<std::string> lines;
    for (const std::string_view given : TextLines(text)) {
        lines.emplace_back();
        for (const std::string_view word : WordsOf(given)) {
            std::string& line = lines.back();
            if (line.empty()) {
                line = WithoutLeadingBlanks(word);
            } else if (TextWidth(line, fontSize) + TextWidth(word, fontSize) <= room) {
                line.append(word);
            } else {
                lines.emplace_back(WithoutLeadingBlanks(word));
            }
        }
    }
    const bool isCut = lines.size() > mostLines + 1;
    if (lines.size() > mostLines) {
        lines[mostLines - 1].append(" ").append(lines[mostLines]);
        lines.resize(mostLines);
    }
    for (std::string& line : lines) {
        const bool isLast = &line == &lines.back();
        if (TextWidth(line, fontSize) > room || (isCut && isLast)) {
            line = Shortened(line, fontSize, room);
        }
    }
    return lines;
}

std::size_t CountLines(std::string_view text)
{
    return 1 + static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n'));
}

std::vector<std::string_view> TextLines(std::string_view text)
{
    std::vector<std::string_view> lines;
    for (std::size_t from = 0;;) {
        const std::size_t to = text.find('\n', from);
        if (to == std::string_view::npos) {
            lines.push_back(text.substr(from));
            return lines;
        }
        lines.push_back(text.substr(from, to - from));
        from = to + 1;
    }
}

}  // namespace refhost
