#include "refhost/writers/TerminalText.h"

#include <gmock/gmock.h>

namespace refhost {
namespace {

TEST(TerminalText, NeverReachesTheTerminalRaw)
{
    struct Row {
        std::string text;
        const char* printable;
        const char* why;
    };
    const Row rows[] = {
        {"plain", "plain", "nothing to do"},
        {"a\x1b[2Jb", "a␛[2Jb", "an escape sequence"},
        {std::string("a\0b", 3), "a␀b", "a NUL"},
        {"a\x7f", "a␡", "delete"},
        {"a\tb\r\nc", "a b  c", "line ends"},
        {"a\u2028b", "a b", "a line end of Unicode"},
        {"\u009b31m", "\uFFFD31m", "a control of eight bits"},
        {"\u202Eabc", "\uFFFDabc", "an override of the direction"},
        {"\xff\xc3", "\uFFFD\uFFFD", "no UTF-8"},
        {"\u00e9\u4e2d", "\u00e9\u4e2d", "letters stay"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.why);
        EXPECT_EQ(Printable(row.text), row.printable);
    }
}

TEST(TerminalText, KnowsHowWideCharactersAre)
{
    struct Row {
        const char* text;
        std::size_t width;
        const char* why;
    };
    for (const Row& row :
         {Row{"", 0, "nothing"}, Row{"abc", 3, "plain"}, Row{"Größe", 5, "two bytes, one column"},
          Row{"e\u0301", 1, "a combining accent"}, Row{"中文", 4, "wide characters"},
          Row{"ﾊﾝ", 2, "halfwidth ones"},
          Row{"\u1112\u1161\u11ab", 2, "one Korean syllable of three letters"}}) {
        SCOPED_TRACE(row.why);
        EXPECT_EQ(DisplayWidth(row.text), row.width);
    }
}

TEST(TerminalText, WrapsAtBlanks)
{
    using Lines = std::vector<std::string>;
    struct Row {
        const char* text;
        std::size_t width;
        Lines lines;
        const char* why;
    };
    const Row rows[] = {
        {"", 5, {""}, "always a line"},
        {"one two", 7, {"one two"}, "fits to the column"},
        {"one two", 6, {"one", "two"}, "one column short"},
        {"  a   b  ", 9, {"a b"}, "runs of blanks"},
        {"abcdefgh ij", 4, {"abcd", "efgh", "ij"}, "a word that is too long"},
        {"abcde f", 4, {"abcd", "e f"}, "its rest shares a line"},
        {"中文字", 5, {"中文", "字"}, "a wide character is not halved"},
        {"e\u0301e\u0301", 1, {"e\u0301", "e\u0301"}, "accents stay with their letters"},
        {"中", 1, {"中"}, "what fits nowhere still shows"},
        {"ab", 0, {"a", "b"}, "no room at all"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.why);
        EXPECT_THAT(WrapText(row.text, row.width), testing::ElementsAreArray(row.lines));
    }
}

}  // namespace
}  // namespace refhost
