#include "refhost/data/Calendar.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <system_error>

#include "refhost/data/NumberText.h"

namespace refhost {

namespace {

constexpr std::int64_t kDaysTo1970 = 141428;
constexpr std::int64_t kDaySeconds = 86400;
constexpr double kMostSeconds = 9e18;  // what 64 bits hold

struct CivilDate {
    std::int64_t fYear;
    unsigned fMonth;
    unsigned fDay;
};

struct WholeSeconds {
    std::int64_t fWhole;
    std::string fFraction;  // digits behind the point
};

std::int64_t FloorDivide(std::int64_t value, std::int64_t divisor)
{
    return value / divisor - (value % divisor < 0 ? 1 : 0);
}

// Days are counted in eras of 400 years that begin with March, so that a leap day ends its year.
constexpr std::int64_t kEraDays = 146097;
constexpr std::int64_t kEraStartTo1970 = 719468;  // from 1 March of the year 0

CivilDate CivilFromDays(std::int64_t daysSince1970)
{
    const std::int64_t days = daysSince1970 + kEraStartTo1970;
    const std::int64_t era = FloorDivide(days, kEraDays);
    const auto dayOfEra = static_cast<unsigned>(days - era * kEraDays);
    const unsigned yearOfEra =
        (dayOfEra - dayOfEra / 1460 + dayOfEra / 36524 - dayOfEra / 146096) / 365;
    const unsigned dayOfYear = dayOfEra - (365 * yearOfEra + yearOfEra / 4 - yearOfEra / 100);
    const unsigned monthFromMarch = (5 * dayOfYear + 2) / 153;
    const unsigned month = monthFromMarch < 10 ? monthFromMarch + 3 : monthFromMarch - 9;
    return {era * 400 + yearOfEra + (month <= 2 ? 1 : 0), month,
            dayOfYear - (153 * monthFromMarch + 2) / 5 + 1};
}

/// Cut towards the past for a negative number, on the shortest decimal text: what a reader would
/// write down as 1.3 seconds has a 3 behind the point, whatever the binary fraction is.
WholeSeconds FloorSeconds(double seconds)
{
    const DecimalDigits number = ShortestDigits(seconds);
    WholeSeconds result{static_cast<std::int64_t>(std::floor(seconds)), {}};
    const auto size = static_cast<int>(number.fDigits.size());
    if (number.fPointPlace >= size) return result;

    result.fFraction.assign(static_cast<std::size_t>(std::max(-number.fPointPlace, 0)), '0');
    result.fFraction +=
        number.fDigits.substr(static_cast<std::size_t>(std::max(number.fPointPlace, 0)));
    if (number.fNegative) {
        for (char& digit : result.fFraction)
            digit = static_cast<char>('0' + '9' - digit);
        ++result.fFraction.back();  // the last digit of a fraction is no zero, so none carries
    }
    return result;
}

bool IsCountable(double seconds) { return std::abs(seconds) <= kMostSeconds; }

void AppendPadded(std::string& text, std::int64_t number, std::size_t digits)
{
    const std::string bare = std::to_string(number < 0 ? -number : number);
    if (number < 0) text += '-';
    if (bare.size() < digits) text.append(digits - bare.size(), '0');
    text += bare;
}

void AppendDate(std::string& text, std::int64_t hostDays)
{
    const CivilDate date = CivilFromDays(hostDays - kDaysTo1970);
    AppendPadded(text, date.fYear, 4);
    text += '-';
    AppendPadded(text, date.fMonth, 2);
    text += '-';
    AppendPadded(text, date.fDay, 2);
}

void AppendTime(std::string& text, std::int64_t seconds, const std::string& fraction, int decimals)
{
    AppendPadded(text, seconds / 3600, 2);
    text += ':';
    AppendPadded(text, seconds / 60 % 60, 2);
    text += ':';
    AppendPadded(text, seconds % 60, 2);
    if (decimals <= 0) return;
    const auto count = static_cast<std::size_t>(decimals);
    text += '.';
    text.append(fraction, 0, count);
    if (fraction.size() < count) text.append(count - fraction.size(), '0');
}

/// Takes a number of exactly `digits` digits from the front of a text.
bool TakeNumber(std::string_view& text, std::size_t digits, unsigned& number)
{
    if (text.size() < digits) return false;
    const char* end = text.data() + digits;
    const auto read = std::from_chars(text.data(), end, number);
    if (read.ec != std::errc() || read.ptr != end) return false;
    text.remove_prefix(digits);
    return true;
}

bool TakeMark(std::string_view& text, char mark)
{
    if (text.empty() || text.front() != mark) return false;
    text.remove_prefix(1);
    return true;
}

/// The fraction of a second behind its point; false where there is a point and no digit.
bool TakeFraction(std::string_view& text, double& fraction)
{
    if (!TakeMark(text, '.')) return true;
    const std::size_t count = std::min(text.find_first_not_of("0123456789"), text.size());
    if (count == 0) return false;
    const std::string number = "0." + std::string(text.substr(0, count));
    std::from_chars(number.data(), number.data() + number.size(), fraction);
    text.remove_prefix(count);
    return true;
}

/// The time behind a date's "T", in seconds of the day.
std::optional<double> ParseTime(std::string_view text)
{
    unsigned hour = 0;
    unsigned minute = 0;
    unsigned second = 0;
    double fraction = 0.0;
    if (!TakeNumber(text, 2, hour) || !TakeMark(text, ':') || !TakeNumber(text, 2, minute))
        return {};
    if (TakeMark(text, ':') && (!TakeNumber(text, 2, second) || !TakeFraction(text, fraction)))
        return {};
    TakeMark(text, 'Z');
    if (!text.empty() || hour > 23 || minute > 59 || second > 59) return {};
    return hour * 3600.0 + minute * 60.0 + second + fraction;
}

}  // namespace

std::int64_t DaysFromCivil(std::int64_t year, unsigned month, unsigned day)
{
    const std::int64_t marchYear = year - (month <= 2 ? 1 : 0);
    const std::int64_t era = FloorDivide(marchYear, 400);
    const std::int64_t yearOfEra = marchYear - era * 400;
    const std::int64_t dayOfYear = (153 * ((month + 9) % 12) + 2) / 5 + day - 1;
    const std::int64_t dayOfEra = yearOfEra * 365 + yearOfEra / 4 - yearOfEra / 100 + dayOfYear;
    return era * kEraDays + dayOfEra - kEraStartTo1970;
}

std::optional<std::string> DateText(double seconds)
{
    if (!IsCountable(seconds)) return {};
    std::string text;
    AppendDate(text, FloorDivide(FloorSeconds(seconds).fWhole, kDaySeconds));
    return text;
}

std::optional<std::string> DateTimeText(double seconds, char separator, int decimals)
{
    if (!IsCountable(seconds)) return {};
    const WholeSeconds time = FloorSeconds(seconds);
    const std::int64_t days = FloorDivide(time.fWhole, kDaySeconds);
    std::string text;
    AppendDate(text, days);
    text += separator;
    AppendTime(text, time.fWhole - days * kDaySeconds, time.fFraction, decimals);
    return text;
}

std::optional<std::string> DurationText(double seconds, int decimals)
{
    if (!IsCountable(seconds)) return {};
    const WholeSeconds time = FloorSeconds(std::abs(seconds));
    std::string text;
    AppendTime(text, time.fWhole, time.fFraction, decimals);
    const bool isZero = text.find_first_not_of("0:.") == std::string::npos;
    if (seconds < 0 && !isZero) text.insert(0, 1, '-');
    return text;
}

std::optional<double> ParseIsoDate(std::string_view text)
{
    unsigned year = 0;
    unsigned month = 0;
    unsigned day = 0;
    if (!TakeNumber(text, 4, year) || !TakeMark(text, '-') || !TakeNumber(text, 2, month) ||
        !TakeMark(text, '-') || !TakeNumber(text, 2, day))
        return {};
    if (month < 1 || month > 12 || day < 1) return {};
    const std::int64_t days = DaysFromCivil(year, month, day);
    if (CivilFromDays(days).fMonth != month) return {};

    const double start = static_cast<double>(days) * kSecondsPerDay;
    if (text.empty()) return start;
    if (!TakeMark(text, 'T')) return {};
    const std::optional<double> time = ParseTime(text);
    if (!time) return {};
    return start + *time;
}

}  // namespace refhost
