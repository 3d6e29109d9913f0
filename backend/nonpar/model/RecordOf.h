#pragma once

#include <limits>

#include "model/NOPRTestRecords.h"

/// The record as its own type; null where there is none or it is of another type.
template <class Record>
const Record* RecordOf(const NOPROutputStats::BaseHypothesisTest* test)
{
    return dynamic_cast<const Record*>(test);
}

template <class Record>
Record* RecordOf(NOPROutputStats::BaseHypothesisTest* test)
{
    return dynamic_cast<Record*>(test);
}

/// Cuts a double toward 0, clamped to 32 bits; a NaN gives 0.
constexpr int CutToInt(double value)
{
    constexpr double kLowest = std::numeric_limits<int>::min();
    constexpr double kHighest = std::numeric_limits<int>::max();
    if (value != value) return 0;
    if (value <= kLowest) return std::numeric_limits<int>::min();
    if (value >= kHighest) return std::numeric_limits<int>::max();
    return static_cast<int>(value);
}
