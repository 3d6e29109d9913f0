#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/ViewRecorder.h"

#include "views/field/FieldInformation.h"

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

namespace {

constexpr char kTemplate[] = "NPARHistogram.viztemplate";
constexpr bool kCategorical = true;
constexpr bool kContinuous = false;

std::optional<refhost::ChartNode> Draw(ViewRecorder& recorder, bool categorical,
                                       const std::string& split = "")
{
    FieldInformation view(recorder.Dictionary(), &recorder.Stats(), categorical);
    view.SelectField(0);
    bool sent = false;
    auto chart = recorder.Draw([&] { sent = view.Render(split, false); });
    EXPECT_EQ(sent, chart.has_value());
    return chart;
}

/// A field with a table of its own kind and numbers for its label.
FieldInfoData& Filled(FieldInfoData& field, bool categorical)
{
    field.fIsCategorical = categorical;
    field.fDistribution = {"Interval", {}, {}, {{1}, {1}}};
    field.fTotalN = 71;
    field.fMin = 1;
    field.fMax = 9.5;
    field.fMean = 5.25;
    field.fStdDev = 2.125;
    return field;
}

}  // namespace

TEST(FieldInformation, DrawsTheViewThatFitsTheField)
{
    for (const bool isCategorical : {true, false})
        for (const bool viewIsCategorical : {true, false}) {
            ViewRecorder recorder;
            recorder.SetTemplate(kTemplate, "t");
            recorder.SetWords({{"Categorical Field Information", "Categories"},
                               {"Continuous Field Information", "Numbers"}});
            FieldInfoData& field =
                Filled(recorder.AddField({.fName = "x", .fLabel = "Weight"}), isCategorical);
            const auto chart = Draw(recorder, viewIsCategorical);
            ASSERT_EQ(chart.has_value(), isCategorical == viewIsCategorical);
            if (chart) {
                EXPECT_EQ(chart->fTitle, isCategorical ? "Categories Weight" : "Numbers Weight");
                EXPECT_EQ(chart->fDescription, chart->fTitle);
            }
            field.fDistribution.fName = "Content";
            EXPECT_FALSE(Draw(recorder, viewIsCategorical)) << "a table of another name";
        }
}

TEST(FieldInformation, TellsTheStatisticsOfAContinuousField)
{
    struct Row {
        QORT_Format format;
        const char* expected;
        const char* why;
    };
    for (const Row& row :
         {Row{FormatOf(5, 8, 2), "N 71&#10;Min 1.00&#10;Max 9.50&#10;Mean 5.250&#10;SD 2.1250",
              "one and two more decimals"},
          Row{FormatOf(20, 10, 0),
              "N 71&#10;Min 1970-01-02&#10;Max 1970-01-10&#10;Mean 1970-01-06&#10;SD 2 03:00:00",
              "a spread of dates is a duration"},
          Row{FormatOf(21, 8, 0),
              "N 71&#10;Min 00:00:01&#10;Max 00:00:09&#10;Mean 00:00:05.2&#10;SD 00:00:02.12",
              "a spread of times of day is none"}}) {
        SCOPED_TRACE(row.why);
        ViewRecorder recorder;
        recorder.SetTemplate(kTemplate, "xAxisLabel|yAxisLabel|<binStatistic/>|labelText");
        recorder.SetWords({{"histoN", "\\nN"},
                           {"histoMin", "\\nMin"},
                           {"histoMax", "\\nMax"},
                           {"histoMean", "\\nMean"},
                           {"histoStdDev", "\\nSD"},
                           {"Frequency", "Count"}});
        Filled(recorder.AddField({.fName = "x", .fFormat = row.format}), kContinuous);
        const auto chart = Draw(recorder, kContinuous);
        ASSERT_TRUE(chart);
        EXPECT_EQ(chart->fText, std::string("x|Count|<binStatistic/>|") + row.expected);
    }
}

TEST(FieldInformation, TellsTheNumberOfCasesOfACategoricalField)
{
    ViewRecorder recorder;
    recorder.SetWords({{"TotalN", "\\nTotal\\nN"}, {"E60352", "Cases"}});
    Filled(recorder.AddFieldWithoutVariable(), kCategorical);
    struct Row {
        const char* text;
        const char* expected;
        const char* why;
    };
    for (const Row& row :
         {Row{"[xAxisLabel] yAxisLabel labelText", "[] Cases Total&#10;N =  71", "all tokens"},
          Row{"<binStatistic/><binStatistic/><summaryStatistic method=\"sum\"/>.",
              "<binStatistic/>.", "categories are not binned"},
          Row{"yAxisLabel", "Cases", "no label"}}) {
        SCOPED_TRACE(row.why);
        recorder.SetTemplate(kTemplate, row.text);
        const auto chart = Draw(recorder, kCategorical);
        ASSERT_TRUE(chart);
        EXPECT_EQ(chart->fText, row.expected);
    }
}

TEST(FieldInformation, BindsAContinuousFieldAndNoMore)
{
    ViewRecorder recorder;
    recorder.SetTemplate(kTemplate, "t");
    Filled(recorder.AddField({.fName = "x"}, {{"1", "one"}}), kContinuous).fOrdinalAsContinuous =
        true;
    const auto chart = Draw(recorder, kContinuous, "site: A");
    ASSERT_TRUE(chart);
    EXPECT_THAT(
        CallLines(*chart),
        ElementsAre("XDocument.setEditor 2", "XDocument.setLanguage", "XDocument.getExternalGraph",
                    "XGraph.setTitle \"Continuous Field Information x\"",
                    "XGraph.setSubtitle \"site: A\"", "XDocument.getExternalGraph",
                    "XGraph.getVariable \"value\"", "XVariable.setQORTVariable \"value\" \"x\"",
                    "XVariable.setFormatBasedOnQORTVariable \"value\" \"x\"",
                    "XDocument.SetDescription \"Continuous Field Information x\"",
                    "XDocument.SetChartData", "XDocument.applyCTemplate false",
                    "XDocument.SendChart true false false"));
}

TEST(FieldInformation, RelabelsCategoriesWhoseLabelSaysMore)
{
    struct Row {
        QORT_Format format;
        std::vector<ViewRecorder::ValueAndLabel> values;
        std::vector<std::string> expected;
        const char* why;
    };
    for (const Row& row : {Row{FormatOf(5, 8, 2),
                               {{"1", "one"}, {"2.50", "2.5"}, {"3", ""}, {"4", "4.0"}},
                               {"\"1\" \"one\"", "\"4\" \"4.0\""},
                               "numbers by their exact text"},
                           Row{FormatOf(1, 4, 0),
                               {{"a", "A"}, {"b", "b"}, {" c", "c"}},
                               {"\"a\" \"A\"", "\" c\" \"c\""},
                               "texts without the blanks at their end"}}) {
        SCOPED_TRACE(row.why);
        ViewRecorder recorder;
        recorder.SetTemplate(kTemplate, "t");
        Filled(recorder.AddField({.fName = "x", .fFormat = row.format}, row.values), kCategorical);
        const auto chart = Draw(recorder, kCategorical);
        ASSERT_TRUE(chart);
        std::vector<std::string> expected = {
            "XGraph.getVariable \"value\"", "XVariable.setQORTVariable \"value\" \"x\"",
            "XVariable.setFormatBasedOnQORTVariable \"value\" \"x\"",
            "XVariable.setCategorical \"value\" true"};
        for (const std::string& relabel : row.expected)
            expected.push_back("XVariable.addRelabel \"value\" " + relabel);
        std::vector<std::string> calls;
        for (const std::string& line : CallLines(*chart))
            if (line.starts_with("XVariable") || line.starts_with("XGraph.getVariable"))
                calls.push_back(line);
        EXPECT_EQ(calls, expected);
    }
}

TEST(FieldInformation, NotesAnOrdinalFieldThatCountsAsContinuous)
{
    ViewRecorder recorder;
    recorder.SetTemplate(kTemplate, "t");
    recorder.SetWords({{"ORDINAL_AS_CON", "^1 is ordinal."}});
    FieldInfoData& field =
        Filled(recorder.AddField({.fName = "x", .fLabel = "Weight"}), kCategorical);
    EXPECT_THAT(CallLines(*Draw(recorder, kCategorical)), Not(Contains(HasSubstr("setFootnote"))));
    field.fOrdinalAsContinuous = true;
    EXPECT_THAT(CallLines(*Draw(recorder, kCategorical)),
                Contains("XGraph.setFootnote \"Weight is ordinal.\""));
    field.fVariable = nullptr;
    EXPECT_THAT(CallLines(*Draw(recorder, kCategorical)), Not(Contains(HasSubstr("setFootnote"))));
}
