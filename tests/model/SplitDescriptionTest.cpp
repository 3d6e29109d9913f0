#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>

#include "model/HostNumberText.h"
#include "model/NOPROutputStats.h"
#include "model/NOPRTestIdentity.h"

#include "host/framework/SplitResult.h"
#include "host/pivot/BpCellText.h"
#include "host/pivot/BpHeading.h"
#include "host/pivot/BpPivotTable.h"
#include "host/pivot/BpProcedure.h"

#include "refhost/data/VariableData.h"
#include "refhost/pivot/PivotProcedure.h"

#include "support/CollectedOutput.h"

namespace {

using testing::IsEmpty;

constexpr QORT_Format kPlain = {.fWidth = 8, .fType = 5, .fDecimals = 1};
constexpr QORT_Format kDate = {.fWidth = 10, .fType = 20, .fDecimals = 0};
constexpr QORT_Format kText = {.fWidth = 6, .fType = 1, .fDecimals = 0};

/// A labelled number, a date and a text.
std::unique_ptr<ProcedureDataSource> Source()
{
    refhost::VariableData number{"n", "Number", false, kPlain, {{OBS(1.0), "one"}}};
    refhost::VariableData date{"d", "", false, kDate, {}};
    refhost::VariableData text{"t", "Text", true, kText, {{OBS("ab    "), "labelled"}}};
    return refhost::MakeDataSource({number, date, text});
}

/// A container of one split; variables and values in step.
class Split {
public:
    Split(std::vector<int> variables, const std::vector<OBS>& values, bool asHeading)
        : fValues(values), fSource(Source())
    {
        fSplit.fSplitVariables = std::move(variables);
        for (const OBS& value : fValues)
            fSplit.fSplitValues.push_back(&value);
        fSplit.fSplitAsHeading = asHeading;
        fStats.SetDataSource(fSource.get());
        fStats.SetSplit(&fSplit);
    }

    NOPROutputStats fStats;

private:
    std::vector<OBS> fValues;
    std::unique_ptr<ProcedureDataSource> fSource;
    SplitResult fSplit;
};

TEST(SplitText, TellsVariablesAndValues)
{
    struct Row {
        std::vector<int> variables;
        std::vector<OBS> values;
        const char* text;
        const char* why;
    };
    const Row rows[] = {
        {{0}, {OBS(1.0)}, "Number: one", "a labelled value"},
        {{0}, {OBS(2.0)}, "Number: 2.0", "a value in its variable's format"},
        {{1},
         {OBS(0.0)},
         "d: 1970-01-01",
         "days become the host's date; the name stands for a label"},
        {{2}, {OBS("ab    ")}, "Text: labelled", "a labelled text"},
        {{2}, {OBS("c     ")}, "Text: c", "a text without its padding"},
        {{0, 2}, {OBS(1.0), OBS("c     ")}, "Number: one,Text: c", "a comma and no blank"},
        {{0}, {OBS(MissingValue)}, "Number: .", "the missing number"},
        {{0, 1}, {OBS(1.0)}, "Number: one,d: ", "a value that is not there"},
        {{9}, {OBS(1.0)}, ": 1.00", "a variable that is not there"},
        {{}, {}, "", "no split"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.why);
        bool append = true;
        EXPECT_EQ(Split(row.variables, row.values, true).fStats.SplitText(append), row.text);
        EXPECT_FALSE(append) << "a heading tells it";
        EXPECT_EQ(Split(row.variables, row.values, false).fStats.SplitText(append), row.text);
        EXPECT_EQ(append, !row.variables.empty());
    }
}

TEST(SplitText, IsEmptyWithoutDataOrSplit)
{
    NOPROutputStats stats;
    bool append = true;
    EXPECT_EQ(stats.SplitText(append), "");
    EXPECT_FALSE(append);
}

TEST(SplitHeading, TellsTheSplitOnlyWhereAHeadingIsAskedFor)
{
    const CollectedOutput output;
    const auto procedure = refhost::MakeProcedure(nullptr);
    EXPECT_EQ(Split({0}, {OBS(1.0)}, false).fStats.SplitHeading(procedure.get()), nullptr);
    EXPECT_EQ(Split({}, {}, true).fStats.SplitHeading(procedure.get()), nullptr);
    EXPECT_EQ(Split({0}, {OBS(1.0)}, true).fStats.SplitHeading(nullptr), nullptr);
    EXPECT_EQ(NOPROutputStats().SplitHeading(procedure.get()), nullptr);
    EXPECT_THAT(output.Nodes(), IsEmpty());

    const Split split({0, 1}, {OBS(1.0), OBS(1.0)}, true);
    EXPECT_NE(split.fStats.SplitHeading(procedure.get()), nullptr);
    ASSERT_EQ(output.Nodes().size(), 1U);
    ASSERT_TRUE(output.Nodes()[0].IsHeading());
    EXPECT_EQ(output.Nodes()[0].fLabel->fShown, "Number = one, d = 1970-01-02");
}

TEST(SplitDimensions, MakeOneRowDimensionForEachVariable)
{
    const CollectedOutput output;
    const auto procedure = refhost::MakeProcedure(nullptr);
    const auto write = [&procedure](const NOPROutputStats& stats) {
        BpPivotTable table =
            procedure->PivotTable(BpString("title", false), BpString("kind", false), false);
        stats.SplitDimensions(table);
    };
    write(Split({0, 9}, {OBS(1.0)}, false).fStats);
    write(Split({0}, {OBS(1.0)}, true).fStats);
    write(Split({}, {}, false).fStats);
    write(NOPROutputStats());

    const auto tables = output.All<refhost::TableNode>();
    ASSERT_EQ(tables.size(), 4U);
    ASSERT_EQ(tables[0]->fDimensions.size(), 2U);
    const refhost::PivotDimension& first = tables[0]->fDimensions[0];
    EXPECT_EQ(first.fTitle->fShown, "Number");
    EXPECT_EQ(first.fSort, 0);
    EXPECT_EQ(first.fPlace, refhost::PivotPlace::Rows);
    ASSERT_EQ(first.fItems.size(), 1U);
    EXPECT_EQ(first.fItems[0].fLabel->fShown, "one");
    EXPECT_EQ(tables[0]->fDimensions[1].fTitle->fShown, "") << "no such variable";
    for (std::size_t table = 1; table < tables.size(); ++table)
        EXPECT_THAT(tables[table]->fDimensions, IsEmpty()) << table;
}

TEST(HostNumberText, ConvertsDatesByTheirType)
{
    struct Row {
        double value;
        QORT_Format format;
        const char* text;
        const char* why;
    };
    // clang-format off
    const Row rows[] = {
        {2.25, {.fWidth = 3, .fType = 5, .fDecimals = 2}, "2.25", "a wide number in a narrow format"},
        {1.0, {.fWidth = 10, .fType = 20, .fDecimals = 0}, "1970-01-02", "days"},
        {1.5, {.fWidth = 10, .fType = 26, .fDecimals = 0}, "1970-01-02", "26 is among the types of days"},
        {86461.0, {.fWidth = 20, .fType = 22, .fDecimals = 0}, "1970-01-02 00:01:01", "seconds"},
        {61.0, {.fWidth = 8, .fType = 21, .fDecimals = 0}, "00:01:01", "a time is no date"},
        {MissingValue, {.fWidth = 10, .fType = 20, .fDecimals = 0}, ".", "the missing number stays"},
        {1e307, {.fWidth = 10, .fType = 20, .fDecimals = 0}, ".", "a day beyond the numbers"},
    };
    // clang-format on
    for (const Row& row : rows) {
        SCOPED_TRACE(row.why);
        QORT_Format format = row.format;
        EXPECT_EQ(HostNumberText(row.value, format), row.text);
        EXPECT_EQ(format.fWidth, 40) << "in the caller's copy too";
    }
}

TEST(HostNumber, TellsNoNumberBeyondAllNumbers)
{
    EXPECT_EQ(HostNumber(1e304, 20), MissingValue) << "seconds of so many days are not finite";
    EXPECT_EQ(HostNumber(1e304, 5), 1e304);
    EXPECT_EQ(HostNumber(MissingValue, 22), MissingValue);
}

TEST(WithoutBlanks, TakesBlanksFromTheEndsOnly)
{
    EXPECT_EQ(WithoutBlanks("  a b  "), "a b");
    EXPECT_EQ(WithoutBlanks("\ta "), "\ta");
    EXPECT_EQ(WithoutBlanks("   "), "");
    EXPECT_EQ(WithoutBlanks(""), "");
}

}  // namespace
