#pragma once

#include <string>
#include <string_view>

/// Surgery on the text of a chart template. What is not found changes nothing.

/// Replaces the first occurrence of `token`.
void ReplaceToken(std::string& text, std::string_view token, std::string_view replacement);

/// Inserts before the first occurrence of `mark`.
void InsertBefore(std::string& text, std::string_view mark, std::string_view fragment);

/// Erases from the first `opening` through the end of the first `closing` at or behind it; nothing
/// where either is missing.
void EraseElement(std::string& text, std::string_view opening, std::string_view closing);

/// Overwrites `length` characters at `offset` behind the start of the first occurrence of `mark`.
/// Where the text ends before, what is there is overwritten.
void OverwriteBehind(std::string& text, std::string_view mark, std::size_t offset,
                     std::size_t length, std::string_view replacement);

/// Removes blanks (0x20) at the end, then at the start.
void TrimBlanks(std::string& text);
