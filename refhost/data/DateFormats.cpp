#include "refhost/data/DateFormats.h"

#include <cmath>

#include "refhost/data/Calendar.h"
#include "refhost/data/MissingValue.h"

namespace refhost {

const DateFormatRow* FindDateFormat(int formatType)
{
    for (const DateFormatRow& row : kDateFormats)
        if (row.fType == formatType) return &row;
    return nullptr;
}

namespace {

/// Null for types whose numbers result documents hold as the host does.
const DateFormatRow* FindConverted(int formatType)
{
    const DateFormatRow* row = FindDateFormat(formatType);
    return row && row->fUnit != DocumentUnit::AsHost ? row : nullptr;
}

double SecondsOfUnit(const DateFormatRow& row)
{
    return row.fUnit == DocumentUnit::DaysSince1970 ? kSecondsPerDay : 1.0;
}

}  // namespace

std::optional<std::string> DateFormatText(double hostNumber, int formatType, int decimals)
{
    const DateFormatRow* row = FindDateFormat(formatType);
    if (!row || IsUntold(hostNumber)) return {};
    switch (row->fLayout) {
        case DateLayout::Date:
            return DateText(hostNumber);
        case DateLayout::DateTime:
            return DateTimeText(hostNumber, ' ', decimals);
        case DateLayout::Duration:
            return DurationText(hostNumber, decimals);
        case DateLayout::None:
            break;
    }
    return {};
}

double HostNumber(double documentNumber, int formatType)
{
    const DateFormatRow* row = FindConverted(formatType);
    if (!row) return documentNumber;
    if (IsUntold(documentNumber)) return kMissingValue;
    const double seconds = documentNumber * SecondsOfUnit(*row) + kSecondsTo1970;
    return std::isfinite(seconds) ? seconds : kMissingValue;
}

double DocumentNumber(double hostNumber, int formatType)
{
    const DateFormatRow* row = FindConverted(formatType);
    if (!row || IsUntold(hostNumber)) return hostNumber;
    return (hostNumber - kSecondsTo1970) / SecondsOfUnit(*row);
}

double DocumentNumber(double secondsSince1970, DateLayout layout)
{
    return layout == DateLayout::DateTime ? secondsSince1970 : secondsSince1970 / kSecondsPerDay;
}

}  // namespace refhost
