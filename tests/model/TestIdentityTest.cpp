#include "model/NOPRTestIdentity.h"

#include <gtest/gtest.h>

#include <climits>
#include <limits>

#include "model/NOPROutputStats.h"
#include "model/Positions.h"

namespace {

using Stats = NOPROutputStats;

TEST(TestKinds, KeepATestExactlyWhereItHasARecord)
{
    for (const TestKindRow& row : TestKinds()) {
        SCOPED_TRACE(row.fName);
        Stats stats;
        const auto* test = stats.CreateTest(sample::kOne, row.fKind, decision::kRetain);
        EXPECT_EQ(test != nullptr, row.fTitle != "Unknown");
        const bool isInterval = row.fKind == 5 || row.fKind == 18 || row.fKind == 19;
        EXPECT_EQ(stats.GetIntervalTests().size(), isInterval ? 1U : 0U);
        EXPECT_EQ(stats.GetTests().size(), test && !isInterval ? 1U : 0U);
    }
    for (const TestKind beyond : {INT_MIN, -1, 0, 27, INT_MAX})
        EXPECT_EQ(Stats().CreateTest(sample::kOne, beyond, 0), nullptr) << beyond;
}

TEST(TestTitle, IsUnknownWithoutARecord)
{
    for (const TestKind testKind : {-1, 0, 7, 10, 27, std::numeric_limits<int>::max()})
        EXPECT_EQ(TestTitle(testKind), "Unknown") << testKind;
    EXPECT_EQ(TestTitle(18), "Related-Samples Hodges-Lehman Median Difference");
}

TEST(Vocabularies, CompareToTheLetterAndHaveTheirOwnDefaults)
{
    EXPECT_EQ(SampleKindFromName("independent_samples"), 0);
    EXPECT_EQ(DecisionFromName("retain "), 0);
    EXPECT_EQ(MessageTypeFromName("Warning"), message::kHelp);
    EXPECT_EQ(FieldTypeFromName("Ordinal"), 6);
    EXPECT_EQ(StorageTypeFromName("String"), 0);
    EXPECT_EQ(StorageTypeFromName("float"), StorageTypeFromName("double"));
    EXPECT_EQ(StorageTypeFromName("date"), 4);
}

TEST(CutToInt, CutsTowardZeroAndClamps)
{
    EXPECT_EQ(CutToInt(-2.9), -2);
    EXPECT_EQ(CutToInt(2.9), 2);
    EXPECT_EQ(CutToInt(2147483646.5), 2147483646);
    EXPECT_EQ(CutToInt(1e300), std::numeric_limits<int>::max());
    EXPECT_EQ(CutToInt(MissingValue), std::numeric_limits<int>::min());
    EXPECT_EQ(CutToInt(std::numeric_limits<double>::quiet_NaN()), 0);
}

}  // namespace
