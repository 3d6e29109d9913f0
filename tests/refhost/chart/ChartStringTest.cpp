#include "host/chart/ChartString.h"

#include <gtest/gtest.h>

#include "support/Cases.h"

TEST(ChartString, ReplacesEveryOccurrenceAndNothingForNothing)
{
    const auto replaced = [](const char* given, const char* from, const char* to) {
        ChartString text(given);
        text.replaceSubstring(from, to);
        return text.toUTF8();
    };
    ExpectEach<std::tuple<const char*, const char*, const char*>, std::string>(
        {{{"a\\nb\\n", "\\n", "\n"}, "a\nb\n"},
         {{"aaa", "aa", "a"}, "aa"},
         {{"x", "x", "xx"}, "xx"},
         {{"abc", "", "z"}, "abc"},
         {{"abc", "d", "z"}, "abc"},
         {{"N = ^1", "^1", ""}, "N = "}},
        replaced);
}

TEST(ChartString, KeepsWellFormedTextAndReplacesWhatIsNot)
{
    const std::string sound = "\xC3\xBC \xE6\x97\xA5 \xF0\x9F\x93\x8A \n";
    EXPECT_EQ(ChartString(sound).toUTF8(), sound);
    EXPECT_EQ(ChartString("a\xFFz").toUTF8(), "a\xEF\xBF\xBDz");
    EXPECT_EQ(ChartString(static_cast<const char*>(nullptr)).toUTF8(), "");
    EXPECT_EQ(XUtility::ChartStringFromOLANG(sound).toUTF8(), sound);
    EXPECT_EQ(XUtility::ChartStringFromLocalCodePage(sound).toUTF8(), sound);
}

TEST(ChartString, WritesNumbersExactly)
{
    ChartString text;
    text.assignDouble(0.1, 16);
    EXPECT_EQ(text.toUTF8(), "0.1");
    text.assignDouble(2.5, 0);
    EXPECT_EQ(text.toUTF8(), "3");
    text.assignInteger(-7);
    text.appendInteger(12);
    EXPECT_TRUE(text.equals("-712"));
    EXPECT_EQ(std::u16string(text.xc_str()), u"-712");
}

TEST(ChartTranscoder, ReadsItsCodePageOnlyWhereTheTextIsNotUtf8)
{
    EXPECT_EQ(ChartTranscoder("CP1252").transcode("\x80 \xFC").toUTF8(), "\xE2\x82\xAC \xC3\xBC");
    EXPECT_EQ(ChartTranscoder("CP1252").transcode("\xC3\xBC").toUTF8(), "\xC3\xBC");
    EXPECT_EQ(ChartTranscoder("no such page").transcode("a\xFC").toUTF8(), "a\xEF\xBF\xBD");
    EXPECT_EQ(ChartTranscoder(nullptr).transcode("a").toUTF8(), "a");
}

TEST(FormattedDate, IsADateAndATime)
{
    EXPECT_EQ(formatter::formattedDate(12219379200.0 + 86399).toUTF8(), "1970-01-01T23:59:59");
    EXPECT_EQ(formatter::formattedDate(1e300).toUTF8(), "");
}
