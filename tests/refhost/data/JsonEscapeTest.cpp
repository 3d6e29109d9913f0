#include "refhost/data/JsonEscape.h"

#include <gtest/gtest.h>
#include <rapidjson/document.h>

#include <array>
#include <string>
#include <vector>

namespace refhost {
namespace {

using Take = char* (*)(std::string_view&, char*);

/// A text's escapes, in room that ends where it is said to.
std::string EscapedBy(Take take, std::string_view text)
{
    std::string escaped;
    while (!text.empty()) {
        std::vector<char> room(EscapedRoom(text.size()));
        escaped.append(room.data(), take(text, room.data()));
    }
    return escaped;
}

std::string ReadBack(const std::string& escaped)
{
    const std::string quoted = '"' + escaped + '"';
    rapidjson::Document document;
    document.Parse<rapidjson::kParseValidateEncodingFlag>(quoted.data(), quoted.size());
    if (document.HasParseError() || !document.IsString()) return "no JSON: " + escaped;
    return {document.GetString(), document.GetStringLength()};
}

TEST(JsonEscape, IsReadBackAsTheTextWasWhereverEscapesStand)
{
    const std::array<std::string, 9> pieces = {
        "\"", "\\", std::string(1, '\0'), "\x1F", "\n", "<", "ä", "𝄞", "plain text of some length"};
    for (std::size_t gap = 0; gap < 40; ++gap) {
        for (const std::size_t size :
             {0U, 3U, 4U, 15U, 16U, 17U, 31U, 33U, 70U, 1020U, 1030U, 3000U}) {
            std::string text(gap % 17, 'x');
            for (std::size_t piece = gap; text.size() < size; ++piece)
                text += pieces[piece % pieces.size()] + std::string((piece * gap) % 19, 'y');
            ASSERT_EQ(ReadBack(EscapedJson(text)), text);
            ASSERT_EQ(EscapedBy(TakeEscaped, text), EscapedJson(text));
            const std::string forScript = EscapedBy(TakeEscapedForScript, text);
            ASSERT_EQ(ReadBack(forScript), text);
            ASSERT_EQ(forScript.find('<'), std::string::npos);
        }
    }
}

TEST(JsonEscape, SetsTheReplacementForWhatIsNotUtf8)
{
    const std::string replacement = "\xEF\xBF\xBD";
    for (const std::size_t before : {0U, 5U, 15U, 31U, 1023U}) {
        const std::string plain(before, 'x'), behind(40, 'y');
        for (const char* broken : {"\x80", "\xFF", "\xC3", "\xE2\x82", "\xC0\xAF"}) {
            std::string text = plain;
            text.append(broken).append("\"").append(behind);
            const std::string read = ReadBack(EscapedJson(text));
            ASSERT_EQ(read.substr(0, before + 3), plain + replacement);
            ASSERT_EQ(read.substr(read.size() - 41), "\"" + behind);
        }
    }
}

}  // namespace
}  // namespace refhost
