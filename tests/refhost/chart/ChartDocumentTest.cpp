#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "refhost/data/VariableData.h"
#include "refhost/document/HostRun.h"
#include "refhost/template/ChartDrawing.h"
#include "support/CollectedOutput.h"

#include "host/chart/ChartString.h"
#include "host/chart/VarDataProcessor.h"
#include "host/chart/ViZ.h"
#include "host/chart/XDocument.h"
#include "host/chart/XGraph.h"
#include "host/data/OBS.h"
#include "host/data/QORT_DataSource.h"
#include "host/data/QORT_Variable.h"

using refhost::ChartNode;

namespace {

constexpr const char* kTemplate =
    "<visualization><sourceVariable id=\"Category\" source=\"s\" column=\"Category\"/>"
    "<sourceVariable source=\"s\" column=\"other\"/>"
    "<graph id=\"graph1\"><schema id=\"schema\"/></graph></visualization>";

/// A document that is sent at the end of the test's work on it.
const ChartNode& Sent(CollectedOutput& output, XDocument& document)
{
    document.SendChart(/*visible=*/true, /*replace=*/false, /*silent=*/false);
    return *output.All<ChartNode>().back();
}

}  // namespace

TEST(ChartDocument, SettingsReachTheDrawing)
{
    CollectedOutput output;
    XDocument document(kTemplate);
    const auto source = refhost::MakeDataSource({{"day", "Day", false, {10, 20, 0}, {}}});
    XGraph& graph = document.getExternalGraph();
    XVariable variable = graph.getVariable("Category", 0);
    variable.setQORTVariable(source->GetVariable(0));
    variable.setFormatBasedOnQORTVariable(source->GetVariable(0));
    variable.setLabel(u"L");
    variable.addRelabel(u"0", u"first");
    variable.addRelabel(0U, u"second");
    const OBS day(1.0);
    variable.addRelabel(u"1", &day);
    graph.setOuterFrameHeight(1.2);

    const ChartNode& chart = Sent(output, document);
    ASSERT_TRUE(chart.fDrawing);
    const auto* const settings = chart.fDrawing->FindSettings("Category");
    ASSERT_TRUE(settings);
    EXPECT_EQ(settings->fHostLabel, "Day");
    EXPECT_EQ(settings->fHostFormat->fType, 20);
    EXPECT_EQ(settings->fLabel, "L");
    EXPECT_EQ(settings->fRelabels.find("0")->second, "second");
    EXPECT_EQ(settings->fRelabels.find("1")->second, "1970-01-02");
    EXPECT_EQ(chart.fDrawing->fHeight, 1.2);
    EXPECT_EQ(chart.fDrawing->fWidth, std::nullopt);
}

TEST(ChartDocument, AVariableThatTheTemplateDoesNotHoldTakesEveryCallAndChangesNothing)
{
    CollectedOutput output;
    XDocument document(kTemplate);
    XVariable variable = document.getExternalGraph().getVariable("missing", 0);
    variable.setQORTVariable(nullptr);
    variable.setLabel(u"L");
    variable.addRelabel(u"0", u"zero");
    document.getExternalGraph().getVariable(nullptr, 0).setLabel(u"L");
    const ChartNode& chart = Sent(output, document);
    EXPECT_EQ(chart.fCalls.size(), 9u);
    EXPECT_TRUE(chart.fDrawing->fVariables.empty());
}

TEST(ChartDocument, TitlesReachTheReaderAndTheTree)
{
    CollectedOutput output;
    XDocument document(
        "<visualization><extension><title><label style=\"s\"><text>from the template</text></label>"
        "</title></extension></visualization>");
    XGraph& graph = document.getExternalGraph();
    graph.setSubtitle(u"split");
    graph.setFootnote(nullptr);
    document.SetDescription(u"description");
    const ChartNode* chart = &Sent(output, document);
    EXPECT_EQ(chart->fTitle, "from the template");
    EXPECT_EQ(chart->fSubtitle, "split");
    EXPECT_EQ(chart->fFootnote, "");
    EXPECT_EQ(chart->fDescription, "description");

    graph.setTitle(u"own");
    chart = &Sent(output, document);
    EXPECT_EQ(chart->fTitle, "own");
    EXPECT_EQ(chart->fDrawing->fTree.fExtension->fTitle->fLabels.front().fStyle, "s");
}

TEST(ChartDocument, ATextThatIsNoTemplateStillMakesAChart)
{
    CollectedOutput output;
    XDocument document("no template");
    EXPECT_TRUE(document.getVisualization().getGraphs().empty());
    document.getExternalGraph().setTitle(u"title");
    document.getExternalGraph().getVariable("value", 0).setCategorical(true);
    const ChartNode& chart = Sent(output, document);
    EXPECT_FALSE(chart.fDrawing);
    EXPECT_EQ(chart.fText, "no template");
    EXPECT_EQ(chart.fTitle, "title");
}

TEST(ChartDocument, TakesTheDataAsTheyAreWhenItIsSent)
{
    CollectedOutput output;
    XDocument document(kTemplate);
    VarDataProcessor data;
    EXPECT_TRUE(Sent(output, document).fSources.empty());
    document.SetChartData(&data);
    data.AddDataSource("s", 0);
    EXPECT_EQ(Sent(output, document).fSources.size(), 1u);
}

TEST(ChartDocument, FetchesTemplatesByBareNameOnly)
{
    const auto folder = std::filesystem::path(testing::TempDir()) / "chart templates";
    std::filesystem::create_directories(folder / "sub");
    std::ofstream(folder / "A.viztemplate") << "text";
    std::ofstream(folder / "sub" / "B.viztemplate") << "text";
    CollectedOutput output;
    refhost::HostRun::Current().fTemplateFolder = folder.string();

    EXPECT_EQ(XDocument::fetchTemplateFile("A.viztemplate"), "text");
    for (const char* name :
         {"B.viztemplate", "sub/B.viztemplate", "../chart templates/A.viztemplate", "sub", ".",
          "..", "", "sub\\B.viztemplate"}) {
        EXPECT_EQ(XDocument::fetchTemplateFile(name), "") << name;
    }
    EXPECT_EQ(XDocument::fetchTemplateFile(nullptr), "");
    XDocument document("text");
    EXPECT_EQ(Sent(output, document).fTemplate, "A.viztemplate");
}

TEST(ChartDocument, ASecondChartIsApartFromTheFirst)
{
    CollectedOutput output;
    XDocument document(kTemplate);
    Sent(output, document);
    document.getVisualization().addStyle(u"late");
    Sent(output, document);
    const auto charts = output.All<ChartNode>();
    EXPECT_FALSE(charts[0]->fDrawing->fTree.FindStyle("late"));
    EXPECT_TRUE(charts[1]->fDrawing->fTree.FindStyle("late"));
}

TEST(ObjectModel, GuidesAndFramesShowInTheTree)
{
    CollectedOutput output;
    XDocument document(kTemplate);
    ViZVisualization& visualization = document.getVisualization();
    ViZGraph* const graph = visualization.getGraphs().front();
    ViZStyle* const style = visualization.addStyle(u"lineGuide1Style");
    style->setColor(u"green");
    ViZLineGuide* const guide = graph->addLineGuide();
    guide->setX(u"12.5");
    guide->setStyle(style);
    ViZLocation* const top = graph->addLocation();
    top->setPart(ENUM_part::Top);
    top->setValue(u"15%");
    top->setSpecifiedByUser(true);
    ViZLabelFrame* const frame = visualization.addLabelFrame(u"frame");
    ViZLocation* const left = frame->addLocation();
    left->setPart(ENUM_part::Left);
    left->setMethod(ENUM_method::Against);
    left->setTarget(graph);
    ViZLabel* const label = frame->addLabel();
    label->setStyle(style);
    label->addText()->setText(u"Median\n12.5");

    const auto& tree = Sent(output, document).fDrawing->fTree;
    const auto& drawn = tree.fGraphs.front();
    EXPECT_EQ(drawn.fLineGuides.front().Place(), 12.5);
    EXPECT_EQ(tree.FindStyle(drawn.fLineGuides.front().fStyle)->fColor, "green");
    EXPECT_EQ(drawn.fLocations.front().fPart, ENUM_part::Top);
    EXPECT_EQ(drawn.fLocations.front().fMethod, std::nullopt);
    EXPECT_EQ(tree.fLabelFrames.front().fLocations.front().fTarget, "graph1");
    EXPECT_EQ(tree.fLabelFrames.front().Shown(), "Median\n12.5");
}

TEST(ObjectModel, ColoursByADerivedVariableAndAddsItsLegend)
{
    CollectedOutput output;
    XDocument document(kTemplate);
    ViZVisualization& visualization = document.getVisualization();
    const auto variables = visualization.getSourceVariables();
    ASSERT_EQ(variables.size(), 2u);
    EXPECT_EQ(std::u16string(variables[1]->getId()), u"") << "a template may leave it out";
    ViZGraph* const graph = visualization.getGraphs().front();
    ASSERT_EQ(graph->getSchemas().size(), 1u);
    ViZSchema* const schema = graph->getSchemas().front();
    schema->addLabeling()->setVariable(variables[0]);
    ViZDerivedVariable* const derived = visualization.addDerivedVariable(u"Category_Derived");
    derived->setValue(u"Category");
    ViZColor* const color = schema->addColor();
    color->setId(u"group colour");
    color->setVariable(derived);
    ViZLegend* const legend = visualization.addLegend(u"legend1");
    legend->addLegendTarget(u"legend1_target", color);
    EXPECT_FALSE(visualization.getExtension());
    visualization.addExtension()->setLegend1(legend);
    derived->addFormat()->addRelabel(u"1", u"Control\n10");

    const auto& tree = Sent(output, document).fDrawing->fTree;
    const auto& element = tree.fGraphs.front().fElements.front();
    EXPECT_EQ(element.fLabelings.front().fVariable, "Category");
    EXPECT_EQ(element.fColors.front().fVariable, "Category_Derived");
    EXPECT_EQ(tree.fExtension->fLegends, std::vector<std::string>{"legend1"});
    EXPECT_EQ(tree.fLegends.front().fTargets.front().fTarget, "group colour");
    ASSERT_TRUE(tree.FindDerivedVariable("Category_Derived"));
    EXPECT_EQ(tree.FindDerivedVariable("Category_Derived")->fFormats.front().fRelabels[0].fTo,
              "Control\n10");
}

TEST(ObjectModel, HasASubtitleWhereTheChartHasOne)
{
    CollectedOutput output;
    XDocument document(kTemplate);
    EXPECT_FALSE(document.getVisualization().getExtension());
    document.getExternalGraph().setTitle(u"title");
    ASSERT_TRUE(document.getVisualization().getExtension());
    EXPECT_FALSE(document.getVisualization().getExtension()->getSubtitle());
    document.getExternalGraph().setSubtitle(u"split");
    EXPECT_TRUE(document.getVisualization().getExtension()->getSubtitle());
}
