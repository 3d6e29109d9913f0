#include "refhost/plot/TextWidth.h"

#include <algorithm>

namespace refhost {
namespace {

/// Of the font's size; by the widest of the usual fonts of pages.
double CharacterWidth(unsigned char lead)
{
    if (lead >= 0xE3) return 1.0;  // scripts whose characters fill a square, and symbols
    if (lead >= 0x80) return 0.65;
    constexpr std::string_view kNarrow = " !'(),./:;I[]`fijlrt|";
    if (kNarrow.find(static_cast<char>(lead)) != std::string_view::npos) return 0.38;
    constexpr std::string_view kWide = "%&@GMOQWmw";
    return kWide.find(static_cast<char>(lead)) != std::string_view::npos ? 0.9 : 0.65;
}

bool IsContinuation(unsigned char byte) { return (byte & 0xC0) == 0x80; }

}  // namespace

double TextWidth(std::string_view line, double fontSize)
{
    double width = 0.0;
    for (const char c : line) {
        const auto byte = static_cast<unsigned char>(c);
        if (!IsContinuation(byte)) width += CharacterWidth(byte);
    }
    return width * fontSize;
}

double TextBlockWidth(std::string_view text, double fontSize)
{
    double width = 0.0;
    for (const std::string& line : TextLines(text)) {
        width = std::max(width, TextWidth(line, fontSize));
    }
    return width;
}

std::vector<std::string> TextLines(std::string_view text)
{
    std::vector<std::string> lines;
    for (std::size_t from = 0;;) {
        const std::size_t to = text.find('\n', from);
        if (to == std::string_view::npos) {
            lines.emplace_back(text.substr(from));
            return lines;
        }
        lines.emplace_back(text.substr(from, to - from));
        from = to + 1;
    }
}

}  // namespace refhost
