#include "model/NOPRTestIdentity.h"

#include <gtest/gtest.h>

#include <limits>

#include "model/NOPROutputStats.h"
#include "model/RecordOf.h"

namespace {

using Stats = NOPROutputStats;

TEST(TestKinds, HaveOneRowForEachKindInOrder)
{
    ASSERT_EQ(TestKinds().size(), 26U);
    for (int position = 0; position < 26; ++position)
        EXPECT_EQ(TestKinds()[static_cast<std::size_t>(position)].fKind, position + 1);
}

TEST(TestKinds, KeepATestExactlyWhereItHasARecord)
{
    for (const TestKindRow& row : TestKinds()) {
        SCOPED_TRACE(row.fName);
        Stats stats;
        const auto* test = stats.CreateTest(sample::kOne, row.fKind, decision::kRetain);
        EXPECT_EQ(test != nullptr, row.fKeptIn != TestList::None);
        EXPECT_EQ(stats.GetTests().size(), row.fKeptIn == TestList::Tests ? 1U : 0U);
        EXPECT_EQ(stats.GetIntervalTests().size(),
                  row.fKeptIn == TestList::IntervalTests ? 1U : 0U);
        EXPECT_EQ(row.fTitle == "Unknown", row.fKeptIn == TestList::None);
    }
}

TEST(TestKindFromName, ComparesTheWholeName)
{
    EXPECT_EQ(TestKindFromName("OKolmogorovSmirnov"), 6);
    EXPECT_EQ(TestKindFromName("OKolmogorovSmirnovNormal"), 7) << "begins with another name";
    EXPECT_EQ(TestKindFromName("omedian"), 0);
    EXPECT_EQ(TestKindFromName(""), 0);
}

TEST(TestTitle, IsUnknownWithoutARecord)
{
    for (const TestKind testKind : {-1, 0, 7, 10, 27, std::numeric_limits<int>::max()})
        EXPECT_EQ(TestTitle(testKind), "Unknown") << testKind;
    EXPECT_EQ(TestTitle(18), "Related-Samples Hodges-Lehman Median Difference");
}

TEST(Vocabularies, CompareToTheLetterAndHaveTheirOwnDefaults)
{
    struct Row {
        const char* text;
        SampleKind sampleKind;
        Decision decided;
        MessageType messageType;
        int fieldType;
        int storageType;
    };
    // clang-format off
    const Row rows[] = {
        {"One_Sample",          1, 0, 2, 6, 0},
        {"Related_Samples",     2, 0, 2, 6, 0},
        {"Independent_Samples", 3, 0, 2, 6, 0},
        {"independent_samples", 0, 0, 2, 6, 0},
        {"reject",              0, 1, 2, 6, 0},
        {"retain",              0, 2, 2, 6, 0},
        {"retain ",             0, 0, 2, 6, 0},
        {"error",               0, 0, 0, 6, 0},
        {"warning",             0, 0, 1, 6, 0},
        {"Warning",             0, 0, 2, 6, 0},
        {"continuous",          0, 0, 2, 0, 0},
        {"categorical",         0, 0, 2, 1, 0},
        {"ordinal",             0, 0, 2, 2, 0},
        {"integer",             0, 0, 2, 6, 1},
        {"double",              0, 0, 2, 6, 2},
        {"float",               0, 0, 2, 6, 2},
        {"string",              0, 0, 2, 6, 3},
        {"date",                0, 0, 2, 6, 4},
        {"",                    0, 0, 2, 6, 0},
    };
    // clang-format on
    for (const Row& row : rows) {
        SCOPED_TRACE(row.text);
        EXPECT_EQ(SampleKindFromName(row.text), row.sampleKind);
        EXPECT_EQ(DecisionFromName(row.text), row.decided);
        EXPECT_EQ(MessageTypeFromName(row.text), row.messageType);
        EXPECT_EQ(FieldTypeFromName(row.text), row.fieldType);
        EXPECT_EQ(StorageTypeFromName(row.text), row.storageType);
    }
}

TEST(IsMissing, KnowsOneNumberOnly)
{
    EXPECT_TRUE(IsMissing(std::numeric_limits<double>::lowest()));
    EXPECT_FALSE(IsMissing(0.0));
    EXPECT_FALSE(IsMissing(-1e308));
    EXPECT_FALSE(IsMissing(std::numeric_limits<double>::quiet_NaN()));
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
