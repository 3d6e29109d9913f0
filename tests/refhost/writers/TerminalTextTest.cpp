#include "refhost/writers/TerminalText.h"

#include <gmock/gmock.h>

#include "support/Cases.h"

namespace refhost {
namespace {

TEST(TerminalText, NeverReachesTheTerminalRaw)
{
    // clang-format off
    ExpectEach<std::string, std::string>({
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
    }, Printable);
    // clang-format on
}

TEST(TerminalText, KnowsHowWideCharactersAre)
{
    // clang-format off
    ExpectEach<const char*, std::size_t>({
        {"", 0, "nothing"},
        {"abc", 3, "plain"},
        {"Größe", 5, "two bytes, one column"},
        {"e\u0301", 1, "a combining accent"},
        {"中文", 4, "wide characters"},
        {"ﾊﾝ", 2, "halfwidth ones"},
        {"\u1112\u1161\u11ab", 2, "one Korean syllable of three letters"},
    }, DisplayWidth);
    // clang-format on
}

TEST(TerminalText, WrapsAtBlanks)
{
    // clang-format off
    ExpectEach<std::tuple<const char*, std::size_t>, std::vector<std::string>>({
        {{"", 5}, {""}, "always a line"},
        {{"one two", 7}, {"one two"}, "fits to the column"},
        {{"one two", 6}, {"one", "two"}, "one column short"},
        {{"  a   b  ", 9}, {"a b"}, "runs of blanks"},
        {{"abcdefgh ij", 4}, {"abcd", "efgh", "ij"}, "a word that is too long"},
        {{"abcde f", 4}, {"abcd", "e f"}, "its rest shares a line"},
        {{"中文字", 5}, {"中文", "字"}, "a wide character is not halved"},
        {{"e\u0301e\u0301", 1}, {"e\u0301", "e\u0301"}, "accents stay with their letters"},
        {{"中", 1}, {"中"}, "what fits nowhere still shows"},
        {{"ab", 0}, {"a", "b"}, "no room at all"},
    }, WrapText);
    // clang-format on
}

}  // namespace
}  // namespace refhost
