#include <gtest/gtest.h>

#include "support/DocumentBuilder.h"
#include "support/Reading.h"

namespace {

using Stats = NOPROutputStats;

/// Tables within tables, as deep as asked.
std::string Nested(std::size_t depth)
{
    const std::string open = "<StructuredTable name=\"Group\">";
    const std::string close = "</StructuredTable>";
    std::string nested;
    for (std::size_t level = 0; level < depth; ++level)
        nested += open;
    for (std::size_t level = 0; level < depth; ++level)
        nested += close;
    return nested;
}

std::string WithNested(std::size_t depth)
{
    const Element test = Algorithm("IMoses", "retain", {StructuredTable("BoxPlotInfo")});
    return Replaced(
        DocumentBuilder().AddTest(test).Text(), "<StructuredTable name=\"BoxPlotInfo\"/>",
        "<StructuredTable name=\"BoxPlotInfo\">" + Nested(depth) + "</StructuredTable>");
}

TEST(Read, BoundsTheDepthOfTables)
{
    EXPECT_TRUE(Reading(WithNested(900)).fRead);
    EXPECT_FALSE(Reading(WithNested(1000)).fRead);
    EXPECT_FALSE(Reading(WithNested(200000)).fRead);
}

TEST(Read, TakesLongListsAndManyElementsInOnePass)
{
    std::vector<double> numbers(200000, 1.25);
    Children parameters;
    for (int index = 0; index < 20000; ++index)
        parameters.push_back(Attribute("%99999999999", "1"));
    const Reading reading(
        DocumentBuilder()
            .AddTest(Algorithm("OChiSquare", "retain", {Condition("key", {numbers}, parameters)}))
            .Text());
    ASSERT_TRUE(reading.fRead);
    const Stats::ConditionData& condition = reading.fStats.GetTest(0U)->fCondition;
    ASSERT_EQ(condition.fParameters.size(), 20001U);
    EXPECT_EQ(condition.fParameters[0].fValues, numbers);
    EXPECT_EQ(condition.fParameters.back().fIndex, std::numeric_limits<int>::max());
}

TEST(Read, SurvivesEveryPrefixOfADocument)
{
    const std::string document =
        DocumentBuilder()
            .AddField({.name = "x", .values = {{"1", "one"}, {"2", "two"}}})
            .AddField({.name = "g"})
            .AddTest(Algorithm(
                "IMedian", "reject",
                {Condition("key", {{0}, {1}}), WarningMessages({{.code = 1, .parameters = {{2}}}}),
                 Statistics({{"TotalN", 5}}, {{"Block", {{"Sig", 0.5}}}}),
                 BoxPlotInfo(1, 2.5, {{.value = 0, .n = 3, .box = {1, 2, 3, 4, 5}}}),
                 PairwiseResult({{0, 1}, {1, 2}}, {{0, 1, 2, 3, 4, 5, 6}}, 1)}))
            .AddFieldInfo({.field = 0, .numbers = {{"TotalN", 5}}})
            .Text();
    ASSERT_TRUE(Reading(document).fRead);
    for (std::size_t length = 0; length < document.size(); ++length)
        EXPECT_FALSE(Reading(document.substr(0, length)).fRead) << length;
}

}  // namespace
