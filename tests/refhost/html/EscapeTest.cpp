#include "refhost/writers/Escape.h"

#include <gtest/gtest.h>

#include "support/Cases.h"

namespace refhost {
namespace {

TEST(AppendMarkupText, LeavesTextAndNothingElse)
{
    // clang-format off
    ExpectEach<std::string, std::string>({
        {"<img src=x onerror=alert(1)>", "&lt;img src=x onerror=alert(1)&gt;", "no element"},
        {"\" onclick='x'", "&quot; onclick=&#39;x&#39;", "no end of an attribute"},
        {"R&D &lt;", "R&amp;D &amp;lt;", "a reference stays what was typed"},
        {"\u202Eabc\u202C", "\u202Eabc\u202C", "marks of direction are text"},
        {"a\r\nb", "a&#13;\nb", "a carriage return isn't read as a line feed"},
        {std::string("a\0b\x1b", 4), "a\uFFFDb\uFFFD", "controls no page may hold"},
        {"a\xC3<b", "a\uFFFD&lt;b", "a cut character doesn't swallow the next one"},
        {"", "", "nothing"},
    }, [](const std::string& text) {
        std::string out = "x";
        AppendMarkupText(out, text);
        return out.substr(1);
    });
    // clang-format on
}

TEST(AppendScriptJson, KeepsAScriptElementOpen)
{
    // clang-format off
    ExpectEach<std::string, std::string>({
        {R"({"a":"</script>"})", R"({"a":"\u003c/script>"})", "the end of the element"},
        {R"({"a":"<!--<script"})", R"({"a":"\u003c!--\u003cscript"})", "a comment"},
        {R"({"a":1})", R"({"a":1})", "nothing to change"},
    }, [](const std::string& text) {
        std::string out;
        AppendScriptJson(out, text);
        return out;
    });
    // clang-format on
}

}  // namespace
}  // namespace refhost
