#pragma once

#include <string>
#include <string_view>

namespace refhost {

/// Turns a text that comes in pieces of UTF-16 into UTF-8. A surrogate pair may lie across two
/// pieces of one text.
class Utf8FromUtf16 {
public:
    /// False: a surrogate stands alone; `text` then holds what came before it.
    bool Append(std::u16string_view piece, std::string& text);

    /// True where the text so far does not end in half a pair.
    bool IsWhole() const { return fLeading == 0; }

private:
    char16_t fLeading = 0;
};

}  // namespace refhost
