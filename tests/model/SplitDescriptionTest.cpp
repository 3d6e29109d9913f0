#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>

#include "model/HostNumberText.h"
#include "model/NOPROutputStats.h"
#include "model/NOPRTestIdentity.h"

#include "host/framework/SplitResult.h"
#include "host/pivot/BpCellText.h"
#include "host/pivot/BpPivotTable.h"

#include "refhost/data/VariableData.h"

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
    // clang-format off
    const Row rows[] = {
        {{0}, {OBS(1.0)}, "Number: one", "a labelled value"},
        {{0}, {OBS(2.0)}, "Number: 2.0", "a value in its variable's format"},
        {{1}, {OBS(0.0)}, "d: 1970-01-01", "days become the host's date; the name stands for a label"},
        {{2}, {OBS("ab    ")}, "Text: labelled", "a labelled text"},
        {{2}, {OBS("c     ")}, "Text: c", "a text without its padding"},
        {{0, 2}, {OBS(1.0), OBS("c     ")}, "Number: one,Text: c", "a comma and no blank"},
        {{0}, {OBS(MissingValue)}, "Number: .", "the missing number"},
        {{0, 1}, {OBS(1.0)}, "Number: one,d: ", "a value that is not there"},
        {{9}, {OBS(1.0)}, ": 1.00", "a variable that is not there"},
        {{}, {}, "", "no split"},
    };
    // clang-format on
    for (const Row& row : rows) {
        SCOPED_TRACE(row.why);
        bool append = true;
        EXPECT_EQ(Split(row.variables, row.values, true).fStats.SplitText(append), row.text);
        EXPECT_FALSE(append) << "a heading tells it";
        EXPECT_EQ(Split(row.variables, row.values, false).fStats.SplitText(append), row.text);
        EXPECT_EQ(append, !row.variables.empty());
    }
}

TEST(SplitHeading, TellsTheSplitOnlyWhereAHeadingIsAskedFor)
{
    CollectedOutput output;
    EXPECT_EQ(Split({0}, {OBS(1.0)}, false).fStats.SplitHeading(&output.Procedure()), nullptr);
    EXPECT_EQ(Split({}, {}, true).fStats.SplitHeading(&output.Procedure()), nullptr);
    EXPECT_EQ(Split({0}, {OBS(1.0)}, true).fStats.SplitHeading(nullptr), nullptr);
    EXPECT_EQ(NOPROutputStats().SplitHeading(&output.Procedure()), nullptr);
    EXPECT_THAT(output.Nodes(), IsEmpty());

    const Split split({0, 1}, {OBS(1.0), OBS(1.0)}, true);
    EXPECT_NE(split.fStats.SplitHeading(&output.Procedure()), nullptr);
    ASSERT_EQ(output.Nodes().size(), 1U);
    ASSERT_TRUE(output.Nodes()[0].IsHeading());
    EXPECT_EQ(output.Nodes()[0].fLabel->fShown, "Number = one, d = 1970-01-02");
}

TEST(SplitDimensions, MakeOneRowDimensionForEachVariable)
{
    CollectedOutput output;
    {
        BpPivotTable table =
            output.Procedure().PivotTable(BpString("title", false), BpString("kind", false), false);
        Split({0, 9}, {OBS(1.0)}, false).fStats.SplitDimensions(table);
    }
    const auto& dimensions = output.Table().fDimensions;
    ASSERT_EQ(dimensions.size(), 2U);
    EXPECT_EQ(dimensions[0].fTitle->fShown, "Number");
    EXPECT_EQ(dimensions[0].fSort, 0);
    EXPECT_EQ(dimensions[0].fPlace, refhost::PivotPlace::Rows);
    EXPECT_EQ(dimensions[0].fItems.at(0).fLabel->fShown, "one");
    EXPECT_EQ(dimensions[1].fTitle->fShown, "") << "no such variable";
}

TEST(HostNumber, TellsNoNumberBeyondAllNumbers)
{
    EXPECT_EQ(HostNumber(1e304, 20), MissingValue) << "seconds of so many days are not finite";
    EXPECT_EQ(HostNumber(1e304, 5), 1e304);
    EXPECT_EQ(HostNumber(MissingValue, 22), MissingValue);
}

}  // namespace
