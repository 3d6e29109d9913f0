#include "host/framework/Conversions.h"

#include <climits>
#include <clocale>

#include "refhost/data/MissingValue.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace refhost {

using testing::ElementsAreArray;

TEST(String2Double, ReadsWhollyFiniteNumbersAlone)
{
    struct Row {
        std::string text;
        double value;
        const char* why;
    };
    // clang-format off
    const Row rows[] = {
        {"1.5", 1.5, "a number"}, {"-2e3", -2000, "scientific"}, {"+4", 4, "a leading plus"},
        {"5.", 5, "nothing behind the point"}, {".5", 0.5, "nothing before it"},
        {" \t1\r\n", 1, "blanks and line ends around it"},
        {"1e-400", 0, "an underflow"}, {"-1e-400", 0, "an underflow"},
        {"0." + std::string(500, '0') + "1", 0, "an underflow without an exponent"},
        {"1e-99999999999999999999", 0, "an exponent beyond any integer"},
        {"0." + std::string(400, '0') + "1e500", 1e99, "a mantissa that makes up for the exponent"},
        {"0e999", 0, "zero has no size"},
        {"4.9406564584124654e-324", 5e-324, "the smallest number"},
        {"-1.7976931348623157e+308", kMissingValue, "the missing number by its value"},
        {"", kMissingValue, "nothing"}, {"  ", kMissingValue, "nothing"}, {"abc", kMissingValue, "letters"},
        {"1.5x", kMissingValue, "glued letters"}, {"1 2", kMissingValue, "two numbers"},
        {"1,5", kMissingValue, "no comma"}, {"0x10", kMissingValue, "not hexadecimal"},
        {"nan", kMissingValue, "not finite"}, {"inf", kMissingValue, "not finite"},
        {"-Infinity", kMissingValue, "not finite"}, {"1e999", kMissingValue, "an overflow"},
        {"1e99999999999999999999", kMissingValue, "an overflow beyond any integer"},
        {std::string(400, '9'), kMissingValue, "an overflow without an exponent"},
        {"+-1", kMissingValue, "two signs"}, {"++1", kMissingValue, "two signs"},
        {"+", kMissingValue, "a sign"}, {"-", kMissingValue, "a sign"},
        {"1e", kMissingValue, "an exponent without digits"}, {".", kMissingValue, "a point"},
        {std::string("1\0", 2), kMissingValue, "a NUL is no blank"},
    };
    // clang-format on
    for (const Row& row : rows) {
        SCOPED_TRACE(row.text.substr(0, 40) + ": " + row.why);
        EXPECT_EQ(String2Double(row.text), row.value);
    }
}

TEST(String2Integer, CutsAndClamps)
{
    struct Row {
        std::string text;
        int value;
        const char* why;
    };
    // clang-format off
    const Row rows[] = {
        {"12", 12, "an integer"}, {"-7", -7, "negative"}, {"+3", 3, "a plus"}, {" 4\n", 4, "blanks"},
        {"007", 7, "leading zeros"}, {"2.9", 2, "cut toward 0"}, {"-2.9", -2, "cut toward 0"},
        {"1e3", 1000, "an exponent"}, {"2147483648", INT_MAX, "clamped"}, {"-2147483649", INT_MIN, "clamped"},
        {std::string(400, '9'), INT_MAX, "clamped, whatever its length"}, {"-1e300", INT_MIN, "clamped"},
        {"", 0, "nothing"}, {"x", 0, "no number"}, {"1x", 0, "no number"}, {"-", 0, "no number"},
        {"++5", 0, "one plus is enough"}, {"+ 5", 0, "a blank within"},
        {"nan", 0, "no number"}, {"1e999", 0, "no finite number"},
    };
    // clang-format on
    for (const Row& row : rows) {
        SCOPED_TRACE(row.text.substr(0, 40) + ": " + row.why);
        EXPECT_EQ(String2Integer(row.text), row.value);
    }
}

TEST(SplitToToken, KnowsQuotes)
{
    struct Row {
        const char* text;
        std::vector<std::string> tokens;
        const char* why;
    };
    // clang-format off
    const Row rows[] = {
        {"", {}, "nothing"}, {" \t\r\n ", {}, "blanks alone"},
        {" a  b\tc\r\nd ", {"a", "b", "c", "d"}, "runs of blanks and line ends"},
        {"\"a b\" c", {"a b", "c"}, "quotes hold blanks"},
        {"\"a \"\"b\"\"\"", {"a \"b\""}, "a doubled quote stands for one"},
        {"\"\" x", {"", "x"}, "an empty token"},
        {"\"a b\"c d", {"a bc", "d"}, "text glued behind belongs to it"},
        {"\"a\"b\"c d\"", {"ab\"c", "d\""}, "and its quotes are plain"},
        {"a\"b c\"", {"a\"b", "c\""}, "a quote inside is plain"},
        {"\"a b", {"a b"}, "to the end of the text"},
        {"\"", {""}, "a quote alone"},
        {"\xC2\xA0", {"\xC2\xA0"}, "no other space parts"},
    };
    // clang-format on
    for (const Row& row : rows) {
        SCOPED_TRACE(row.why);
        std::vector<std::string> tokens = {"before"};
        SplitToToken(row.text, tokens);
        ASSERT_FALSE(tokens.empty());
        EXPECT_EQ(tokens.front(), "before") << "tokens are appended";
        tokens.erase(tokens.begin());
        EXPECT_THAT(tokens, ElementsAreArray(row.tokens));
    }
}

TEST(NumericFormatCFToStat, TurnsDaysAndSecondsIntoTheHostsSeconds)
{
    for (const int type : {20, 23, 24, 26, 28, 29, 30, 38, 39})
        EXPECT_EQ(NumericFormatCFToStat(1, type), 86400 + 12219379200.0) << type;
    for (const int type : {22, 86})
        EXPECT_EQ(NumericFormatCFToStat(1, type), 1 + 12219379200.0) << type;
    for (const int type : {1, 5, 21, 25, 27, 31, 37, 40, 85, 87, -1, 276})
        EXPECT_EQ(NumericFormatCFToStat(1, type), 1) << type;
    EXPECT_EQ(NumericFormatCFToStat(kMissingValue, 20), kMissingValue);
}

}  // namespace refhost
