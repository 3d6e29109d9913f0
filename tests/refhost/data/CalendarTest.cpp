#include "refhost/data/Calendar.h"

#include <gtest/gtest.h>

#include "refhost/data/DateFormats.h"

#include "support/Cases.h"

namespace refhost {

TEST(Calendar, GoesThereAndBackThroughTwentyCenturies)
{
    std::int64_t expected = DaysFromCivil(1, 1, 1);
    EXPECT_EQ(DaysFromCivil(1970, 1, 1), 0);
    EXPECT_EQ(expected, -719162);
    for (unsigned year = 1; year <= 2100; ++year) {
        const bool leap = (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
        for (unsigned month = 1; month <= 12; ++month) {
            constexpr unsigned kLengths[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
            ASSERT_EQ(DaysFromCivil(year, month, 1), expected) << year << '-' << month;
            char text[16];
            std::snprintf(text, sizeof text, "%04u-%02u-01", year, month);
            ASSERT_EQ(DateText(static_cast<double>(expected) * kSecondsPerDay + kSecondsTo1970),
                      text);
            expected += kLengths[month - 1] + (month == 2 && leap ? 1 : 0);
        }
    }
}

TEST(Calendar, TellsTimesWithTheSeparatorOfTheCaller)
{
    EXPECT_EQ(DateTimeText(kSecondsTo1970 + 3661, 'T', 0), "1970-01-01T01:01:01");
    EXPECT_EQ(DateTimeText(1e19, 'T', 0), std::nullopt) << "no day of that number";
    EXPECT_EQ(DateText(9e18)->size(), 18u) << "a year of twelve digits";
    EXPECT_EQ(DateText(-9e18)->front(), '-');
}

TEST(ParseIsoDate, ReadsDatesWithAndWithoutTimes)
{
    // clang-format off
    ExpectEach<const char*, std::optional<double>>({
        {"1970-01-02", 86400.0, "a day"},
        {"1582-10-14", -12219379200.0, "day 0 of the host"},
        {"2000-02-29", 951782400.0, "a leap day"},
        {"1900-02-29", {}, "no leap year"},
        {"2021-04-31", {}, "no such day"},
        {"2021-12-99", {}, "no such day"},
        {"2021-13-01", {}, "no such month"},
        {"2021-00-01", {}, "no such month"},
        {"2021-01-00", {}, "no such day"},
        {"1970-01-01T00:01", 60.0, "seconds may be left out"},
        {"1970-01-01T01:00:01.25", 3601.25, "a fraction"},
        {"1970-01-01T01:00:00Z", 3600.0, "Z is what all dates are"},
        {"1970-01-01T24:00:00", {}, "no such hour"},
        {"1970-01-01T00:00:60", {}, "no leap seconds"},
        {"1970-01-01T00:00:00.", {}, "a point needs digits"},
        {"1970-01-01 00:00:00", {}, "the T is needed"},
        {"1970-01-01T", {}, "a T needs a time"},
        {"1970-01-01T00:00+01:00", {}, "the host knows no time zones"},
        {"1970-1-1", {}, "two digits each"},
        {"-970-01-01", {}, "digits only"},
        {"", {}, "nothing"},
    }, ParseIsoDate);
    // clang-format on
}

}  // namespace refhost
