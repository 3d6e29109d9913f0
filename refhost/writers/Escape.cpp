#include "refhost/writers/Escape.h"

#include "refhost/data/Characters.h"
#include "refhost/data/PlainRun.h"
#include "refhost/writers/WellFormed.h"

namespace refhost {

namespace {

/// What stands for a character in markup; empty where it stands for itself.
constexpr std::string_view MarkupFor(char character)
{
    switch (character) {
        case '&':
            return "&amp;";
        case '<':
            return "&lt;";
        case '>':
            return "&gt;";
        case '"':
            return "&quot;";
        case '\'':
            return "&#39;";
        case '\r':
            return "&#13;";  // a plain one would be read as a line feed
        default:
            // The control characters that no HTML document may hold, not even as a reference.
            const auto code = static_cast<unsigned char>(character);
            return (code < 0x20 && code != '\t' && code != '\n') || code == 0x7f ? kReplacementText
                                                                                 : "";
    }
}

}  // namespace

void AppendMarkupText(std::string& out, std::string_view bytes)
{
    const std::size_t plain = PlainRun<'&', '<', '>', '"', '\'', '\x7f'>(bytes);
    out.append(bytes, 0, plain);
    if (plain == bytes.size()) return;
    std::string scratch;
    const std::string_view text = WellFormed(bytes.substr(plain), scratch);
    std::size_t from = 0;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const std::string_view markup = MarkupFor(text[at]);
        if (markup.empty()) continue;
        out.append(text, from, at - from).append(markup);
        from = at + 1;
    }
    out.append(text, from);
}

void AppendScriptJson(std::string& out, std::string_view json)
{
    std::size_t from = 0;
    for (std::size_t at = json.find('<'); at != std::string_view::npos; at = json.find('<', from)) {
        out.append(json, from, at - from).append("\\u003c");  // in JSON it only stands in a string
        from = at + 1;
    }
    out.append(json, from);
}

}  // namespace refhost
