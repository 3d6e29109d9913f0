#include "model/NOPRTestRecords.h"

#include <algorithm>

NOPROutputStats::BaseHypothesisTest::~BaseHypothesisTest() = default;

bool NOPROutputStats::BaseHypothesisTest::GetStatistic(double& out, const std::string& valueName,
                                                       const std::string& blockName) const
{
    const auto block = std::ranges::find(fStatistics, blockName, &StatisticResult::fName);
    if (block == fStatistics.end()) return false;

    const auto value = valueName.empty()
                           ? block->fValues.begin()
                           : std::ranges::find(block->fValues, valueName, &NamedValue::fName);
    if (value == block->fValues.end()) return valueName.empty();
    out = value->fValue;
    return true;
}
