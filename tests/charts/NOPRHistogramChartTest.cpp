#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/ViewRecorder.h"

#include "charts/NOPRHistogramChart.h"

#include "host/chart/ChartString.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

constexpr char kTemplate[] = "NPARHistogram.viztemplate";

class PlainHistogram final : public NOPRHistogramChart {
public:
    using NOPRHistogramChart::NOPRHistogramChart;
    void EditTemplate(std::string& text) override { text += "edited"; }
    void EditDocument(XDocument&) override { ++fEdits; }
    int fEdits = 0;
};

std::optional<refhost::ChartNode> DrawField(ViewRecorder& recorder, const std::string& split = "",
                                            bool appendSplit = false, unsigned field = 0)
{
    PlainHistogram view(recorder.Dictionary(), &recorder.Stats());
    view.SelectField(field);
    view.SetTitle("Title");
    bool sent = false;
    auto chart = recorder.Draw([&] { sent = view.Render(split, appendSplit); });
    EXPECT_EQ(sent, chart.has_value());
    EXPECT_EQ(view.fEdits, sent ? 1 : 0);
    return chart;
}

std::vector<std::string> Rows(const std::optional<refhost::ChartNode>& chart)
{
    return chart ? RowLines(*chart, "graphSource") : std::vector<std::string>();
}

}  // namespace

TEST(HistogramChart, SendsTitleSplitDescriptionAndData)
{
    ViewRecorder recorder;
    recorder.SetTemplate(kTemplate, "<visualization/>");
    recorder.AddField({.fName = "weight"}).fDistribution.fRows = {{3, 4}, {1.5, 2.5}};
    const auto chart = DrawField(recorder, "site: A", true);
    ASSERT_TRUE(chart);
    EXPECT_EQ(chart->fTemplate, kTemplate);
    EXPECT_EQ(chart->fText, "<visualization/>edited");
    EXPECT_THAT(Rows(chart), ElementsAre("value count", "value=1.5 count=3", "value=2.5 count=4"));
    EXPECT_THAT(
        CallLines(*chart),
        ElementsAre("XDocument.setEditor 2", "XDocument.setLanguage", "XDocument.getExternalGraph",
                    "XGraph.setTitle \"Title\"", "XGraph.setSubtitle \"site: A\"",
                    "XDocument.SetDescription \"Title; site: A\"", "XDocument.SetChartData",
                    "XDocument.applyCTemplate false", "XDocument.SendChart true false false"));
}

TEST(HistogramChart, TellsTheSplitInTheDescriptionOnlyWhenAsked)
{
    struct Row {
        const char* split;
        bool append;
        const char* expected;
        const char* why;
    };
    ViewRecorder recorder;
    recorder.SetTemplate(kTemplate, "t");
    recorder.AddField({.fName = "weight"}).fDistribution.fRows = {{1}, {1}};
    for (const Row& row :
         {Row{"a", false, "Title", "a heading tells the split"},
          Row{"a", true, "Title; a", "dimensions tell it"},
          Row{"", true, "Title; ", "no split text"}, Row{"", false, "Title", "no split"}}) {
        SCOPED_TRACE(row.why);
        const auto chart = DrawField(recorder, row.split, row.append);
        ASSERT_TRUE(chart);
        EXPECT_EQ(chart->fDescription, row.expected);
        EXPECT_EQ(chart->fSubtitle, row.split);
    }
}

TEST(HistogramChart, DrawsPositionsAtTheirTrueValues)
{
    struct Row {
        VariableSpec variable;
        std::vector<ViewRecorder::ValueAndLabel> values;
        std::vector<double> positions;
        std::vector<std::string> expected;
        const char* why;
    };
    const std::string day0 = "12219379200";
    for (const Row& row :
         {Row{{.fName = "x"},
              {{"10", ""}, {"20", ""}},
              {0, 1.9},
              {"10", "20"},
              "cut to a position"},
          Row{{.fName = "x"}, {{"10", ""}}, {1, -1, 1e300}, {"1", "-1", "1e+300"}, "not found"},
          Row{{.fName = "s", .fFormat = FormatOf(1, 4, 0)},
              {{" a", ""}, {"b  ", "bee"}},
              {0, 1, 2},
              {"\" a\"", "\"b\"", "2"},
              "text loses the blanks at its end"},
          Row{{.fName = "d", .fFormat = FormatOf(20, 10, 0)},
              {{"1", ""}},
              {0, 0.5, 2},
              {"12219465600", "12219465600", "12219552000"},
              "a date is converted, found or not"},
          Row{{.fName = "t", .fFormat = FormatOf(21, 10, 0)},
              {},
              {0},
              {day0},
              "a time of day counts as a date here"},
          Row{{.fName = "t", .fFormat = FormatOf(22, 20, 0)}, {}, {0}, {day0}, "and so do seconds"},
          Row{{.fName = "n", .fFormat = FormatOf(25, 10, 0)}, {}, {7}, {"7"}, "25 is no date"}}) {
        SCOPED_TRACE(row.why);
        ViewRecorder recorder;
        recorder.SetTemplate(kTemplate, "t");
        FieldInfoData& field = recorder.AddField(row.variable, row.values);
        field.fDistribution.fRows = {std::vector<double>(row.positions.size(), 1), row.positions};
        std::vector<std::string> expected = {"value count"};
        for (const std::string& value : row.expected)
            expected.push_back("value=" + value + " count=1");
        EXPECT_EQ(Rows(DrawField(recorder)), expected);
    }
}

TEST(HistogramChart, LooksPositionsUpInTheFieldThatTheRecordNames)
{
    ViewRecorder recorder;
    recorder.SetTemplate(kTemplate, "t");
    FieldInfoData& field = recorder.AddField({.fName = "a"}, {{"10", ""}});
    recorder.AddField({.fName = "b"}, {{"77", ""}});
    field.fDistribution.fRows = {{1}, {0}};
    field.fFieldIndex = 1;
    EXPECT_THAT(Rows(DrawField(recorder)), ElementsAre("value count", "value=77 count=1"));
    field.fFieldIndex = -1;
    EXPECT_THAT(Rows(DrawField(recorder)), ElementsAre("value count", "value=0 count=1"));
}

TEST(HistogramChart, RefusesTablesThatAreNoFrequencies)
{
    struct Row {
        std::vector<std::vector<double>> rows;
        const char* why;
    };
    for (const Row& row :
         {Row{{}, "no rows"}, Row{{{1, 2}}, "one row"}, Row{{{1}, {1}, {1}}, "three rows"},
          Row{{{1, 2}, {1}}, "two lengths"}, Row{{{}, {}}, "no columns"}}) {
        SCOPED_TRACE(row.why);
        ViewRecorder recorder;
        recorder.SetTemplate(kTemplate, "t");
        recorder.AddField({.fName = "x"}).fDistribution.fRows = row.rows;
        EXPECT_FALSE(DrawField(recorder));
    }
}

TEST(HistogramChart, DrawsCategoriesOnlyWhenTheyCountAsContinuous)
{
    ViewRecorder recorder;
    recorder.SetTemplate(kTemplate, "t");
    FieldInfoData& field = recorder.AddField({.fName = "x"});
    field.fDistribution.fRows = {{1}, {1}};
    EXPECT_FALSE(DrawField(recorder, "", false, 1)) << "no such field";
    field.fIsCategorical = true;
    EXPECT_FALSE(DrawField(recorder));
    field.fOrdinalAsContinuous = true;
    EXPECT_TRUE(DrawField(recorder));
}

TEST(HistogramChart, NeedsAFieldATemplateAndAResult)
{
    ViewRecorder recorder;
    recorder.AddField({.fName = "x"}).fDistribution.fRows = {{1}, {1}};
    EXPECT_FALSE(DrawField(recorder)) << "no template file";
    recorder.SetTemplate(kTemplate, "");
    EXPECT_FALSE(DrawField(recorder)) << "an empty template";
    recorder.SetTemplate(kTemplate, "t");
    EXPECT_TRUE(DrawField(recorder));

    PlainHistogram view(recorder.Dictionary(), nullptr);
    view.SelectField(0);
    EXPECT_FALSE(recorder.Draw([&] { EXPECT_FALSE(view.Render("", false)); }));
}

TEST(HistogramChart, KeepsItsFieldWhenANumberNamesNone)
{
    ViewRecorder recorder;
    recorder.SetTemplate(kTemplate, "t");
    recorder.AddField({.fName = "x"}).fDistribution.fRows = {{1}, {5}};
    PlainHistogram view(recorder.Dictionary(), &recorder.Stats());
    view.SelectField(0);
    view.SelectField(4000000000u);
    EXPECT_TRUE(recorder.Draw([&] { EXPECT_TRUE(view.Render("", false)); }));
}

TEST(HistogramChart, LetsNoExceptionOut)
{
    class Failing final : public NOPRHistogramChart {
    public:
        using NOPRHistogramChart::NOPRHistogramChart;
        const NumericTable* HistogramTable() override { throw 1; }
    };
    ViewRecorder recorder;
    recorder.AddField({.fName = "x"});
    Failing view(recorder.Dictionary(), &recorder.Stats());
    view.SelectField(0);
    EXPECT_FALSE(recorder.Draw([&] { EXPECT_FALSE(view.Render("", false)); }));
}
