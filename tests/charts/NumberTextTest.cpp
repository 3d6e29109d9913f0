#include <gtest/gtest.h>

#include "charts/Dates.h"
#include "charts/NumberText.h"
#include "model/NOPRTestIdentity.h"

namespace {

constexpr double kSecondsTo1970 = 12219379200.0;

}  // namespace

TEST(FormatValue, ConvertsDatesAndWidensTheCallersFormat)
{
    struct Row {
        double value;
        QORT_Format format;
        const char* expected;
        const char* why;
    };
    for (const Row& row :
         {Row{12.345, {8, 5, 2}, "12.35", "a plain number, without blanks"},
          Row{123456789.5, {3, 5, 1}, "123456789.5", "the width of the format does not bind"},
          Row{0, {10, 20, 0}, "1970-01-01", "days"},
          Row{0, {20, 22, 0}, "1970-01-01 00:00:00", "seconds"},
          Row{60, {8, 21, 0}, "00:01:00", "a time of day is no date"},
          Row{MissingValue, {8, 5, 2}, ".", "the missing number"},
          Row{MissingValue, {10, 20, 0}, ".", "a missing date"}}) {
        SCOPED_TRACE(row.why);
        QORT_Format format = row.format;
        EXPECT_EQ(FormatValue(row.value, &format), row.expected);
        EXPECT_EQ(format.fWidth, 40);
    }
    EXPECT_EQ(FormatValue(0.1, nullptr), "0.1") << "exact text without a format";
    EXPECT_EQ(FormatFixed(-2.5, 40, 2), "-2.50");
    EXPECT_EQ(FormatFixed(1e30, 8, 0).size(), 31u) << "the width is 40 whatever was asked";
}

TEST(DurationText, CutsHoursAndMinutesAndRoundsSecondsByTheAddedHalf)
{
    struct Row {
        double days;
        const char* readable;
        const char* attribute;
        const char* why;
    };
    constexpr double kSecond = 1.0 / 86400.0;
    for (const Row& row :
         {Row{2.125, "2 03:00:00", "P2DT03H00M00S", "two days and three hours"},
          Row{0.0, "0 00:00:00", "P0DT00H00M00S", "no spread"},
          Row{59.6 * kSecond, "0 00:00:60", "P0DT00H00M60S", "seconds may come to 60"},
          Row{9.6 * kSecond, "0 00:00:10", "P0DT00H00M10S", "no zero from ten on"},
          Row{0.4375, "0 10:30:00", "P0DT10H30M00S", "exactly ten hours"},
          Row{MissingValue, ".", ".", "the missing number"}}) {
        SCOPED_TRACE(row.why);
        EXPECT_EQ(DurationText(row.days, kReadableDuration), row.readable);
        EXPECT_EQ(DurationText(row.days, kAttributeDuration), row.attribute);
    }
    EXPECT_FALSE(DurationText(1e300, kReadableDuration).empty()) << "a huge spread is told, too";
}

TEST(DateFormats, DifferFromPlaceToPlace)
{
    struct Row {
        int type;
        bool onAxis;
        bool asSpread;
    };
    for (const Row& row :
         {Row{1, false, false}, Row{5, false, false}, Row{19, false, false}, Row{20, true, true},
          Row{21, true, false}, Row{22, true, true}, Row{24, true, true}, Row{25, false, false},
          Row{26, true, true}, Row{27, true, true}, Row{30, true, true}, Row{31, false, false},
          Row{38, true, true}, Row{39, true, true}, Row{85, false, false}, Row{86, true, true}}) {
        SCOPED_TRACE(row.type);
        EXPECT_EQ(IsDateOnAxis(row.type), row.onAxis);
        EXPECT_EQ(IsSpreadOfDates(row.type), row.asSpread);
    }
    EXPECT_EQ(HostSecondsFromDays(2), 2 * 86400 + kSecondsTo1970);
}

TEST(WithMoreDecimals, StaysWithinTheByte)
{
    EXPECT_EQ(WithMoreDecimals(PlainFormat(3), 2).fDecimals, 5);
    EXPECT_EQ(WithMoreDecimals(PlainFormat(255), 2).fDecimals, 255);
}
