#include "charts/Dates.h"

#include <algorithm>

#include "model/HostNumberText.h"

namespace {

constexpr int kDate = 20;  // a format type whose values count days
constexpr int kTimeOfDay = 21;
constexpr int kAxisTypes[] = {20, kTimeOfDay, 22, 23, 24, 26, 27, 28, 29, 30, 38, 39, 86};

}  // namespace

bool IsDateOnAxis(int formatType) { return std::ranges::count(kAxisTypes, formatType) != 0; }

bool IsSpreadOfDates(int formatType)
{
    return IsDateOnAxis(formatType) && formatType != kTimeOfDay;
}

double HostSecondsFromDays(double days) { return HostNumber(days, kDate); }
