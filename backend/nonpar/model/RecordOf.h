#pragma once

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
