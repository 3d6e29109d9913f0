#include "refhost/writers/JsonText.h"

#include <array>

#include "refhost/writers/ByteOutput.h"
#include "refhost/writers/Characters.h"

namespace refhost {

namespace {

constexpr std::string_view kReplacement = "\xEF\xBF\xBD";

/// What is to be done with a byte of a text.
enum class ByteKind : unsigned char { Plain, Escaped, OfCharacter };

constexpr std::array<ByteKind, 256> kByteKinds = [] {
    std::array<ByteKind, 256> kinds{};
    for (std::size_t byte = 0; byte < kinds.size(); ++byte) {
        if (byte < 0x20 || byte == '"' || byte == '\\') kinds[byte] = ByteKind::Escaped;
        if (byte >= 0x80) kinds[byte] = ByteKind::OfCharacter;
    }
    return kinds;
}();

ByteKind KindOf(char byte) { return kByteKinds[static_cast<unsigned char>(byte)]; }

void WriteEscaped(ByteOutput& output, char byte)
{
    struct Row {
        char fByte;
        char fLetter;
    };
    static constexpr Row kLetters[] = {{'"', '"'},  {'\\', '\\'}, {'\n', 'n'}, {'\r', 'r'},
                                       {'\t', 't'}, {'\b', 'b'},  {'\f', 'f'}};
    output.Put('\\');
    for (const Row& row : kLetters)
        if (row.fByte == byte) return output.Put(row.fLetter);
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    const auto code = static_cast<unsigned char>(byte);
    output.Write("u00");
    output.Put(kDigits[code >> 4U]);
    output.Put(kDigits[code & 0xFU]);
}

/// The length of the part of a text that can be written as it stands.
std::size_t PlainLength(std::string_view text)
{
    std::size_t at = 0;
    while (at < text.size()) {
        const ByteKind kind = KindOf(text[at]);
        if (kind == ByteKind::Escaped) break;
        if (kind == ByteKind::Plain) {
            ++at;
            continue;
        }
        const Character character = FirstCharacter(text.substr(at));
        if (character.fIsBroken) break;
        at += character.fBytes;
    }
    return at;
}

}  // namespace

void WriteJsonText(ByteOutput& output, std::string_view text)
{
    output.Put('"');
    while (true) {
        const std::size_t plain = PlainLength(text);
        output.Write(text.substr(0, plain));
        text.remove_prefix(plain);
        if (text.empty()) break;
        if (KindOf(text.front()) == ByteKind::Escaped) {
            WriteEscaped(output, text.front());
            text.remove_prefix(1);
        } else {
            output.Write(kReplacement);
            text.remove_prefix(FirstCharacter(text).fBytes);
        }
    }
    output.Put('"');
}

}  // namespace refhost
