#include "charts/TemplateText.h"

#include "model/HostNumberText.h"

bool Contains(std::string_view text, std::string_view mark)
{
    return text.find(mark) != std::string_view::npos;
}

void ReplaceToken(std::string& text, std::string_view token, std::string_view replacement)
{
    OverwriteBehind(text, token, 0, token.size(), replacement);
}

void InsertBefore(std::string& text, std::string_view mark, std::string_view fragment)
{
    InsertAt(text, mark, 0, fragment);
}

void InsertAt(std::string& text, std::string_view mark, std::size_t offset,
              std::string_view fragment)
{
    OverwriteBehind(text, mark, offset, 0, fragment);
}

void EraseElement(std::string& text, std::string_view opening, std::string_view closing)
{
    const auto from = text.find(opening);
    if (from == std::string::npos) return;
    const auto to = text.find(closing, from);
    if (to == std::string::npos) return;
    text.erase(from, to + closing.size() - from);
}

void OverwriteBehind(std::string& text, std::string_view mark, std::size_t offset,
                     std::size_t length, std::string_view replacement)
{
    const auto found = text.find(mark);
    if (found == std::string::npos || offset > text.size() - found) return;
    text.replace(found + offset, length, replacement);
}

void TrimBlanks(std::string& text) { text = std::string(WithoutBlanks(text)); }
