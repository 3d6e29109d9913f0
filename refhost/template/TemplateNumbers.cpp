#include "refhost/template/TemplateNumbers.h"

#include "refhost/data/Calendar.h"

#include <charconv>
#include <chrono>
#include <cmath>
#include <limits>

namespace refhost::tree {

namespace {

constexpr double kMissing = -std::numeric_limits<double>::max();

constexpr std::string_view kSpace = " \t\r\n";

std::string_view Trimmed(std::string_view text)
{
    const auto begin = text.find_first_not_of(kSpace);
    if (begin == std::string_view::npos) return {};
    return text.substr(begin, text.find_last_not_of(kSpace) - begin + 1);
}

/// Takes a number and the mark behind it off the start of `text`; a mark of 0 is the text's end.
std::optional<double> TakeNumber(std::string_view& text, char mark)
{
    const auto end = mark == '\0' ? text.size() : text.find(mark);
    if (end == std::string_view::npos) return std::nullopt;
    const auto number = ParseNumber(text.substr(0, end));
    text.remove_prefix(mark == '\0' ? end : end + 1);
    return number;
}

struct Part {
    char fMark;
    double fSeconds;
};

/// The sum of parts, each a number and its mark, in order and to the end of the text.
template <std::size_t N>
std::optional<double> SumOfParts(std::string_view text, const Part (&parts)[N])
{
    double seconds = 0;
    for (const Part& part : parts) {
        const auto number = TakeNumber(text, part.fMark);
        if (!number) return std::nullopt;
        seconds += *number * part.fSeconds;
    }
    return text.empty() ? std::optional(seconds) : std::nullopt;
}

std::optional<double> ParseDate(std::string_view text)
{
    const auto time = text.find('T');
    if (time == std::string_view::npos || time < 6) return std::nullopt;
    std::string_view date = text.substr(0, time);

    // The year may have a sign of its own, so month and day are looked for from the end.
    const auto dayMark = date.rfind('-');
    const auto monthMark = dayMark == 0 ? std::string_view::npos : date.rfind('-', dayMark - 1);
    if (monthMark == std::string_view::npos || monthMark == 0) return std::nullopt;
    const auto year = ParseNumber(date.substr(0, monthMark));
    const auto month = ParseNumber(date.substr(monthMark + 1, dayMark - monthMark - 1));
    const auto day = ParseNumber(date.substr(dayMark + 1));
    if (!year || !month || !day) return std::nullopt;
    if (std::abs(*year) > 32767 || *month < 1 || *month > 12 || *day < 1 || *day > 31) {
        return std::nullopt;
    }
    const std::chrono::year_month_day civil{std::chrono::year(static_cast<int>(*year)),
                                            std::chrono::month(static_cast<unsigned>(*month)),
                                            std::chrono::day(static_cast<unsigned>(*day))};
    if (!civil.ok()) return std::nullopt;

    constexpr Part kTime[] = {{':', 3600}, {':', 60}, {'\0', 1}};
    const auto seconds = SumOfParts(text.substr(time + 1), kTime);
    if (!seconds) return std::nullopt;
    const auto days = std::chrono::sys_days(civil).time_since_epoch().count();
    return static_cast<double>(days) * kSecondsPerDay + kSecondsTo1970 + *seconds;
}

std::optional<double> ParseDuration(std::string_view text)
{
    if (text.empty() || text.front() != 'P') return std::nullopt;
    text.remove_prefix(1);
    const auto days = TakeNumber(text, 'D');
    if (!days || text.empty() || text.front() != 'T') return std::nullopt;
    text.remove_prefix(1);
    constexpr Part kTime[] = {{'H', 3600}, {'M', 60}, {'S', 1}};
    const auto seconds = SumOfParts(text, kTime);
    return seconds ? std::optional(*days * kSecondsPerDay + *seconds) : std::nullopt;
}

}  // namespace

std::optional<double> ParseNumber(std::string_view text)
{
    text = Trimmed(text);
    double number = 0;
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number);
    if (error != std::errc() || stop != end || text.empty()) return std::nullopt;
    if (!std::isfinite(number) || number == kMissing) return std::nullopt;
    return number;
}

std::optional<Parameter> ParseParameter(std::string_view text)
{
    text = Trimmed(text);
    if (const auto number = ParseNumber(text)) return Parameter{ParameterKind::Number, *number};
    if (const auto date = ParseDate(text)) return Parameter{ParameterKind::Date, *date};
    if (const auto time = ParseDuration(text)) return Parameter{ParameterKind::Duration, *time};
    return std::nullopt;
}

}  // namespace refhost::tree
