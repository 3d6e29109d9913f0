#include <gtest/gtest.h>

#include "charts/Dates.h"
#include "charts/NumberText.h"
#include "charts/ValueLabels.h"
#include "model/NOPRTestIdentity.h"

#include "host/data/OBS.h"

#include "support/Cases.h"

namespace {

constexpr double kSecondsTo1970 = 12219379200.0;

}  // namespace

TEST(FormatValue, ConvertsDatesAndWidensTheCallersFormat)
{
    const auto text = [](double value, QORT_Format format) {
        const std::string shown = FormatValue(value, &format);
        EXPECT_EQ(format.fWidth, 40);
        return shown;
    };
    // clang-format off
    ExpectEach<std::tuple<double, QORT_Format>, std::string>({
        {{12.345, {8, 5, 2}}, "12.35", "a plain number, without blanks"},
        {{123456789.5, {3, 5, 1}}, "123456789.5", "the width of the format does not bind"},
        {{2.25, {3, 5, 2}}, "2.25", "a wide number in a narrow format"},
        {{0, {10, 20, 0}}, "1970-01-01", "days"},
        {{1.5, {10, 26, 0}}, "1970-01-02", "26 is among the types of days"},
        {{1e307, {10, 20, 0}}, ".", "a day beyond the numbers"},
        {{0, {20, 22, 0}}, "1970-01-01 00:00:00", "seconds"},
        {{60, {8, 21, 0}}, "00:01:00", "a time of day is no date"},
        {{MissingValue, {8, 5, 2}}, ".", "the missing number"},
        {{MissingValue, {10, 20, 0}}, ".", "a missing date"},
    }, text);
    // clang-format on
    EXPECT_EQ(FormatValue(0.1, nullptr), "0.1") << "exact text without a format";
    EXPECT_EQ(FormatFixed(-2.5, 40, 2), "-2.50");
    EXPECT_EQ(FormatFixed(1e30, 8, 0).size(), 31u) << "the width is 40 whatever was asked";
}

TEST(DurationText, CutsHoursAndMinutesAndRoundsSecondsByTheAddedHalf)
{
    constexpr double kSecond = 1.0 / 86400.0;
    // clang-format off
    ExpectEach<double, std::pair<std::string, std::string>>({
        {2.125, {"2 03:00:00", "P2DT03H00M00S"}, "two days and three hours"},
        {0.0, {"0 00:00:00", "P0DT00H00M00S"}, "no spread"},
        {59.6 * kSecond, {"0 00:00:60", "P0DT00H00M60S"}, "seconds may come to 60"},
        {9.6 * kSecond, {"0 00:00:10", "P0DT00H00M10S"}, "no zero from ten on"},
        {0.4375, {"0 10:30:00", "P0DT10H30M00S"}, "exactly ten hours"},
        {MissingValue, {".", "."}, "the missing number"},
    }, [](double days) { return std::pair(DurationText(days, kReadableDuration), DurationText(days, kAttributeDuration)); });
    // clang-format on
    EXPECT_FALSE(DurationText(1e300, kReadableDuration).empty()) << "a huge spread is told, too";
}

TEST(DateFormats, DifferFromPlaceToPlace)
{
    using Uses = std::pair<bool, bool>;
    const Uses none = {false, false}, both = {true, true};
    // clang-format off
    ExpectEach<int, Uses>({
        {1, none}, {5, none}, {19, none}, {20, both}, {21, {true, false}, "a duration is no spread of dates"},
        {22, both}, {24, both}, {25, none}, {26, both}, {27, both}, {30, both}, {31, none}, {38, both}, {39, both},
        {85, none}, {86, both},
    }, [](int type) { return Uses(IsDateOnAxis(type), IsSpreadOfDates(type)); });
    // clang-format on
    EXPECT_EQ(HostSecondsFromDays(2), 2 * 86400 + kSecondsTo1970);
}

TEST(WithMoreDecimals, StaysWithinTheByte)
{
    EXPECT_EQ(WithMoreDecimals(PlainFormat(3), 2).fDecimals, 5);
    EXPECT_EQ(WithMoreDecimals(PlainFormat(255), 2).fDecimals, 255);
}

TEST(StringValue, IsCutToTheFormatsWidthAndLosesBlanksAtTheEnd)
{
    const auto text = [](const char* value, std::uint16_t width) {
        return StringValue(OBS(std::string(value)), QORT_Format{width, 1, 0});
    };
    // clang-format off
    ExpectEach<std::tuple<const char*, std::uint16_t>, std::string>({
        {{"ab      ", 8}, "ab", "padded"},
        {{" a b    ", 8}, " a b", "blanks at the start stay"},
        {{"        ", 8}, "", "blanks only"},
        {{"abcdefgh", 3}, "abc", "longer than the format"},
        {{"Gr\xC3\xB6\xC3\x9F" "e", 5}, "Gr\xC3\xB6", "no half of a character"},
        {{"ab", 8}, "ab", "shorter than the format"},
    }, text);
    // clang-format on
    EXPECT_EQ(StringValue(OBS(5.0), QORT_Format{8, 1, 0}), "") << "a number has no text";
}
