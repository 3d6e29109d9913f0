#include "refhost/chart/ChartData.h"

#include <gtest/gtest.h>

#include <limits>
#include <stdexcept>

#include "support/CollectedOutput.h"

using refhost::ChartValue;

TEST(ChartData, KeepsDeclaredColumnsRowByRow)
{
    VarDataProcessor data;
    VarDataProcessor::_varinfo info;
    data.AddDataSource("s", 0);
    data.AddVariable("s", "a", nullptr);
    data.AddVariable("s", "b", &info);
    data.SetVariableValue("s", "a", 0, 1.5);
    data.SetVariableValue(&info, 2, 2.5);
    data.SetStringVariableValue("s", "a", 2, "text");

    const auto& source = data.GetImpl().Sources()[0];
    EXPECT_EQ(source.fRows, 3u);
    const std::vector<ChartValue> first{1.5, {}, std::string("text")};
    const std::vector<ChartValue> second{{}, {}, 2.5};
    EXPECT_EQ(source.fColumns[0].fValues, first);
    EXPECT_EQ(source.fColumns[1].fValues, second);
}

TEST(ChartData, PassesOverWhatItCannotPlace)
{
    VarDataProcessor data;
    data.SetVariableValue("s", "a", 0, 1);
    data.AddVariable("s", "a", nullptr);
    data.AddDataSource("s", 0);
    data.AddVariable("s", "a", nullptr);
    data.AddVariable("s", "a", nullptr);
    data.AddDataSource("s", 0);
    data.SetVariableValue("s", "b", 0, 1);
    data.SetVariableValue("t", "a", 0, 1);
    data.SetVariableValue("s", "a", -1, 1);
    data.SetVariableValue("s", "a", std::numeric_limits<int>::max(), 1);
    data.SetVariableValue(nullptr, 0, 1);
    data.SetVariableValue(nullptr, "a", 0, 1);

    ASSERT_EQ(data.GetImpl().Sources().size(), 1u);
    ASSERT_EQ(data.GetImpl().Sources()[0].fColumns.size(), 1u);
    EXPECT_TRUE(data.GetImpl().Sources()[0].fColumns[0].fValues.empty());
    EXPECT_EQ(data.GetImpl().Sources()[0].fRows, 0u);
}

TEST(ChartData, LeavesAChartOutWhoseTextsHaveNoEnd)
{
    const CollectedOutput output;
    VarDataProcessor data;
    data.AddDataSource("s", 0);
    data.AddVariable("s", "a", nullptr);
    const std::string megabyte(1U << 20U, 'x');
    int row = 0;
    for (; row < 64; ++row)
        data.SetStringVariableValue("s", "a", row, megabyte);
    EXPECT_TRUE(output.All<refhost::ErrorNode>().empty());
    EXPECT_THROW(data.SetStringVariableValue("s", "a", row, megabyte), std::length_error);
    EXPECT_EQ(output.All<refhost::ErrorNode>().size(), 1u);
    for (; row < 1000; ++row)
        EXPECT_NO_THROW(data.SetStringVariableValue("s", "a", row, "a label"));
}
