#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/ViewRecorder.h"

#include "charts/NOPRStackedChart.h"

#include "host/chart/XDocument.h"

using testing::ElementsAre;

namespace {

constexpr char kTemplate[] = "NPARStackedBar.viztemplate";

class PlainBars final : public NOPRStackedChart {
public:
    PlainBars(ViewRecorder& recorder, const NumericTable* table)
        : NOPRStackedChart(recorder.Dictionary(), &recorder.Stats()), fTable(table)
    {
        SetTitleKey("Bars");
    }
    std::string SeriesLabel(const std::string& rowName) override { return "bar " + rowName; }
    std::string CategoryLabel(const std::string& rowName, const std::string& columnName,
                              bool escaped) override
    {
        return rowName + columnName + (escaped ? "!" : "");
    }
    const std::vector<NOPROutputStats::ConditionParameter>& ParameterTable() override
    {
        return fParameters;
    }
    const NumericTable* ChartTable() override { return fTable; }
    void EditTemplate(std::string& text) override { text += "+"; }
    void EditDocument(XDocument& document) override { document.getExternalGraph(); }

private:
    const NumericTable* fTable;
    std::vector<NOPROutputStats::ConditionParameter> fParameters;
};

std::optional<refhost::ChartNode> Draw(ViewRecorder& recorder, const NumericTable* table)
{
    PlainBars view(recorder, table);
    return recorder.Draw([&] { view.Render("s", false); });
}

const NumericTable kTable = {"", {"A", "B"}, {"0", "1"}, {{33.3, 66.7}, {50, 50}}};

}  // namespace

TEST(StackedChart, WritesARowForEachSegmentWithTheTooltipOfItsBar)
{
    ViewRecorder recorder;
    recorder.SetTemplate(kTemplate, "t");
    const auto chart = Draw(recorder, &kTable);
    ASSERT_TRUE(chart);
    const std::string a = "tooltip=\"A0 33%\nA1 67%\n\"";
    const std::string b = "tooltip=\"B0 50%\nB1 50%\n\"";
    EXPECT_THAT(RowLines(*chart, "graphSource"),
                ElementsAre("categories type value tooltip",
                            "categories=\"bar A\" type=\"A0\" value=33.3 " + a,
                            "categories=\"bar A\" type=\"A1\" value=66.7 " + a,
                            "categories=\"bar B\" type=\"B0\" value=50 " + b,
                            "categories=\"bar B\" type=\"B1\" value=50 " + b));
}

TEST(StackedChart, EditsTheDocumentInThePlaceOfTheHostsTemplate)
{
    ViewRecorder recorder;
    recorder.SetTemplate(kTemplate, "t");
    recorder.SetWords({{"Bars", "Balken"}});
    const auto chart = Draw(recorder, &kTable);
    ASSERT_TRUE(chart);
    EXPECT_THAT(
        CallLines(*chart),
        ElementsAre("XDocument.setEditor 2", "XDocument.setLanguage", "XDocument.getExternalGraph",
                    "XGraph.setTitle \"Balken\"", "XGraph.setSubtitle \"s\"",
                    "XDocument.SetDescription \"Balken\"", "XDocument.SetChartData",
                    "XDocument.getExternalGraph", "XDocument.SendChart true false false"));
}

TEST(StackedChart, PutsTheScalingFactorAndTheAxisTextIntoTheTemplate)
{
    struct Row {
        int total;
        const char* text;
        const char* expected;
        const char* why;
    };
    for (const Row& row :
         {Row{200, "<i scalingFactor=\"1\"/>yAxisLabel", "<i scalingFactor=\"0.5\"/>Count+",
              "both"},
          Row{30, "scalingFactor=\"1\"", "scalingFactor=\"3.3333333333333335\"+", "exact text"},
          Row{-1, "scalingFactor=\"1\"", "scalingFactor=\"0.0000000232830644\"+", "unsigned"},
          Row{200, "yAxisLabel yAxisLabel", "Count yAxisLabel+", "no factor; the first label only"},
          Row{200, "scalingFactor=", "scalingFactor=+", "the text ends at the marker"}}) {
        SCOPED_TRACE(row.why);
        ViewRecorder recorder;
        recorder.SetWords({{"Frequency", "Count"}});
        recorder.SetTemplate(kTemplate, row.text);
        recorder.Stats().SetTotalFreq(row.total);
        const auto chart = Draw(recorder, &kTable);
        ASSERT_TRUE(chart);
        EXPECT_EQ(chart->fText, row.expected);
    }
}

TEST(StackedChart, RefusesWhatGivesNoSegment)
{
    struct Row {
        const NumericTable* table;
        const char* why;
    };
    const NumericTable noRows = {"", {}, {"0"}, {{1}}};
    const NumericTable noColumns = {"", {"A"}, {}, {{1}}};
    const NumericTable noNumbers = {"", {"A"}, {"0"}, {}};
    for (const Row& row : {Row{nullptr, "no record"}, Row{&noRows, "no bar"},
                           Row{&noColumns, "no segment"}, Row{&noNumbers, "no percentage"}}) {
        SCOPED_TRACE(row.why);
        ViewRecorder recorder;
        recorder.SetTemplate(kTemplate, "t");
        EXPECT_FALSE(Draw(recorder, row.table));
    }
    ViewRecorder recorder;
    EXPECT_FALSE(Draw(recorder, &kTable)) << "no template";
}
