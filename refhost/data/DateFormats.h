#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace refhost {

/// How a format type shows its values, and in what unit result documents hold them.
enum class DateLayout { None, Date, DateTime, Duration };
enum class DocumentUnit { AsHost, DaysSince1970, SecondsSince1970 };

struct DateFormatRow {
    std::uint8_t fType;
    DateLayout fLayout;
    DocumentUnit fUnit;
};

// clang-format off
inline constexpr DateFormatRow kDateFormats[] = {
    {20, DateLayout::Date,     DocumentUnit::DaysSince1970},
    {21, DateLayout::Duration, DocumentUnit::AsHost},
    {22, DateLayout::DateTime, DocumentUnit::SecondsSince1970},
    {23, DateLayout::Date,     DocumentUnit::DaysSince1970},
    {24, DateLayout::Date,     DocumentUnit::DaysSince1970},
    {25, DateLayout::Duration, DocumentUnit::AsHost},
    {26, DateLayout::Date,     DocumentUnit::DaysSince1970},
    {27, DateLayout::Date,     DocumentUnit::AsHost},
    {28, DateLayout::Date,     DocumentUnit::DaysSince1970},
    {29, DateLayout::Date,     DocumentUnit::DaysSince1970},
    {30, DateLayout::Date,     DocumentUnit::DaysSince1970},
    {38, DateLayout::Date,     DocumentUnit::DaysSince1970},
    {39, DateLayout::Date,     DocumentUnit::DaysSince1970},
    {85, DateLayout::Duration, DocumentUnit::AsHost},
    {86, DateLayout::DateTime, DocumentUnit::SecondsSince1970},
};
// clang-format on

/// Null for a type that shows no date or time.
const DateFormatRow* FindDateFormat(int formatType);

/// The host's number as a date or time of this type; seconds are cut to `decimals` digits. Nothing
/// for a type that shows none, and for a number that is missing or beyond the calendar.
std::optional<std::string> DateFormatText(double hostNumber, int formatType, int decimals);

/// A number of a result document as the host's own: for dates, seconds since 14 October 1582. The
/// missing number stays; a date that would not be finite is missing.
double HostNumber(double documentNumber, int formatType);

/// The other way; a number that is no date of a document stays.
double DocumentNumber(double hostNumber, int formatType);

/// Seconds since 1970 as result documents hold a date of this layout: in seconds with a time, in
/// days without one.
double DocumentNumber(double secondsSince1970, DateLayout layout);

}  // namespace refhost
