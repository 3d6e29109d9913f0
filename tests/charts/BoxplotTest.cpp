#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/ViewRecorder.h"

#include "charts/Boxplot.h"

#include "host/chart/ChartString.h"
#include "host/chart/XDocument.h"

using testing::ElementsAre;

namespace {

using Group = NOPROutputStats::BoxGroup;

constexpr char kTemplate[] = "NPARBoxplot.viztemplate";

class PlainBoxes final : public Boxplot {
public:
    PlainBoxes(ViewRecorder& recorder, const NOPROutputStats::BoxPlotData* boxes,
               const NOPROutputStats::ConditionData* condition)
        : Boxplot(recorder.Dictionary(), &recorder.Stats())
    {
        SetTitle("Boxes");
        SetBoxPlot(boxes);
        SetCondition(condition);
    }
    std::vector<double> CategoryCodes(const Group& group) override
    {
        std::vector<double> codes = Boxplot::CategoryCodes(group);
        if (group.fMeanOfRank != MissingValue) codes.push_back(group.fMeanOfRank);
        return codes;
    }
    void EditTemplate(std::string& text) override { text += "+"; }
    void EditDocument(XDocument& document) override { document.getVisualization(); }
};

NOPROutputStats::ConditionData TwoFields()
{
    return {"TwoFields_I_Median_2", {{0, {0}}, {1, {1}}}, {}};
}

Group BoxOf(std::vector<double> box, std::vector<std::vector<double>> outliers = {})
{
    Group group;
    group.fGroupIndex = 4;
    group.fBox.fRows = {std::move(box)};
    group.fOutliers.fRows = std::move(outliers);
    return group;
}

std::optional<refhost::ChartNode> Draw(ViewRecorder& recorder, const std::vector<Group>& groups,
                                       const NOPROutputStats::ConditionData& condition)
{
    NOPROutputStats::BoxPlotData boxes;
    boxes.fGroups = groups;
    PlainBoxes view(recorder, &boxes, &condition);
    return recorder.Draw([&] { view.Render("s", true); });
}

/// The numbers of the rows, or of one column.
std::vector<std::string> RowsOf(const std::vector<Group>& groups)
{
    ViewRecorder recorder;
    recorder.SetTemplate(kTemplate, "t");
    const auto chart = Draw(recorder, groups, TwoFields());
    return chart ? RowLines(*chart, "boxplotSource") : std::vector<std::string>();
}

std::string Values(const Group& group)
{
    std::string values;
    for (const std::string& line : RowsOf({group}))
        if (line.starts_with("Value=")) values += line.substr(6, line.find(" Category") - 6) + " ";
    return values;
}

}  // namespace

TEST(Boxplot, MakesRowsWhoseStatisticsAreTheDocuments)
{
    struct Row {
        std::vector<std::vector<double>> outliers;
        const char* expected;
        const char* why;
    };
    for (const Row& row :
         {Row{{}, "1 2 2 3 5 4 4 ", "no outliers"},
          Row{{{9}}, "1 2 2 2 2 3 9 5 4 4 4 ", "one above; the shorter half grows by its middle"},
          Row{{{-9, -8}},
              "-9 -8 1 2 2 2 2 3 5 4 4 4 4 4 4 ",
              "two below; the upper half grows from 3 to 7"},
          Row{{{3}}, "1 2 2 2 2 3 3 5 4 4 4 ", "one at the median counts as above"}}) {
        SCOPED_TRACE(row.why);
        EXPECT_EQ(Values(BoxOf({1, 2, 3, 4, 5}, row.outliers)), row.expected);
    }
}

TEST(Boxplot, LabelsRowsByTheirValueAndCodesByTheirGroup)
{
    Group withLabels = BoxOf({1, 2, 3, 4, 5}, {{9, 9}, {70, 71}});
    withLabels.fMeanOfRank = 2.345;
    EXPECT_THAT(
        RowsOf({withLabels}),
        testing::AllOf(testing::SizeIs(16),
                       testing::Contains("Value=9 Label=71 Category=4 Tooltips=\"2.35\"").Times(2),
                       testing::Contains("Value=5 Category=4 Tooltips=\"2.35\"").Times(1)));

    EXPECT_THAT(RowsOf({BoxOf({1, 1, 1, 1, 1}, {{1}, {7}})}),
                testing::Contains("Value=1 Label=7 Category=4").Times(11))
        << "a padded number that equals an outlier takes its label";
    EXPECT_THAT(RowsOf({BoxOf({1, 2, 3, 4, 5}, {{8, 9}, {70}})}),
                testing::IsSupersetOf({"Value=8 Label=70 Category=4", "Value=9 Category=4"}))
        << "labels for the first outliers only";
}

TEST(Boxplot, LeavesOutGroupsWithAShortBox)
{
    Group noBox;
    EXPECT_THAT(RowsOf({BoxOf({1, 2, 3, 4}), noBox, BoxOf({1, 2, 3, 4, 5})}), testing::SizeIs(8));
    EXPECT_THAT(RowsOf({BoxOf({1, 2, 3, 4})}), testing::IsEmpty()) << "no row, no chart";
}

TEST(Boxplot, BindsBothFieldsAfterTheDocumentWasEdited)
{
    ViewRecorder recorder;
    recorder.SetTemplate(kTemplate, "yAxisText xAxisText yAxisText");
    recorder.SetWords({{"E62935", "Group"}});
    recorder.AddField({.fName = "weight", .fLabel = "Weight R&D"});
    recorder.AddField({.fName = "feed"}, {{"1", "casein"}});
    const auto chart = Draw(recorder, {BoxOf({1, 2, 3, 4, 5})}, TwoFields());
    ASSERT_TRUE(chart);
    EXPECT_EQ(chart->fText, "Weight R&D feed yAxisText+");
    EXPECT_THAT(
        CallLines(*chart),
        ElementsAre(
            "XDocument.setEditor 2", "XDocument.setLanguage", "XDocument.getVisualization",
            "XDocument.getExternalGraph", "XGraph.setTitle \"Boxes\"", "XGraph.setSubtitle \"s\"",
            "XGraph.getVariable \"Value\"", "XVariable.setQORTVariable \"Value\" \"weight\"",
            "XVariable.setFormatBasedOnQORTVariable \"Value\" \"weight\"",
            "XGraph.getVariable \"Category\"", "XVariable.setQORTVariable \"Category\" \"feed\"",
            "XVariable.addRelabel \"Category\" \"0\" \"casein\"",
            "XVariable.setQORTVariable \"Category\" \"feed\"",
            "XVariable.setLabel \"Category\" \"Group\"", "XDocument.SetDescription \"Boxes; s\"",
            "XDocument.SetChartData", "XDocument.applyCTemplate false",
            "XDocument.SendChart true false false"));
}

TEST(Boxplot, DrawsWithoutFieldsThatTheConditionDoesNotName)
{
    struct Row {
        NOPROutputStats::ConditionData condition;
        const char* why;
    };
    for (const Row& row :
         {Row{{"OneField_I_Median_1", {{0, {0}}}, {}}, "one field"},
          Row{{"NoMark", {{0, {0}}, {1, {1}}}, {}}, "a key without a family"},
          Row{{"Far_I_Median_2", {{0, {-5}}, {1, {1e300}}}, {}}, "no such field"}}) {
        SCOPED_TRACE(row.why);
        ViewRecorder recorder;
        recorder.SetTemplate(kTemplate, "yAxisText xAxisText");
        recorder.AddField({.fName = "weight"});
        recorder.AddField({.fName = "feed"});
        const auto chart = Draw(recorder, {BoxOf({1, 2, 3, 4, 5})}, row.condition);
        ASSERT_TRUE(chart);
        EXPECT_EQ(chart->fText, "yAxisText xAxisText+");
        EXPECT_THAT(CallLines(*chart),
                    testing::Not(testing::Contains(testing::StartsWith("XGraph.getVariable"))));
    }
}

TEST(Boxplot, NeedsBoxesAndACondition)
{
    ViewRecorder recorder;
    recorder.SetTemplate(kTemplate, "t");
    const NOPROutputStats::ConditionData condition = TwoFields();
    NOPROutputStats::BoxPlotData boxes;
    boxes.fGroups = {BoxOf({1, 2, 3, 4, 5})};
    PlainBoxes noBoxes(recorder, nullptr, &condition);
    PlainBoxes noCondition(recorder, &boxes, nullptr);
    EXPECT_FALSE(recorder.Draw([&] { EXPECT_FALSE(noBoxes.Render("", false)); }));
    EXPECT_FALSE(recorder.Draw([&] { EXPECT_FALSE(noCondition.Render("", false)); }));
}
