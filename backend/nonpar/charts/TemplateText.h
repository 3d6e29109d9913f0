#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// Surgery on the text of a chart template. Every operation goes by the first occurrence, and what
/// is not found changes nothing: a template may hold any of a view's tokens.

bool Contains(std::string_view text, std::string_view mark);

void ReplaceToken(std::string& text, std::string_view token, std::string_view replacement);

void InsertBefore(std::string& text, std::string_view mark, std::string_view fragment);

/// Inserts `offset` characters behind the start of `mark`; nothing where the text ends before.
void InsertAt(std::string& text, std::string_view mark, std::size_t offset,
              std::string_view fragment);

/// Erases from the first `opening` through the end of the first `closing` at or behind it; nothing
/// where either is missing.
void EraseElement(std::string& text, std::string_view opening, std::string_view closing);

/// Overwrites `length` characters at `offset` behind the start of `mark`, with a text of any
/// length. Where the text ends within them, what is there is overwritten; where it ends before
/// them, nothing is.
void OverwriteBehind(std::string& text, std::string_view mark, std::size_t offset,
                     std::size_t length, std::string_view replacement);

/// Removes blanks (0x20) at the end, then at the start.
void TrimBlanks(std::string& text);
