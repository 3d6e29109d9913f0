#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/Cases.h"
#include "support/DocumentBuilder.h"
#include "support/Reading.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Stats = NOPROutputStats;

/// A document of one chi-square test with these tables.
std::string ChiSquare(const Children& tables)
{
    return DocumentBuilder().AddTest(Algorithm("OChiSquare", "retain", tables)).Text();
}

TEST(ReadCondition, TakesKeyAndParametersInDocumentOrder)
{
    const Reading reading(ChiSquare({StructuredTable(
        "Condition", {Attribute("%2", "5"), Attribute("ConditionKey", "a key"),
                      Attribute("%0", "1 __MISSING__ 3"), Attribute("Further", "7"),
                      Attribute("%", ""), Attribute("%x", "1")})}));
    const Stats::ConditionData& condition = reading.fStats.GetTest(0U)->fCondition;
    EXPECT_EQ(condition.fConditionKey, "a key");
    ASSERT_EQ(condition.fParameters.size(), 4U);
    EXPECT_EQ(condition.fParameters[0].fIndex, 2);
    EXPECT_EQ(condition.fParameters[1].fIndex, 0);
    EXPECT_THAT(condition.fParameters[1].fValues, ElementsAre(1, MissingValue, 3));
    EXPECT_EQ(condition.fParameters[2].fIndex, 0) << "no number behind the mark";
    EXPECT_THAT(condition.fParameters[2].fValues, IsEmpty());
    EXPECT_THAT(reading.fReports, IsEmpty()) << "unknown names of a condition are skipped";
}

TEST(ReadCondition, MarksOrdinalFieldsForTheWholeSplit)
{
    const Reading reading(
        DocumentBuilder()
            .AddField({.name = "a"})
            .AddField({.name = "b"})
            .AddField({.name = "c"})
            .AddTest(Algorithm("OChiSquare", "retain"))
            .AddTest(Algorithm(
                "OBinomial", "retain",
                {Condition("", {}, {Attribute("OrdinalTreatedAsCont", "2 0 -1 3 99999999999")})}))
            .Text());
    ASSERT_TRUE(reading.fRead) << "indices without a record are passed over";
    EXPECT_TRUE(reading.fStats.GetFieldInfo(0U)->fOrdinalAsContinuous);
    EXPECT_FALSE(reading.fStats.GetFieldInfo(1U)->fOrdinalAsContinuous);
    EXPECT_TRUE(reading.fStats.GetFieldInfo(2U)->fOrdinalAsContinuous);
    EXPECT_THAT(reading.fStats.GetTest(1U)->fCondition.fOrdinalFields,
                ElementsAre(2, 0, -1, 3, std::numeric_limits<int>::max()));
}

TEST(ReadMessages, TakesOneMessageForEachNestedTable)
{
    const Reading reading(
        ChiSquare({WarningMessages({{.code = 222301, .type = "warning", .parameters = {{5, 6}, {}}},
                                    {.code = 222328, .group = "0;1"},
                                    {.code = 3, .type = "Warning"}})}));
    ASSERT_TRUE(reading.fRead);
    const auto& messages = reading.fStats.GetTest(0U)->fMessages;
    ASSERT_EQ(messages.size(), 3U);
    EXPECT_EQ(messages[0].fCode, 222301);
    EXPECT_EQ(messages[0].fType, message::kWarning);
    EXPECT_EQ(messages[0].fCount, 2);
    EXPECT_THAT(messages[0].fParameters[0].fValues, ElementsAre(5, 6));
    EXPECT_THAT(messages[0].fParameters[1].fValues, IsEmpty());
    EXPECT_EQ(messages[1].fType, message::kError);
    EXPECT_EQ(messages[1].fGroup, "0;1");
    EXPECT_EQ(messages[2].fType, message::kHelp) << "an unknown type is a help message";
}

TEST(ReadMessages, FailsWhereTheCountIsNotThatOfTheParameters)
{
    // clang-format off
    ExpectEach<Children, bool>({
        {{}, true, "none announced, none there"},
        {{Attribute("%0", "1"), Attribute("paramNum", "1")}, true, "in any order"},
        {{Attribute("%0", "1")}, false, "one that is not announced"},
        {{Attribute("paramNum", "2"), Attribute("%0", "1")}, false, "one too few"},
        {{Attribute("paramNum", "-1")}, false, "a negative count"},
        {{Attribute("paramNum", "4294967296")}, false, "a count beyond 32 bits"},
        {{Attribute("value", "1"), Element("Attribute")}, false, "an attribute without a name"},
    }, [](const Children& attributes) {
        const Element message = StructuredTable("M", attributes);
        return Reading(ChiSquare({StructuredTable("WarningMessages", {message})})).fRead;
    });
    // clang-format on
}

TEST(ReadAlgorithm, ReadsACommonTableTwice)
{
    const Element messages = WarningMessages({{.code = 1}, {.code = 2}});
    const Element statistics = Statistics({{"TotalN", 1}});
    const Reading reading(
        ChiSquare({Condition("first", {{1}}), messages, statistics, Condition("second", {{2}}),
                   WarningMessages({{.code = 3}}), statistics}));
    ASSERT_TRUE(reading.fRead);
    const auto& test = *reading.fStats.GetTest(0U);
    EXPECT_EQ(test.fCondition.fConditionKey, "second");
    EXPECT_EQ(test.fCondition.fParameters.size(), 2U) << "appended";
    EXPECT_EQ(test.fStatistics.size(), 2U) << "appended";
    ASSERT_EQ(test.fMessages.size(), 1U) << "the list gets its new size";
    EXPECT_EQ(test.fMessages[0].fCode, 3);

    const Element filled = WarningMessages({{.code = 1, .parameters = {{1}}}});
    EXPECT_FALSE(Reading(ChiSquare({filled, filled})).fRead) << "the parameters are there twice";
}

TEST(ReadStatistics, PartsRunsAndNamedBlocks)
{
    const Reading reading(ChiSquare({StructuredTable(
        "StatisticsResult",
        {Attribute("TotalN", "10"), SimpleTable("passed over", "", "", {}), Attribute("Sig", "0.5"),
         StructuredTable("Bounds", {Attribute("Lower", "1"), StructuredTable("deeper")}),
         Attribute("Last", "x"), StructuredTable("Empty")})}));
    ASSERT_TRUE(reading.fRead);
    const auto& blocks = reading.fStats.GetTest(0U)->fStatistics;
    ASSERT_EQ(blocks.size(), 4U);
    EXPECT_EQ(blocks[0].fName, "");
    ASSERT_EQ(blocks[0].fValues.size(), 2U) << "a simple table does not end a run";
    EXPECT_EQ(blocks[0].fValues[1].fName, "Sig");
    EXPECT_EQ(blocks[0].fValues[1].fValue, 0.5);
    EXPECT_EQ(blocks[1].fName, "Bounds");
    EXPECT_EQ(blocks[1].fValues.size(), 1U);
    EXPECT_EQ(blocks[2].fName, "") << "a named block ends a run";
    EXPECT_TRUE(IsMissing(blocks[2].fValues[0].fValue)) << "a text that is no number";
    EXPECT_EQ(blocks[3].fName, "Empty");
    EXPECT_THAT(blocks[3].fValues, IsEmpty());
}

/// A document of Kolmogorov-Smirnov tests, each with these tables.
Reading KolmogorovSmirnov(const std::vector<Children>& tests)
{
    DocumentBuilder builder;
    for (const Children& tables : tests)
        builder.AddTest(Algorithm("OKolmogorovSmirnov", "retain", tables));
    return Reading(builder.Text());
}

const Stats::HTOKolmogorovSmirnov& TestAt(const Reading& reading, unsigned index)
{
    return *RecordOf<Stats::HTOKolmogorovSmirnov>(reading.fStats.GetTest(index));
}

TEST(ReadStatistics, TakesALowerBoundFromItsMark)
{
    // clang-format off
    ExpectEach<Children, std::pair<bool, double>>({
        {{Attribute("Sig", ">0.2")}, {true, 0.2}, "the mark is dropped"},
        {{Attribute("Sig", "0.2")}, {false, 0.2}, "no mark"},
        {{Attribute("Sig", " >0.2")}, {false, MissingValue}, "not the first character"},
        {{Attribute("Sig", ">")}, {true, MissingValue}, "nothing behind it"},
        {{StructuredTable("B", {Attribute("Sig", ">0.2")})}, {false, MissingValue}, "no mark in a named block"},
    }, [](const Children& children) {
        const Reading reading = KolmogorovSmirnov({{StructuredTable("StatisticsResult", children)}});
        const auto& test = TestAt(reading, 0);
        return std::pair(test.fHasLowerBoundSig, test.fStatistics.at(0).fValues.at(0).fValue);
    });
    // clang-format on
}

TEST(FinishTest, CarriesTheFlagsOverTestsWithoutTheirTables)
{
    const Element fromSample = Condition("", {}, {Attribute("isUseSample", "true")});
    const Element bound = StructuredTable("StatisticsResult", {Attribute("Sig", ">0.2")});
    const Reading reading =
        KolmogorovSmirnov({{fromSample, bound},
                           {},
                           {Condition("", {}, {Attribute("isUseSample", "True")})},
                           {StructuredTable("StatisticsResult"), fromSample},
                           {Condition("", {})}});
    EXPECT_TRUE(TestAt(reading, 0).fIsUseSample);
    EXPECT_TRUE(TestAt(reading, 0).fHasLowerBoundSig);
    EXPECT_TRUE(TestAt(reading, 1).fIsUseSample) << "only a condition clears it";
    EXPECT_TRUE(TestAt(reading, 1).fHasLowerBoundSig);
    EXPECT_FALSE(TestAt(reading, 2).fIsUseSample) << "case counts";
    EXPECT_TRUE(TestAt(reading, 2).fHasLowerBoundSig);
    EXPECT_FALSE(TestAt(reading, 3).fHasLowerBoundSig) << "statistics clear it";
    EXPECT_TRUE(TestAt(reading, 3).fIsUseSample);
    EXPECT_FALSE(TestAt(reading, 4).fIsUseSample) << "a condition without the word clears it";
}

TEST(ReadValsNotInCategories, TakesTheValuesOfAllAttributes)
{
    const Reading reading(ChiSquare({StructuredTable(
        "ValsNotInTheCategoreis", {Attribute("Value0", "a & <b>"), Element("Attribute"),
                                   Element("Attribute").Set("value", "nameless")})}));
    ASSERT_TRUE(reading.fRead) << "no names are needed here";
    EXPECT_THAT(reading.fStats.GetTest(0U)->fValsNotInCategories,
                ElementsAre("a & <b>", "", "nameless"));
}

TEST(ReadAlgorithm, KeepsWhatCameBeforeAFault)
{
    const Element nameless("Attribute");
    const auto testOf = [&](const Reading& reading) -> const Stats::BaseHypothesisTest& {
        EXPECT_FALSE(reading.fRead);
        return *reading.fStats.GetTest(0U);
    };
    const Reading condition(
        ChiSquare({StructuredTable("Condition", {Attribute("ConditionKey", "a key"), nameless})}));
    EXPECT_EQ(testOf(condition).fCondition.fConditionKey, "a key");
    const Reading statistics(
        ChiSquare({StructuredTable("StatisticsResult", {Attribute("TotalN", "7"), nameless})}));
    double count = 0;
    EXPECT_TRUE(testOf(statistics).GetStatistic(count, "TotalN", ""));
    EXPECT_EQ(count, 7);
    const Reading messages(ChiSquare({StructuredTable(
        "WarningMessages",
        {StructuredTable("0", {Attribute("code", "5"), Attribute("paramNum", "0")}), nameless})}));
    ASSERT_EQ(testOf(messages).fMessages.size(), 1U);
    EXPECT_EQ(testOf(messages).fMessages[0].fCode, 5);
}

}  // namespace
