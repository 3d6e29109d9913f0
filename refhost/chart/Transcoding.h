#pragma once

#include <string>
#include <string_view>

/// Conversions between the 8-bit and the 16-bit texts of the host. What is malformed becomes the
/// replacement character.
namespace refhost {

std::u16string ToUtf16(std::string_view utf8);
std::string ToUtf8(std::u16string_view text);

/// Null gives the empty text.
std::string ToUtf8(const char16_t* text);

bool IsUtf8(std::string_view text);

/// 8-bit text of a code page. Text that is well-formed UTF-8 passes as it is, since that is what
/// the host's texts are; so does text of a code page that nobody knows.
std::u16string FromCodePage(std::string_view text, const std::string& codePage);

}  // namespace refhost
