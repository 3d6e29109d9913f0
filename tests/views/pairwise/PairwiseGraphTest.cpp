#include "views/pairwise/PairwiseGraph.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "model/NOPRTestRecords.h"
#include "support/ViewRecorder.h"

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;
using Rows = std::vector<std::vector<double>>;

constexpr char kFile[] = "GLMMPairwiseContrasts.viztemplate";
constexpr char kTemplate[] =
    R"(<v><faceting>f</faceting><facetLayout>g</facetLayout><legend>l</legend>TitleText)"
    R"(<style id="style7"/>FootnoteText<graphLayoutStatistic></graphLayoutStatistic>$[1]$</v>)";

class PairwiseGraphs : public testing::Test {
protected:
    PairwiseGraphs()
    {
        fRecorder.AddField({.fName = "weight", .fLabel = "Weight"});
        fRecorder.AddField({.fName = "feed", .fLabel = "Feed"},
                           {{"1", "Casein"}, {"2", "Linseed"}, {"3", ""}});
        fRecorder.SetTemplate(kFile, kTemplate);
        fRecorder.Stats().SetSigLevel(0.05);
        fPairwise.fFieldIndex = 1;
        fPairwise.fInfo.fRows = {{0, 1, 2}, {10.5, 20, 30.25}};
        fPairwise.fContent.fColumnNames = {"Sample1", "Sample2", "T", "E", "Z", "Sig", "AdjSig"};
    }

    void SetPairs(const Rows& pairs)
    {
        fPairwise.fContent.fRows.clear();
        for (const std::vector<double>& pair : pairs)
            fPairwise.fContent.fRows.push_back({pair[0], pair[1], 1, 1, 1, 0.01, pair[2]});
    }

    refhost::ChartNode Draw()
    {
        auto chart = fRecorder.Draw([&] {
            PairwiseGraph(&fRecorder.Stats(), &fPairwise, fRecorder.Dictionary())
                .Render("Sex: m", true);
        });
        EXPECT_TRUE(chart);
        return chart ? std::move(*chart) : refhost::ChartNode();
    }

    ViewRecorder fRecorder;
    NOPROutputStats::PairwiseData fPairwise;
};

TEST_F(PairwiseGraphs, EdgesCarryWeightAndTypeOfTheirSignificance)
{
    SetPairs({{0, 1, 0}, {0, 2, 0.5}, {1, 2, 1}, {2, 1, 0.05}});
    const refhost::ChartNode chart = Draw();
    EXPECT_THAT(RowLines(chart, "nodeSource_1"), ElementsAre("node", "node=0", "node=1", "node=2"));
    EXPECT_THAT(RowLines(chart, "edgeSource_1"),
                ElementsAre("from to weight weightInPopup type tooltip",
                            "from=0 to=1 weight=1 weightInPopup=0 type=1",
                            "from=0 to=2 weight=4 weightInPopup=0.5 type=2",
                            "from=2 to=1 weight=1.10803324099723 weightInPopup=0.05 type=2"))
        << "a significance of 1 has no edge, one at the level is not below it";
}

TEST_F(PairwiseGraphs, SamplesAreNumbersWhereAllNamesAreAndPositionsOtherwise)
{
    struct Row {
        const char* reason;
        std::vector<double> samples;
        Rows pairs;
        std::vector<std::string> edges;
    };
    const Row rows[] = {
        {"all name samples", {2, 0, 1}, {{2, 1, 0}}, {"from=2 to=1"}},
        {"names are cut to whole numbers", {2, 0, 1}, {{2.5, 1.9, 0}}, {"from=2 to=1"}},
        {"one does not: positions", {4, 5, 1}, {{0, 1, 0}}, {"from=4 to=5"}},
        {"a position beyond the row has no edge",
         {4, 5, 6},
         {{0, 3, 0}, {-1, 1, 0}, {1, 2, 0}},
         {"from=5 to=6"}},
        {"a short row has no edge", {4, 5, 6}, {}, {}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.reason);
        fPairwise.fInfo.fRows[0] = row.samples;
        SetPairs(row.pairs);
        if (row.pairs.empty()) fPairwise.fContent.fRows = {{0}};
        const std::vector<std::string> edges = RowLines(Draw(), "edgeSource_1");
        ASSERT_EQ(edges.size(), row.edges.size() + 1);
        for (std::size_t edge = 0; edge < row.edges.size(); ++edge)
            EXPECT_THAT(edges[edge + 1], HasSubstr(row.edges[edge]));
    }
}

TEST_F(PairwiseGraphs, SamplesThatAreValuesNameTheirField)
{
    SetPairs({{0, 1, 0.5}});
    const refhost::ChartNode chart = Draw();
    EXPECT_EQ(chart.fText,
              R"(<v>Pairwise Comparisons of Feed<style  visible="false" id="style7"/>)"
              R"(Each node shows the sample average rank of Feed.)"
              R"(<graphLayoutStatistic><swap/></graphLayoutStatistic>Adj.Sig. = $[1]$</v>)");
    EXPECT_THAT(
        CallLines(chart),
        ElementsAre("XDocument.setEditor 2", "XDocument.setLanguage", "XDocument.SetChartData",
                    "XDocument.getExternalGraph", "XGraph.setSubtitle \"Sex: m\"",
                    "XGraph.getVariable \"node\"", "XVariable.setQORTVariable \"node\" \"feed\"",
                    "XVariable.setFormatBasedOnQORTVariable \"node\" \"feed\"",
                    "XVariable.SetNumberFormat \"node\" 0 false null null",
                    "XVariable.addRelabel \"node\" \"0\" \"Casein\n10.50\"",
                    "XVariable.addRelabel \"node\" \"1\" \"Linseed\n20.00\"",
                    "XVariable.addRelabel \"node\" \"2\" \"\n30.25\"",
                    "XDocument.SetDescription \"Pairwise Comparisons of Feed; Sex: m\"",
                    "XDocument.applyCTemplate false", "XDocument.SendChart true false false"));
}

TEST_F(PairwiseGraphs, SamplesThatAreFieldsAreNamedByThem)
{
    fPairwise.fFieldIndex = -1;
    fPairwise.fInfo.fRows = {{1, 7, 0}, {1, 2, 3}};
    const refhost::ChartNode chart = Draw();
    EXPECT_THAT(chart.fText, HasSubstr("<v>Pairwise Comparisons<style"));
    EXPECT_THAT(chart.fText, HasSubstr("Each node shows the sample number of successes."));
    EXPECT_THAT(CallLines(chart), Contains("XVariable.addRelabel \"node\" \"1\" \"Feed\n1.00\""));
    EXPECT_THAT(CallLines(chart), Contains("XVariable.addRelabel \"node\" \"0\" \"Weight\n3.00\""));
    EXPECT_THAT(CallLines(chart), Not(Contains(HasSubstr("\"node\" \"7\""))))
        << "a field without a variable keeps its number";
    EXPECT_EQ(RowLines(chart, "edgeSource_1").size(), 1u) << "nodes without an edge are drawn too";
}

TEST_F(PairwiseGraphs, TablesWithoutTheirRowsDrawWhatIsThere)
{
    struct Row {
        const char* reason;
        Rows info;
        std::size_t nodes;
    };
    for (const Row& row : {Row{"no rows", {}, 0}, Row{"no numbers", {{0, 1}}, 2},
                           Row{"fewer labels than nodes", {{0, 1, 2, 3}, {1, 2, 3, 4}}, 4}}) {
        SCOPED_TRACE(row.reason);
        fPairwise.fInfo.fRows = row.info;
        EXPECT_EQ(RowLines(Draw(), "nodeSource_1").size(), row.nodes + 1);
    }
    fRecorder.SetTemplate(kFile, "<faceting>f");
    EXPECT_EQ(Draw().fText, "<faceting>f") << "an element without its end stays";
}

}  // namespace
