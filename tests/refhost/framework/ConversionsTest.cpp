#include "host/framework/Conversions.h"

#include <climits>
#include <clocale>

#include "refhost/data/MissingValue.h"

#include <gtest/gtest.h>

#include "support/Cases.h"

namespace refhost {

TEST(String2Double, ReadsWhollyFiniteNumbersAlone)
{
    // clang-format off
    ExpectEach<std::string, double>({
        {"1.5", 1.5, "a number"}, {"-2e3", -2000, "scientific"}, {"+4", 4, "a leading plus"},
        {"5.", 5, "nothing behind the point"}, {".5", 0.5, "nothing before it"},
        {"-0.3", -0.3, "no tenth is exact"}, {"1.2.3", kMissingValue, "two points"},
        {"0.00000000000007", 7e-14, "15 digits"}, {"123456789012.345", 123456789012.345, "15 digits"},
        {"9007199254740993", 9007199254740992, "16 digits, halfway between two numbers"},
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
    }, String2Double);
    // clang-format on
}

TEST(String2Integer, CutsAndClamps)
{
    // clang-format off
    ExpectEach<std::string, int>({
        {"12", 12, "an integer"}, {"-7", -7, "negative"}, {"+3", 3, "a plus"}, {" 4\n", 4, "blanks"},
        {"007", 7, "leading zeros"}, {"2.9", 2, "cut toward 0"}, {"-2.9", -2, "cut toward 0"},
        {"1e3", 1000, "an exponent"}, {"2147483648", INT_MAX, "clamped"}, {"-2147483649", INT_MIN, "clamped"},
        {std::string(400, '9'), INT_MAX, "clamped, whatever its length"}, {"-1e300", INT_MIN, "clamped"},
        {"", 0, "nothing"}, {"x", 0, "no number"}, {"1x", 0, "no number"}, {"-", 0, "no number"},
        {"++5", 0, "one plus is enough"}, {"+ 5", 0, "a blank within"},
        {"nan", 0, "no number"}, {"1e999", 0, "no finite number"},
    }, String2Integer);
    // clang-format on
}

TEST(SplitToToken, KnowsQuotes)
{
    using Tokens = std::vector<std::string>;
    // clang-format off
    ExpectEach<const char*, Tokens>({
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
    }, [](const char* text) {
        Tokens tokens = {"before"};
        SplitToToken(text, tokens);
        EXPECT_EQ(tokens.front(), "before") << "tokens are appended";
        return Tokens(tokens.begin() + 1, tokens.end());
    });
    // clang-format on
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
    EXPECT_EQ(NumericFormatCFToStat(1e305, 20), kMissingValue) << "never made infinite";
}

}  // namespace refhost
