#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/ViewRecorder.h"
#include "views/related/RSCochransQ.h"
#include "views/related/RSMcNemarChangeTestView.h"
#include "views/related/RelatedSamples.h"

#include "model/NOPRTestRecords.h"

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;
using Rows = std::vector<std::vector<double>>;

class RelatedViews : public testing::Test {
protected:
    template <class Record>
    Record& AddTest(TestKind testKind)
    {
        fRecorder.Stats().GetTests().clear();
        return dynamic_cast<Record&>(
            *fRecorder.Stats().CreateTest(sample::kRelated, testKind, decision::kRetain));
    }

    std::optional<refhost::ChartNode> Draw(const std::string& splitText = "")
    {
        return fRecorder.Draw([&] {
            RelatedSamples(fRecorder.Dictionary(), &fRecorder.Stats())
                .DrawTest(fRecorder.Stats().GetTest(0), splitText, false);
        });
    }

    ViewRecorder fRecorder;
};

// --- Cochran -------------------------------------------------------------------------------------

TEST_F(RelatedViews, CochranNamesBarsAndSegmentsByTheFields)
{
    fRecorder.AddField({.fName = "a", .fLabel = "First"}, {{"0", "no"}, {"1", ""}});
    FieldInfoData& text = fRecorder.AddField({.fName = "b", .fFormat = FormatOf(1, 4, 0)},
                                             {{"x", "x"}, {"y", "why"}, {"z", ""}});
    fRecorder.AddField({.fName = "c"}, {{"0", "no"}});
    fRecorder.Stats().GetFieldInfo(0)->fIsCategorical = true;
    text.fIsCategorical = true;
    RSCochransQ view(fRecorder.Dictionary(), &fRecorder.Stats(), nullptr);

    EXPECT_EQ(view.SeriesLabel("0"), "First");
    EXPECT_EQ(view.SeriesLabel("not a number"), "First") << "reads as 0";
    EXPECT_EQ(view.SeriesLabel("+-1"), "First") << "two signs are no number either";
    EXPECT_EQ(view.SeriesLabel("3"), "3");
    EXPECT_EQ(view.SeriesLabel("99999999999999999999"), "99999999999999999999");

    struct Row {
        const char* reason;
        const char* row;
        const char* column;
        const char* label;
    };
    for (const Row& row : {
             Row{"a label", "0", "0", "no"},
             Row{"a number without a label", "0", "1", "1"},
             Row{"a position beyond the values", "0", "2", "2"},
             Row{"a negative position", "0", "-1", "-1"},
             Row{"a label equal to the trimmed value", "1", "0", "0"},
             Row{"a label unlike the value", "1", "1", "why"},
             Row{"a text without a label, trimmed", "1", "2", "z"},
             Row{"a field that isn't categorical", "2", "0", "0"},
             Row{"a field beyond the last", "9", "0", "0"},
         }) {
        SCOPED_TRACE(row.reason);
        EXPECT_EQ(view.CategoryLabel(row.row, row.column, false), row.label);
        EXPECT_EQ(view.CategoryLabel(row.row, row.column, true), row.label);
    }
}

TEST_F(RelatedViews, CochranDrawsWithoutATitleOfTheLegend)
{
    fRecorder.AddField({.fName = "a"}, {{"0", "no"}, {"1", "yes"}}).fIsCategorical = true;
    fRecorder.SetTemplate("NPARStackedBar.viztemplate", "<v><legend>LegendLabel</legend></v>");
    auto& test = AddTest<NOPROutputStats::HTRCochransQ>(kind::kCochran);
    test.fTable.fRowNames = {"0"};
    test.fTable.fColumnNames = {"0", "1"};
    test.fTable.fRows = {{25, 75}};
    const auto chart = Draw();
    ASSERT_TRUE(chart);
    EXPECT_EQ(chart->fText, "<v><legend></legend></v>");
    EXPECT_THAT(CallLines(*chart),
                Contains("XGraph.setTitle \"Related-Samples Cochran's Q Test\""));
}

// --- ranks ---------------------------------------------------------------------------------------

class RankHistograms : public RelatedViews {
protected:
    RankHistograms()
    {
        for (const char* name : {"a", "b", "c", "d", "e", "f", "g"})
            fRecorder.AddField({.fName = name});
        fRecorder.SetTemplate(
            "NPARRelatedSamplesHistogram.viztemplate",
            R"(<v o="categoryOrder1"><label id="subLabel">subTitle</label>xTitle yTitle0 yTitle1</v>)");
    }

    NOPROutputStats::HTRFriedmansTwoWayByRanks& AddFriedman(int groups)
    {
        auto& test = AddTest<NOPROutputStats::HTRFriedmansTwoWayByRanks>(kind::kFriedman);
        test.fCondition.fParameters = {{0, {2, 0, 1}}};
        for (int group = 0; group < groups; ++group) {
            NOPROutputStats::RankGroup& added = test.fGroups.emplace_back();
            added.fGroupIndex = group;
            added.fMeanOfRank = 1.5;
            added.fTable.fRows = {{3}, {1}};
        }
        return test;
    }
};

TEST_F(RankHistograms, CallsTheLibraryInItsOrder)
{
    AddFriedman(2);
    const auto chart = Draw("Sex: m");
    ASSERT_TRUE(chart);
    EXPECT_EQ(chart->fText, R"(<v o="2;0;1">Frequency Rank Rank</v>)");
    EXPECT_THAT(
        RowLines(*chart, "graphSource"),
        ElementsAre("COUNTS MEANS LABELNAME TYPES", "COUNTS=3 MEANS=1 LABELNAME=1.5 TYPES=0",
                    "COUNTS=3 MEANS=1 LABELNAME=1.5 TYPES=1"));
    const std::string title =
        "\"Related-Samples Friedman's Two-Way Analysis of Variance by Ranks\"";
    const std::string meanRank = "XVariable.addRelabel \"labelname\" \"1.5\" \"Mean Rank = 1.50\"";
    EXPECT_THAT(
        CallLines(*chart),
        ElementsAre("XDocument.setEditor 2", "XDocument.setLanguage", "XDocument.getExternalGraph",
                    "XGraph.setTitle " + title, "XGraph.setSubtitle \"Sex: m\"",
                    "XDocument.SetDescription " + title, "XDocument.SetChartData",
                    "XGraph.getVariable \"types\"", "XVariable.addRelabel \"types\" \"0\" \"a\"",
                    "XVariable.addRelabel \"types\" \"1\" \"b\"",
                    "XGraph.getVariable \"labelname\"", meanRank, meanRank,
                    "XDocument.applyCTemplate false", "XDocument.SendChart true false false"));
}

TEST_F(RankHistograms, TheFrameGrowsWithTheFieldsFromFourOn)
{
    struct Row {
        int fields;
        const char* width;
    };
    for (const Row& row : {Row{3, nullptr}, Row{4, "2"}, Row{5, "2.5"}, Row{6, "3"}, Row{7, "3"}}) {
        SCOPED_TRACE(row.fields);
        AddFriedman(row.fields);
        const auto chart = Draw();
        ASSERT_TRUE(chart);
        const std::string width = row.width ? row.width : "";
        EXPECT_THAT(CallLines(*chart), row.width
                                           ? testing::Matcher<const std::vector<std::string>&>(
                                                 Contains("XGraph.setOuterFrameWidth " + width))
                                           : Not(Contains(HasSubstr("setOuterFrame"))));
    }
}

TEST_F(RankHistograms, AGroupWithoutTwoRowsStillCountsForTheFrameAndItsLabels)
{
    auto& test = AddFriedman(4);
    test.fGroups[3].fTable.fRows = {{1}, {1}, {1}};
    test.fGroups[2].fGroupIndex = -1;
    test.fCondition.fParameters = {{1, {0}}};
    const auto chart = Draw();
    ASSERT_TRUE(chart);
    EXPECT_EQ(RowLines(*chart, "graphSource").size(), 4u);
    EXPECT_THAT(chart->fText, HasSubstr("categoryOrder1")) << "not the parameter of the fields";
    EXPECT_THAT(CallLines(*chart), Contains("XGraph.setOuterFrameWidth 2"));
    EXPECT_THAT(CallLines(*chart), Contains("XVariable.addRelabel \"types\" \"3\" \"d\""));
    EXPECT_THAT(CallLines(*chart), Not(Contains(HasSubstr("\"types\" \"-1\""))));
    for (auto& group : test.fGroups)
        group.fTable.fRows.clear();
    EXPECT_FALSE(Draw());
}

// --- cross tables --------------------------------------------------------------------------------

class CrossTables : public RelatedViews {
protected:
    CrossTables()
    {
        fRecorder.AddField({.fName = "before", .fLabel = "Before"}, {{"0", "no"}, {"1", "yes"}});
        fRecorder.AddField({.fName = "after", .fLabel = "After"}, {{"0", "nein"}, {"1", ""}});
        fRecorder.SetTemplate(
            "FacetBarChart.viztemplate",
            R"(<v>TitleText Facet1Text Facet2Text tooltipText<color/><legend>l</legend>)"
            R"(<tokenMapping a="0"/><tokenMapping a="1"/></v>)");
    }

    template <class Record>
    NOPROutputStats::CategoryComparison& AddComparison(TestKind testKind)
    {
        NOPROutputStats::CategoryComparison& comparison = AddTest<Record>(testKind).fComparison;
        comparison.fRowField = 0;
        comparison.fColumnField = 1;
        comparison.fTable.fRows = {{20, 10}, {4, 30}};
        return comparison;
    }
};

TEST_F(CrossTables, McNemarPutsTheHypothesizedBesideTheObservedCount)
{
    auto& comparison = AddComparison<NOPROutputStats::HTRMcNemar>(kind::kMcNemar);
    comparison.fRowSuccessList = {0};
    comparison.fRowFailList = {1};
    const auto chart = Draw();
    ASSERT_TRUE(chart);
    EXPECT_EQ(chart->fText,
              "<v>Related-Samples McNemar Change Test After Before "
              "Observed=$[0]$ &#10;Hypothesized=$[1]$<color/><legend>l</legend>"
              R"(<tokenMapping a="0"/><tokenMapping a="1"/></v>)");
    const std::vector<std::string> rows = RowLines(*chart, "graphSource");
    ASSERT_EQ(rows.size(), 7u);
    EXPECT_EQ(rows[1],
              "CellText=20 Column=0 Row=0 Category=0 CellValue=\"\" ObservedTooltip=20 "
              "HypothesizedTooltip=0");
    EXPECT_EQ(rows[2],
              "CellText=\"\" Column=1 Row=0 Category=0 CellValue=10 ObservedTooltip=10 "
              "HypothesizedTooltip=7");
    EXPECT_EQ(rows[3],
              "CellText=\"\" Column=1 Row=0 Category=1 CellValue=7 ObservedTooltip=10 "
              "HypothesizedTooltip=7");
    EXPECT_THAT(
        CallLines(*chart),
        ElementsAre("XDocument.setEditor 2", "XDocument.setLanguage", "XDocument.SetChartData",
                    "XDocument.getExternalGraph", "XGraph.getVariable \"celltext\"",
                    "XVariable.SetFormatPrefix \"celltext\" \"ObservedFrequency \"",
                    "XGraph.setTitle \"Related-Samples McNemar Change Test\"",
                    "XGraph.getVariable \"Row\"", "XVariable.setQORTVariable \"Row\" \"before\"",
                    "XVariable.setFormatBasedOnQORTVariable \"Row\" \"before\"",
                    "XVariable.addRelabel \"Row\" 0 \"no\"",
                    "XVariable.addRelabel \"Row\" 1 \"yes\"", "XGraph.getVariable \"Column\"",
                    "XGraph.getVariable \"category\"", "XVariable.setLabel \"category\" \"E62935\"",
                    "XVariable.addRelabel \"category\" 0 \"Observed\"",
                    "XVariable.addRelabel \"category\" 1 \"Hypothesized\"",
                    "XDocument.SetDescription \"Related-Samples McNemar Change Test\"",
                    "XDocument.applyCTemplate false", "XDocument.SendChart true false false"));
}

TEST_F(CrossTables, MarginalHomogeneityShowsObservedCountsAlone)
{
    AddComparison<NOPROutputStats::HTRMarginalHomogeneity>(kind::kMarginalHomogeneity);
    const auto chart = Draw();
    ASSERT_TRUE(chart);
    EXPECT_EQ(chart->fText,
              "<v>Related-Samples Marginal Homogeneity Test After Before "
              R"(Observed=$[0]$<color/><tokenMapping a="0"/></v>)");
    EXPECT_THAT(RowLines(*chart, "graphSource"),
                ElementsAre("CellText Column Row Category CellValue ObservedTooltip",
                            "CellText=20 Column=0 Row=0 Category=0 ObservedTooltip=20",
                            "Column=1 Row=0 Category=0 CellValue=10 ObservedTooltip=10",
                            "Column=0 Row=1 Category=0 CellValue=4 ObservedTooltip=4",
                            "CellText=30 Column=1 Row=1 Category=0 ObservedTooltip=30"));
    EXPECT_THAT(CallLines(*chart), Contains("XVariable.addRelabel \"Column\" \"1\" {1}"))
        << "a value without a label stands for itself";
}

TEST_F(CrossTables, OneFieldWithoutAVariableMattersToMcNemarOnly)
{
    fRecorder.Stats().GetFieldInfo(1)->fVariable = nullptr;
    AddComparison<NOPROutputStats::HTRMcNemar>(kind::kMcNemar);
    EXPECT_THAT(CallLines(*Draw()), Not(Contains("XGraph.getVariable \"Row\"")));
    AddComparison<NOPROutputStats::HTRMarginalHomogeneity>(kind::kMarginalHomogeneity);
    EXPECT_THAT(CallLines(*Draw()), Contains("XGraph.getVariable \"Row\""));
}

TEST_F(CrossTables, TablesThatAreNotSquareGiveWhatTheyHold)
{
    struct Row {
        const char* reason;
        Rows table;
        std::size_t rows;
    };
    for (const Row& row :
         {Row{"no rows, no chart", {}, 0}, Row{"a cell without a mirror", {{1, 2, 3}}, 5},
          Row{"a short second row", {{1, 2}, {}}, 3}}) {
        SCOPED_TRACE(row.reason);
        AddComparison<NOPROutputStats::HTRMcNemar>(kind::kMcNemar).fTable.fRows = row.table;
        const auto chart = Draw();
        EXPECT_EQ(chart ? RowLines(*chart, "graphSource").size() - 1 : 0, row.rows);
    }
}

TEST_F(CrossTables, ACategoryIsNamedByItsValues)
{
    const FieldInfoData& field = *fRecorder.Stats().GetFieldInfo(0);
    struct Row {
        const char* reason;
        std::vector<double> list;
        std::vector<std::string> texts;
        const char* text;
    };
    for (const Row& row : {
             Row{"labels, joined by commas", {0, 1}, {}, "no,yes"},
             Row{"values that are not in the categories take their texts",
                 {-1, 0, 9},
                 {"x", "y"},
                 "x,no,y"},
             Row{"without a text left, the position in the list", {0, -1, -1}, {"x"}, "no,x,2"},
             Row{"an empty text counts as none", {-1}, {""}, "0"},
             Row{"huge numbers name nothing", {1e300}, {}, "0"},
         }) {
        SCOPED_TRACE(row.reason);
        EXPECT_EQ(RSMcNemarChangeTestView::CategoryText(&field, row.list, row.texts), row.text);
    }
    EXPECT_EQ(RSMcNemarChangeTestView::CategoryText(nullptr, {0}, {}), "");
}

// --- paired differences --------------------------------------------------------------------------

class Differences : public RelatedViews {
protected:
    Differences()
    {
        fRecorder.AddField({.fName = "before", .fLabel = "Before", .fFormat = FormatOf(5, 8, 2)});
        fRecorder.AddField({.fName = "after", .fLabel = "After", .fFormat = FormatOf(5, 8, 2)});
        fRecorder.SetTemplate(kFile, "LegendLabel|XAxis Text|YAxis Text");
        auto& test = AddTest<NOPROutputStats::HTRSign>(kind::kSign);
        test.fCondition.fParameters = {{0, {0}}, {1, {1}}};
        test.fCounts.fNegativeDifferences = 3;
        test.fCounts.fTies = 2;
        test.fCounts.fPositiveDifferences = 7;
        test.fCounts.fTable.fRows = {{3, 7}, {-1, 1}};
        fTest = &test;
    }

    static constexpr char kFile[] = "NPARWilcoxonPairSignedRank.viztemplate";
    NOPROutputStats::HTRSign* fTest;
};

TEST_F(Differences, CallTheLibraryInTheirOrder)
{
    const auto chart = Draw("Sex: m");
    ASSERT_TRUE(chart);
    EXPECT_EQ(chart->fText, "Number of Ties = 2|After - Before|Frequency");
    EXPECT_THAT(RowLines(*chart, "graphSource"),
                ElementsAre("count value", "count=3 value=-1", "count=7 value=1"));
    EXPECT_THAT(
        CallLines(*chart),
        ElementsAre(
            "XDocument.setEditor 2", "XDocument.setLanguage",
            "XDocument.SetDescription \"Related-Samples Sign Test\"", "XDocument.getExternalGraph",
            "XGraph.setTitle \"Related-Samples Sign Test\"", "XGraph.setSubtitle \"Sex: m\"",
            "XGraph.getVariable \"type\"",
            "XVariable.addRelabel \"type\" \"0positive\" \"Positive Differences\n(7)\"",
            "XVariable.addRelabel \"type\" \"1negative\" \"Negative Differences\n(3)\"",
            "XGraph.getVariable \"value\"", "XVariable.setQORTVariable \"value\" \"before\"",
            "XVariable.setFormatBasedOnQORTVariable \"value\" \"before\"", "XDocument.SetChartData",
            "XDocument.applyCTemplate false", "XDocument.SendChart true false false"));
}

TEST_F(Differences, TheFormatCountsOnlyWhereBothFieldsShareIt)
{
    struct Row {
        const char* reason;
        QORT_Format first;
        QORT_Format second;
        bool bound;
    };
    for (const Row& row : {
             Row{"other decimals", FormatOf(5, 8, 2), FormatOf(5, 8, 1), false},
             Row{"other width", FormatOf(5, 8, 2), FormatOf(5, 9, 2), false},
             Row{"a date and a number", FormatOf(20, 8, 2), FormatOf(5, 8, 2), false},
             Row{"strings compare without decimals", FormatOf(1, 8, 2), FormatOf(1, 8, 0), true},
         }) {
        SCOPED_TRACE(row.reason);
        ViewRecorder recorder;
        recorder.AddField({.fName = "before", .fFormat = row.first});
        recorder.AddField({.fName = "after", .fFormat = row.second});
        recorder.SetTemplate(kFile, "XAxis Text");
        const auto chart = recorder.Draw([&] {
            RelatedSamples(recorder.Dictionary(), &recorder.Stats()).DrawTest(fTest, "", false);
        });
        ASSERT_TRUE(chart);
        const auto bound = Contains(HasSubstr("setQORTVariable"));
        if (row.bound)
            EXPECT_THAT(CallLines(*chart), bound);
        else
            EXPECT_THAT(CallLines(*chart), Not(bound));
    }
}

TEST_F(Differences, ShapesOfTheTable)
{
    struct Row {
        const char* reason;
        Rows table;
        bool drawn;
    };
    for (const Row& row :
         {Row{"one row", {{1, 2}}, false}, Row{"no bars", {{}, {}}, false},
          Row{"rows of unequal length: a chart without data", {{1, 2}, {1}}, true}}) {
        SCOPED_TRACE(row.reason);
        fTest->fCounts.fTable.fRows = row.table;
        const auto chart = Draw();
        ASSERT_EQ(chart.has_value(), row.drawn);
        if (!chart) continue;
        EXPECT_EQ(RowLines(*chart, "graphSource").size(), 1u);
    }
}

TEST_F(Differences, WithoutAnAxisTextNothingIsRelabelled)
{
    fRecorder.SetTemplate(kFile, "LegendLabel");
    EXPECT_THAT(CallLines(*Draw()), Not(Contains(HasSubstr("addRelabel"))));
    fRecorder.SetTemplate(kFile, "XAxis Text");
    fTest->fCondition.fParameters = {{0, {50}}, {1, {-3}}};
    const auto chart = Draw();
    ASSERT_TRUE(chart);
    EXPECT_EQ(chart->fText, " - ") << "fields that no one knows have empty labels";
}

}  // namespace
