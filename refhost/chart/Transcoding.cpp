#include "refhost/chart/Transcoding.h"

#include <unicode/ucnv.h>
#include <unicode/ustring.h>

#include <algorithm>
#include <cstdint>
#include <limits>
#include <memory>
#include <type_traits>

namespace refhost {

namespace {

constexpr UChar32 kReplacement = 0xFFFD;
constexpr std::size_t kBytesPerUnit = 3;  // of UTF-8 for a unit of UTF-16, at most

struct CloseConverter {
    void operator()(UConverter* converter) const { ucnv_close(converter); }
};
using Converter = std::unique_ptr<UConverter, CloseConverter>;

/// ICU counts in 32 bits. Longer texts are cut, with room for what they grow to.
template <class View>
View WithinIcu(View text)
{
    return text.substr(0, std::numeric_limits<int32_t>::max() / kBytesPerUnit - 1);
}

/// Most texts are: there is nothing to convert but the width.
template <class View>
bool IsAscii(View text)
{
    std::uint32_t all = 0;
    for (const auto unit : text)
        all |= static_cast<std::make_unsigned_t<typename View::value_type>>(unit);
    return all < 0x80;
}

}  // namespace

std::u16string ToUtf16(std::string_view utf8)
{
    if (IsAscii(utf8)) return {utf8.begin(), utf8.end()};
    utf8 = WithinIcu(utf8);
    std::u16string text(utf8.size(), u'\0');
    int32_t length = 0;
    UErrorCode status = U_ZERO_ERROR;
    u_strFromUTF8WithSub(text.data(), static_cast<int32_t>(text.size()), &length, utf8.data(),
                         static_cast<int32_t>(utf8.size()), kReplacement, nullptr, &status);
    if (U_FAILURE(status)) return {};
    text.resize(static_cast<std::size_t>(length));
    return text;
}

std::string ToUtf8(std::u16string_view text)
{
    if (IsAscii(text)) {
        std::string ascii(text.size(), '\0');
        std::ranges::transform(text, ascii.begin(),
                               [](char16_t unit) { return static_cast<char>(unit); });
        return ascii;
    }
    text = WithinIcu(text);
    std::string utf8(text.size() * kBytesPerUnit, '\0');
    int32_t length = 0;
    UErrorCode status = U_ZERO_ERROR;
    u_strToUTF8WithSub(utf8.data(), static_cast<int32_t>(utf8.size()), &length, text.data(),
                       static_cast<int32_t>(text.size()), kReplacement, nullptr, &status);
    if (U_FAILURE(status)) return {};
    utf8.resize(static_cast<std::size_t>(length));
    return utf8;
}

std::string ToUtf8(const char16_t* text)
{
    return text ? ToUtf8(std::u16string_view(text)) : std::string();
}

bool IsUtf8(std::string_view text)
{
    text = WithinIcu(text);
    UErrorCode status = U_ZERO_ERROR;
    u_strFromUTF8(nullptr, 0, nullptr, text.data(), static_cast<int32_t>(text.size()), &status);
    return status != U_INVALID_CHAR_FOUND;
}

std::u16string FromCodePage(std::string_view text, const std::string& codePage)
{
    if (IsUtf8(text)) return ToUtf16(text);
    UErrorCode status = U_ZERO_ERROR;
    const Converter converter(ucnv_open(codePage.c_str(), &status));
    if (U_FAILURE(status)) return ToUtf16(text);

    text = WithinIcu(text);
    std::u16string converted(text.size() * 2, u'\0');  // a byte is two units at most
    const int32_t length =
        ucnv_toUChars(converter.get(), converted.data(), static_cast<int32_t>(converted.size()),
                      text.data(), static_cast<int32_t>(text.size()), &status);
    if (U_FAILURE(status)) return ToUtf16(text);
    converted.resize(static_cast<std::size_t>(length));
    return converted;
}

}  // namespace refhost
