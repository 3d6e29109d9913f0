#include "refhost/writers/Escape.h"

#include <gtest/gtest.h>

namespace refhost {
namespace {

struct Row {
    std::string text;
    std::string expected;
    const char* why;
};

TEST(AppendMarkupText, LeavesTextAndNothingElse)
{
    for (const Row& row : {
             Row{"<img src=x onerror=alert(1)>", "&lt;img src=x onerror=alert(1)&gt;",
                 "no element"},
             Row{"\" onclick='x'", "&quot; onclick=&#39;x&#39;", "no end of an attribute"},
             Row{"R&D &lt;", "R&amp;D &amp;lt;", "a reference stays what was typed"},
             Row{"\u202Eabc\u202C", "\u202Eabc\u202C", "marks of direction are text"},
             Row{"a\r\nb", "a&#13;\nb", "a carriage return isn't read as a line feed"},
             Row{std::string("a\0b\x1b", 4), "a\uFFFDb\uFFFD", "controls no page may hold"},
             Row{"a\xC3<b", "a\uFFFD&lt;b", "a cut character doesn't swallow the next one"},
             Row{"", "", "nothing"},
         }) {
        SCOPED_TRACE(row.why);
        std::string out = "x";
        AppendMarkupText(out, row.text);
        EXPECT_EQ(out, "x" + row.expected);
    }
}

TEST(AppendScriptJson, KeepsAScriptElementOpen)
{
    for (const Row& row : {
             Row{R"({"a":"</script>"})", R"({"a":"\u003c/script>"})", "the end of the element"},
             Row{R"({"a":"<!--<script"})", R"({"a":"\u003c!--\u003cscript"})", "a comment"},
             Row{R"({"a":1})", R"({"a":1})", "nothing to change"},
         }) {
        SCOPED_TRACE(row.why);
        std::string out;
        AppendScriptJson(out, row.text);
        EXPECT_EQ(out, row.expected);
    }
}

}  // namespace
}  // namespace refhost
