#include "refhost/writers/JsonText.h"

#include <array>
#include <cstdint>
#include <cstring>

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

using Block = std::uint64_t;

constexpr Block InEachByte(unsigned char byte) { return ~Block{0} / 0xFF * byte; }

/// A high bit for each byte that is 0, and for some others only where one is.
constexpr Block ZeroBytes(Block block) { return (block - InEachByte(1)) & ~block; }

/// True where eight bytes are plain; found with few steps for all of them at once.
bool IsPlainBlock(const char* bytes)
{
    Block block = 0;
    std::memcpy(&block, bytes, sizeof block);
    const Block control = (block - InEachByte(0x20)) & ~block;
    const Block marks = ZeroBytes(block ^ InEachByte('"')) | ZeroBytes(block ^ InEachByte('\\'));
    return ((block | control | marks) & InEachByte(0x80)) == 0;
}

/// The length of the part of a text that can be written as it stands.
std::size_t PlainLength(std::string_view text)
{
    std::size_t at = 0;
    while (at < text.size()) {
        if (text.size() - at >= sizeof(Block) && IsPlainBlock(text.data() + at)) {
            at += sizeof(Block);
            continue;
        }
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
