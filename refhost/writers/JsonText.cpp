#include "refhost/writers/JsonText.h"

#include "refhost/data/Characters.h"
#include "refhost/data/JsonEscape.h"
#include "refhost/data/PlainRun.h"
#include "refhost/writers/ByteOutput.h"

namespace refhost {

namespace {

constexpr std::string_view kReplacement = "\xEF\xBF\xBD";

/// Writes what the text begins with where that can't be copied unseen; how many bytes it took.
std::size_t WriteSpecial(ByteOutput& output, std::string_view text)
{
    const std::string_view escape = JsonEscapeOf(text.front());
    if (!escape.empty()) {
        output.Write(escape);
        return 1;
    }
    const Character character = FirstCharacter(text);
    output.Write(character.fIsBroken ? kReplacement : text.substr(0, character.fBytes));
    return character.fBytes;
}

}  // namespace

void WriteJsonText(ByteOutput& output, std::string_view text)
{
    output.Put('"');
    while (!text.empty()) {
        const std::size_t plain = PlainRun<'"', '\\'>(text);
        output.Write(text.substr(0, plain));
        text.remove_prefix(plain);
        if (!text.empty()) text.remove_prefix(WriteSpecial(output, text));
    }
    output.Put('"');
}

}  // namespace refhost
