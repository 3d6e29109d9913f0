#include "model/NOPROutputStats.h"

#include <gtest/gtest.h>

#include <climits>

#include "model/NOPRTestRecords.h"

#include "refhost/data/VariableData.h"

#include "support/Cases.h"

namespace {

using Stats = NOPROutputStats;

TEST(Container, AnswersNullForIndicesThatNameNothing)
{
    Stats stats;
    EXPECT_EQ(stats.GetFieldInfo(0U), nullptr);
    stats.CreateTest(sample::kRelated, kind::kHodgesLehmannPairs, 0);
    EXPECT_EQ(stats.GetTest(0U), nullptr) << "an interval stands in its own list";
    EXPECT_NE(stats.GetIntervalTest(0U), nullptr);
    EXPECT_EQ(stats.GetIntervalTest(1U), nullptr);
    EXPECT_EQ(stats.GetIntervalTest(static_cast<unsigned>(-1)), nullptr);
}

TEST(Container, FindsVariablesAndValuesOfFieldsOnlyWhereBothExist)
{
    refhost::VariableData data;
    data.fName = "x";
    const auto source = refhost::MakeDataSource({data});
    Stats stats;
    FieldInfoData* field = stats.AddFieldInfo();
    field->fVariable = source->GetVariable(0);
    field->fValues.resize(2);
    stats.AddFieldInfo();

    EXPECT_EQ(stats.FieldVariable(0), source->GetVariable(0));
    EXPECT_EQ(stats.FieldValueAt(0, 1), &field->fValues[1].fValue);
    for (const int index : {INT_MIN, -1, 1, 2, INT_MAX}) {
        SCOPED_TRACE(index);
        EXPECT_EQ(stats.FieldVariable(index), nullptr);
        EXPECT_EQ(stats.FieldValueAt(index, 0), nullptr);
    }
    for (const int valueIndex : {INT_MIN, -1, 2, INT_MAX})
        EXPECT_EQ(stats.FieldValueAt(0, valueIndex), nullptr) << valueIndex;
}

TEST(GetStatistic, SearchesTheFirstBlockOfTheNameOnly)
{
    Stats::HTOChiSquare test;
    test.fStatistics = {{"", {{"TotalN", 10}, {"TotalN", 11}}},
                        {"Bounds", {}},
                        {"Bounds", {{"Lower", 1}}},
                        {"", {{"Later", 5}}}};
    using Found = std::pair<bool, double>;
    // clang-format off
    ExpectEach<std::pair<const char*, const char*>, Found>({
        {{"TotalN", ""}, {true, 10}, "the first of the name"},
        {{"Later", ""}, {false, -1}, "a later block of the name is not tried"},
        {{"Lower", "Bounds"}, {false, -1}, "nor is it here"},
        {{"", ""}, {true, 10}, "the empty name takes the first number"},
        {{"", "Bounds"}, {true, -1}, "an empty block counts as found"},
        {{"", "Other"}, {false, -1}, "no such block"},
        {{"totaln", ""}, {false, -1}, "case counts"},
    }, [&test](const char* valueName, const char* blockName) {
        Found found = {false, -1};
        found.first = test.GetStatistic(found.second, valueName, blockName);
        return found;
    });
    // clang-format on
}

}  // namespace
