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

double HostNumber(double documentNumber, int formatType)
{
    const DateFormatRow* row = FindDateFormat(formatType);
    if (!row || row->fUnit == DocumentUnit::AsHost) return documentNumber;
    if (IsUntold(documentNumber)) return kMissingValue;
    const double factor = row->fUnit == DocumentUnit::DaysSince1970 ? kSecondsPerDay : 1.0;
    const double seconds = documentNumber * factor + kSecondsTo1970;
    return std::isfinite(seconds) ? seconds : kMissingValue;
}

double DocumentNumber(double secondsSince1970, DateLayout layout)
{
    return layout == DateLayout::DateTime ? secondsSince1970 : secondsSince1970 / kSecondsPerDay;
}

}  // namespace refhost
