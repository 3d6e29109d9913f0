#include <cmath>
#include <limits>
#include <string>

#include "refhost/data/MissingValue.h"
#include "refhost/data/ValueText.h"

#include "host/data/OBS.h"
#include "host/data/QORT_Format.h"

#include <gtest/gtest.h>

#include "support/Cases.h"

namespace refhost {

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

/// Runs `ToString` with a guard behind the buffer.
std::string Shown(const OBS& value, QORT_Format format)
{
    std::string buffer(format.fWidth + 4u, '#');
    ToString(value, format, buffer.data());
    EXPECT_EQ(buffer.substr(format.fWidth), "####") << "written behind the width";
    buffer.resize(format.fWidth);
    return buffer;
}

}  // namespace

TEST(ToString, ShowsNumbersByTypeWidthAndDecimals)
{
    // clang-format off
    ExpectEach<std::pair<double, QORT_Format>, std::string>({
        {{3.14159, {8, 5, 2}}, "    3.14", "right-aligned"},
        {{3.14159, {8, 99, 3}}, "   3.142", "an unknown type shows like type 5"},
        {{-0.001, {6, 5, 2}}, "  0.00", "no negative zero"},
        {{kMissingValue, {4, 5, 2}}, "   .", "the missing number"},
        {{kMissingValue, {4, 20, 0}}, "   .", "in a date format too"},
        {{std::nan(""), {4, 5, 2}}, "   .", "what can't be told is missing"},
        {{kInfinity, {4, 86, 2}}, "   .", "what can't be told is missing"},
        {{123456.0, {6, 5, 0}}, "123456", "just fits"},
        {{1234567.0, {6, 5, 0}}, " 1e+06", "too long for the width: scientific"},
        {{1234567.0, {9, 5, 3}}, "1.235e+06", "with all the digits that fit"},
        {{1234567.0, {3, 5, 0}}, "***", "no number fits at all"},
        {{1.0, {0, 5, 2}}, "", "no width, no text"},
        {{12219379200.0, {10, 20, 0}}, "1970-01-01", "a date"},
        {{0.0, {10, 38, 0}}, "1582-10-14", "day 0"},
        {{-1.0, {10, 39, 0}}, "1582-10-13", "the calendar goes on before it"},
        {{12219379200.0 + 951782400, {11, 23, 0}}, " 2000-02-29", "a leap day of a century"},
        {{12219379200.0, {10, 27, 0}}, "1970-01-01", "27 shows a date too"},
        {{12219379200.0, {8, 20, 0}}, "1.22e+10", "a date that does not fit"},
        {{12219379199.0, {19, 22, 0}}, "1969-12-31 23:59:59", "date and time"},
        {{12219379200.3, {21, 86, 1}}, "1970-01-01 00:00:00.3", "the decimal digit as one would write it"},
        {{12219379200.99, {21, 86, 1}}, "1970-01-01 00:00:00.9", "seconds are cut"},
        {{-0.25, {22, 22, 2}}, "1582-10-13 23:59:59.75", "cut towards the past"},
        {{-62135596800.0 + 12219379200, {19, 22, 0}}, "0001-01-01 00:00:00", "years have four digits"},
        {{3661.0, {8, 21, 0}}, "01:01:01", "hours have at least two digits"},
        {{360000.5, {12, 25, 2}}, "100:00:00.50", "and as many as they need"},
        {{-59.99, {9, 85, 0}}, "-00:00:59", "a negative duration"},
        {{-0.5, {9, 85, 0}}, " 00:00:00", "but no negative nothing"},
        {{1e300, {12, 20, 0}}, "1.00000e+300", "beyond any calendar"},
    }, [](double value, QORT_Format format) {
        return Shown(OBS(value), format);  // width, type, decimals
    });
    // clang-format on
}

TEST(ToString, ShowsStringsFromTheLeft)
{
    EXPECT_EQ(Shown(OBS(std::string("ab")), {4, 1, 0}), "ab  ");
    EXPECT_EQ(Shown(OBS(std::string("abcdef")), {4, 1, 0}), "abcd");
    EXPECT_EQ(Shown(OBS(std::string("abc\xC3\xA9")), {4, 1, 0}), "abc ") << "half a character";
}

TEST(ValueText, HasNoBlanksAroundIt)
{
    EXPECT_EQ(ValueText(OBS(2.0), {8, 5, 1}), "2.0");
    EXPECT_EQ(ValueText(OBS(std::string(" a   ")), {5, 1, 0}), "a");
    EXPECT_EQ(ValueText(OBS(std::string("   ")), {3, 1, 0}), "");
    EXPECT_EQ(ValueText(OBS(12219379200.0), {8, 20, 0}), "1970-01-01") << "wider than the format";
    EXPECT_EQ(ValueText(OBS(1e300), {8, 20, 0}), "1.0e+300") << "beyond any calendar";
    EXPECT_EQ(PaddedText("ab", {4, 1, 0}), "ab  ");
    EXPECT_EQ(PaddedText("abcdef", {4, 1, 0}), "abcdef");
}

}  // namespace refhost
