#include "model/NOPROutputStats.h"

#include <gtest/gtest.h>

#include <climits>

#include "model/NOPRTestRecords.h"
#include "model/RecordOf.h"

#include "refhost/data/VariableData.h"

namespace {

using Stats = NOPROutputStats;

TEST(CreateTest, StoresWhatItIsGivenInARecordOfItsOwnType)
{
    Stats stats;
    auto* test = stats.CreateTest(sample::kIndependent, kind::kMedian, decision::kReject);
    ASSERT_NE(test, nullptr);
    EXPECT_EQ(test->fSampleKind, sample::kIndependent);
    EXPECT_EQ(test->fTestKind, kind::kMedian);
    EXPECT_EQ(test->fDecision, decision::kReject);
    EXPECT_NE(RecordOf<Stats::HTIMedian>(test), nullptr);
    EXPECT_EQ(RecordOf<Stats::HTIKruskalWallis>(test), nullptr);
    EXPECT_EQ(stats.GetTest(0U), test);
}

TEST(CreateTest, MakesNothingForAKindWithoutARecord)
{
    Stats stats;
    for (const TestKind testKind : {INT_MIN, -1, 0, 7, 8, 9, 10, 27, INT_MAX})
        EXPECT_EQ(stats.CreateTest(sample::kOne, testKind, 0), nullptr) << testKind;
    EXPECT_TRUE(stats.GetTests().empty());
    EXPECT_TRUE(stats.GetIntervalTests().empty());
}

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
    struct Row {
        const char* valueName;
        const char* blockName;
        bool found;
        double out;
        const char* why;
    };
    for (const Row& row : {Row{"TotalN", "", true, 10, "the first of the name"},
                           Row{"Later", "", false, -1, "a later block of the name is not tried"},
                           Row{"Lower", "Bounds", false, -1, "nor is it here"},
                           Row{"", "", true, 10, "the empty name takes the first number"},
                           Row{"", "Bounds", true, -1, "an empty block counts as found"},
                           Row{"", "Other", false, -1, "no such block"},
                           Row{"totaln", "", false, -1, "case counts"}}) {
        SCOPED_TRACE(row.why);
        double out = -1;
        EXPECT_EQ(test.GetStatistic(out, row.valueName, row.blockName), row.found);
        EXPECT_EQ(out, row.out);
    }
    double out = -1;
    EXPECT_FALSE(Stats::HTOChiSquare().GetStatistic(out, "", ""));
}

}  // namespace
