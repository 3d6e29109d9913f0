#include <gtest/gtest.h>

#include "support/ViewRecorder.h"

#include "views/onesample/Binomial.h"

namespace {

constexpr char kBinary[] = "ABinaryTestVariableIsSpecified_O_Binomial_5";
constexpr char kCutPoint[] = "ACutPointIsSpecified_O_Binomial_4";
constexpr char kLists[] = "CategoryListsAreSpecified_O_Binomial_5";

using Values = std::vector<ViewRecorder::ValueAndLabel>;

}  // namespace

TEST(Binomial, NamesItsSegmentsByTheKeyOfTheCondition)
{
    struct Row {
        const char* key;
        VariableSpec variable;
        Values values;
        std::vector<std::vector<double>> parameters;
        const char* first;
        const char* second;
        const char* why;
    };
    const VariableSpec plain = {"x"};
    const Values yesNo = {{"1", "yes"}, {"2", "no"}};
    for (const Row& row :
         {Row{kBinary, plain, yesNo, {{0}, {0}, {1}}, "yes", "no", "both labels"},
          Row{kBinary, plain, yesNo, {{0}, {1.9}, {0}}, "no", "yes", "numbers are cut"},
          Row{kBinary, plain, {{"1", "yes"}}, {{0}, {0}, {1}}, "yes", "1", "one label"},
          Row{kBinary, plain, yesNo, {{0}, {7}, {1}}, "no", "no", "the first beyond the list"},
          Row{kBinary, plain, yesNo, {{0}, {-1}, {1e300}}, "0", "1", "both beyond the list"},
          Row{kBinary, plain, yesNo, {{0}}, "yes", "yes", "missing numbers count as 0"},
          Row{kBinary, plain, yesNo, {{9}, {0}, {1}}, "0", "1", "no such field"},
          Row{kBinary, plain, yesNo, {}, "0", "1", "no parameters"},
          Row{kCutPoint, plain, {}, {{0}, {5}}, " &lt;= 5.00", " &gt; 5.00", "by the format"},
          Row{kCutPoint, plain, {}, {{9}, {0.1}}, " &lt;= 0.1", " &gt; 0.1", "exact without one"},
          Row{kCutPoint,
              {"d", "", FormatOf(20, 10, 0)},
              {},
              {{0}, {0}},
              " &lt;= 1970-01-01",
              " &gt; 1970-01-01",
              "a date"},
          Row{kLists, plain, yesNo, {{0}, {0}, {1}}, "0", "1", "the column names"},
          Row{"Other", plain, yesNo, {{0}, {0}, {1}}, "0", "1", "any other key"}}) {
        SCOPED_TRACE(std::string(row.key) + ": " + row.why);
        ViewRecorder recorder;
        recorder.SetTemplate("NPARStackedBar.viztemplate", "CategoryOrderText");
        recorder.AddField(row.variable, row.values);
        NOPROutputStats::HTOBinomial test;
        test.fTable = {"", {"Observed"}, {"0", "1"}, {{40, 60}}};
        test.fCondition.fConditionKey = row.key;
        for (const auto& parameter : row.parameters)
            test.fCondition.fParameters.push_back({0, parameter});

        Binomial view(recorder.Dictionary(), &recorder.Stats(), &test);
        const auto chart = recorder.Draw([&] { EXPECT_TRUE(view.Render("", false)); });
        ASSERT_TRUE(chart);
        EXPECT_EQ(chart->fText, std::string(row.first) + ";" + row.second);
    }
}

TEST(Binomial, EscapesTheSignsOfTheCutPointInTheTemplateOnly)
{
    ViewRecorder recorder;
    recorder.SetTemplate("NPARStackedBar.viztemplate", "[CategoryOrderText][LegendLabel]");
    recorder.SetWords({{"E60564", "Seen"}, {"Hypothesized", "Supposed"}});
    recorder.AddField({.fName = "x", .fLabel = "Weight <R&D>", .fFormat = FormatOf(5, 8, 0)});
    NOPROutputStats::HTOBinomial test;
    test.fTable = {"", {"Observed", "Hypothesized"}, {"0", "1"}, {{40, 60}, {50, 50}}};
    test.fCondition = {kCutPoint, {{0, {0}}, {1, {5}}}, {}};
    Binomial view(recorder.Dictionary(), &recorder.Stats(), &test);
    const auto chart = recorder.Draw([&] { view.Render("", false); });
    ASSERT_TRUE(chart);
    EXPECT_EQ(chart->fText, "[ &lt;= 5; &gt; 5][Weight <R&D>]");
    const auto rows = RowLines(*chart, "graphSource");
    ASSERT_EQ(rows.size(), 5u);
    EXPECT_EQ(rows[1],
              "categories=\"Seen\" type=\" <= 5\" value=40 "
              "tooltip=\" <= 5 40%\n > 5 60%\n\"");
    EXPECT_EQ(rows[4],
              "categories=\"Supposed\" type=\" > 5\" value=50 "
              "tooltip=\" <= 5 50%\n > 5 50%\n\"");
}

TEST(Binomial, NamesTheFieldInTheLegendWhereTheConditionDoes)
{
    struct Row {
        std::vector<std::vector<double>> parameters;
        const char* expected;
        const char* why;
    };
    for (const Row& row :
         {Row{{{0}, {5}}, "[x]", "field and category"}, Row{{{0}}, "[]", "one parameter"},
          Row{{{0}, {}}, "[]", "an empty parameter"}, Row{{{2}, {5}}, "[]", "no such field"},
          Row{{{1}, {5}}, "[]", "a field without a variable"}}) {
        SCOPED_TRACE(row.why);
        ViewRecorder recorder;
        recorder.SetTemplate("NPARStackedBar.viztemplate", "[LegendLabel]");
        recorder.AddField({.fName = "x"});
        recorder.AddFieldWithoutVariable();
        NOPROutputStats::HTOBinomial test;
        test.fTable = {"", {"Observed"}, {"0"}, {{100}}};
        for (const auto& parameter : row.parameters)
            test.fCondition.fParameters.push_back({0, parameter});
        Binomial view(recorder.Dictionary(), &recorder.Stats(), &test);
        const auto chart = recorder.Draw([&] { view.Render("", false); });
        ASSERT_TRUE(chart);
        EXPECT_EQ(chart->fText, row.expected);
    }
}
