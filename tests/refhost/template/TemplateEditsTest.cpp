#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <utility>
#include <vector>

#include "TemplateText.h"
#include "refhost/template/ReadTemplate.h"

using refhost::ReadTemplate;
using refhost::tree::Visualization;

namespace {

struct Edit {
    const char* fTemplate;
    const char* fMarker;       ///< what a view looks for
    const char* fFirstBehind;  ///< what stands behind the marker's first occurrence
    const char* fWhy;
};

// clang-format off
constexpr Edit kEdits[] = {
    {"NPARHistogram", "<binStatistic/>", "</x>", "erased for categories"},
    {"NPARHistogram", "<summaryStatistic method=\"sum\"/>", "</y>", "erased for categories"},
    {"NPARStackedBar", "scalingFactor=", "\"1\"", "one character between quotes"},
    {"NPARChiSquareTest", "<popup", " target=", "a popup's text goes behind the one blank"},
    {"NPAROneSampleRunsTest", "<range max=\"", "999\"", "three characters"},
    {"NPAROneSampleRunsTest", "parameter=\"", "00\"", "two characters"},
    {"NPAROneSampleRunsTest", "secondaryParameter=\"", "0\"", "one character"},
    {"NPAROneSampleRunsTest", "<lineGuide x=\"20", "\"", "two characters"},
    {"NPAROneSampleRunsTest", "<lineGuide x=\"500", "\"", "three characters"},
    {"NPAROneSampleRunsTest", "10%", "\"/>", "the graph's top"},
    {"NPARRelatedSamplesHistogram", "alternating=", "\"false\" side=\"x\"",
     "five letters, then the first x behind them"},
    {"NPARRelatedSamplesHistogram", "invert=\"", "true\"", "four letters"},
    {"NPARRelatedSamplesHistogram", "3%", "\"/>", "not the end of another number"},
    {"NPARRelatedSamplesHistogram", "<label id=\"subLabel\">", "<text>subTitle</text></label>",
     "removed with what it holds"},
    {"FacetBarChart", "<color", " id=\"color1\"", "becomes a pattern, so it closes itself"},
    {"FacetBarChart", "<legend", " id=", "removed through its closing tag"},
    {"GLMMPairwiseContrasts", "$[1]$", "\">", "the edge's significance"},
    {"GLMMPairwiseContrasts", "id=\"style7\"", " color=", "a visible is put before it"},
    {"GLMMPairwiseContrasts", "</graphLayoutStatistic>", "", "a closing tag of its own"},
};
// clang-format on

struct Columns {
    const char* fTemplate;
    const char* fSource;
    std::vector<std::pair<const char*, const char*>> fVariables;  ///< id, column
};

/// What views fill, and the names by which they ask for it.
const Columns kColumns[] = {
    {"NPARHistogram", "graphSource", {{"value", "value"}, {"count", "count"}}},
    {"NPARStackedBar",
     "graphSource",
     {{"categories", "categories"}, {"type", "type"}, {"value", "value"}, {"tooltip", "tooltip"}}},
    {"NPARChiSquareTest",
     "graphSource",
     {{"Category", "Category"},
      {"Frequency", "Frequency"},
      {"Observed", "Observed"},
      {"Hypothesized", "Hypothesized"},
      {"Type", "Type"},
      {"Residual", "Residual"}}},
    {"NPARBoxplot",
     "boxplotSource",
     {{"Value", "Value"}, {"Label", "Label"}, {"Category", "Category"}, {"Tooltips", "Tooltips"}}},
    {"NPARRelatedSamplesHistogram",
     "graphSource",
     {{"counts", "COUNTS"}, {"means", "MEANS"}, {"labelname", "LABELNAME"}, {"types", "TYPES"}}},
    {"NPARKolmogorovSmirnov",
     "graphSource",
     {{"counts", "COUNTS"}, {"means", "MEANS"}, {"labelname", "LABELNAME"}, {"types", "TYPES"}}},
    {"NPARWilcoxonPairSignedRank", "graphSource", {{"count", "count"}, {"value", "value"}}},
    {"FacetBarChart",
     "graphSource",
     {{"celltext", "CellText"},
      {"Column", "Column"},
      {"Row", "Row"},
      {"category", "Category"},
      {"cellvalue", "CellValue"},
      {"observed", "ObservedTooltip"},
      {"hypothesized", "HypothesizedTooltip"}}},
    {"GLMMPairwiseContrasts", "nodeSource_1", {{"node", "node"}}},
    {"GLMMPairwiseContrasts",
     "edgeSource_1",
     {{"from", "from"},
      {"to", "to"},
      {"weight", "weight"},
      {"weightInPopup", "weightInPopup"},
      {"type", "type"},
      {"tooltip", "tooltip"}}},
};

/// What a view erases from a text: an opening through the end of a closing.
std::string Erased(std::string text, std::string_view opening, std::string_view closing)
{
    const auto from = text.find(opening);
    const auto to = text.find(closing, from);
    EXPECT_NE(from, std::string::npos) << opening;
    EXPECT_NE(to, std::string::npos) << closing;
    if (from == std::string::npos || to == std::string::npos) return text;
    return text.erase(from, to + closing.size() - from);
}

/// What stands between two words; empty where they don't.
std::string Between(const std::string& text, std::string_view before, std::string_view behind)
{
    const auto from = text.find(before);
    if (from == std::string::npos) return {};
    const auto begin = from + before.size();
    return text.substr(begin, text.find(behind, begin) - begin);
}

Visualization Read(const std::string& text)
{
    const auto tree = ReadTemplate(text);
    EXPECT_TRUE(tree) << text;
    return tree.value_or(Visualization());
}

}  // namespace

TEST(TemplateEdits, FindTheirMarkersAndThePlaceholdersOfFixedWidth)
{
    for (const Edit& edit : kEdits) {
        SCOPED_TRACE(std::string(edit.fTemplate) + ": " + edit.fMarker + ": " + edit.fWhy);
        const std::string text = TemplateText(edit.fTemplate);
        const auto at = text.find(edit.fMarker);
        ASSERT_NE(at, std::string::npos);
        const std::string_view behind = edit.fFirstBehind;
        EXPECT_EQ(text.substr(at + std::string_view(edit.fMarker).size(), behind.size()), behind);
    }
}

TEST(TemplateEdits, TheDataOfAViewHaveTheirVariables)
{
    for (const Columns& columns : kColumns) {
        const auto tree = Read(TemplateText(columns.fTemplate));
        for (const auto& [id, column] : columns.fVariables) {
            SCOPED_TRACE(std::string(columns.fTemplate) + ": " + id);
            const auto* const variable = tree.FindSourceVariable(id);
            ASSERT_TRUE(variable);
            EXPECT_EQ(variable->fSource, columns.fSource);
            EXPECT_EQ(variable->fColumn, column);
        }
    }
    const auto pair = Read(TemplateText("NPARWilcoxonPairSignedRank"));
    const auto* const sign = pair.FindDerivedVariable("type");
    ASSERT_TRUE(sign);
    EXPECT_EQ(sign->fCases[0].fValue, "0positive");
    EXPECT_EQ(sign->fCases[1].fValue, "1negative");
}

/// Every id to which a template refers is there.
TEST(TemplateEdits, TemplatesReferToWhatTheyHold)
{
    for (const Columns& columns : kColumns) {
        SCOPED_TRACE(columns.fTemplate);
        const auto tree = Read(TemplateText(columns.fTemplate));
        const auto& graph = tree.fGraphs.front();
        const auto isVariable = [&](const std::string& id) {
            return tree.FindSourceVariable(id) || tree.FindDerivedVariable(id);
        };
        std::vector<std::string> elements;
        std::vector<std::string> colors;
        for (const auto& element : graph.fElements) {
            elements.push_back(element.fId);
            EXPECT_TRUE(element.fStyle.empty() || tree.FindStyle(element.fStyle)) << element.fId;
            for (const auto& position : {element.fX, element.fY}) {
                EXPECT_TRUE(!position || isVariable(position->fVariable)) << element.fId;
            }
            for (const auto& color : element.fColors) {
                colors.push_back(color.fId);
                EXPECT_TRUE(isVariable(color.fVariable)) << color.fVariable;
            }
            for (const auto& labeling : element.fLabelings) {
                EXPECT_TRUE(isVariable(labeling.fVariable)) << labeling.fVariable;
            }
        }
        for (const auto& popup : tree.fPopups) {
            EXPECT_NE(std::find(elements.begin(), elements.end(), popup.fTarget), elements.end());
            for (const auto& mapping : popup.fMappings) {
                EXPECT_TRUE(isVariable(mapping.fVariable)) << mapping.fVariable;
            }
        }
        for (const auto& legend : tree.fLegends) {
            EXPECT_NE(std::find(colors.begin(), colors.end(), legend.fTargets.front().fTarget),
                      colors.end());
        }
        for (const auto& order : tree.fOrders)
            EXPECT_TRUE(isVariable(order.fVariable));
        for (const auto& facet : graph.fFacets)
            EXPECT_TRUE(isVariable(facet.fVariable));
        for (const auto& axis : graph.fAxes) {
            EXPECT_TRUE(axis.fStyle.empty() || tree.FindStyle(axis.fStyle)) << axis.fStyle;
        }
    }
}

TEST(TemplateEdits, ACurveOverTheHistogramStandsInItsGraph)
{
    const auto tree =
        Read(Replaced(TemplateText("NPARHistogram"), "</graph>",
                      "<line><distributionStatistic distribution=\"normal\" "
                      "parameter=\"4.5\" secondaryParameter=\"1.25\"/>"
                      "<x variable=\"value\"/><y variable=\"count\"/></line></graph>"));
    ASSERT_EQ(tree.fGraphs.front().fElements.size(), 2u);
    EXPECT_TRUE(tree.fGraphs.front().fElements.front().fX->fBinned);
    const auto& curve = tree.fGraphs.front().fElements.back();
    ASSERT_TRUE(curve.fDistribution);
    EXPECT_EQ(curve.fDistribution->fParameter->fValue, 4.5);
    EXPECT_EQ(curve.fDistribution->fSecondary->fValue, 1.25);
}

TEST(TemplateEdits, CategoriesAreNeitherBinnedNorSummed)
{
    auto text = Replaced(TemplateText("NPARHistogram"), "<binStatistic/>", "");
    text = Replaced(text, "<summaryStatistic method=\"sum\"/>", "");
    const auto bars = Read(text).fGraphs.front().fElements.front();
    EXPECT_FALSE(bars.fX->fBinned);
    EXPECT_EQ(bars.fY->fSummary, refhost::tree::Summary::None);
}

TEST(TemplateEdits, TheGuideOfAnObservedCountThatBeginsWith500IsNotTakenForTheMeans)
{
    auto text = TemplateText("NPAROneSampleRunsTest");
    text.replace(text.find("<lineGuide x=\"20") + 14, 2, "5003");
    text.replace(text.find("<lineGuide x=\"500") + 14, 3, "4870.25");
    const auto guides = Read(text).fGraphs.front().fLineGuides;
    ASSERT_EQ(guides.size(), 2u);
    EXPECT_EQ(guides.front().Place(), 4870.25);
    EXPECT_EQ(guides.back().Place(), 5003);
}

TEST(TemplateEdits, RunsTakeRangeParametersAndTheRoomForASplit)
{
    auto text = TemplateText("NPAROneSampleRunsTest");
    text.replace(text.find("<range max=\"") + 12, 3, "31");
    text.replace(text.find("parameter=\"") + 11, 2, "15.73");
    text.replace(text.find("secondaryParameter=\"") + 20, 1, "2.75");
    const auto graph = Read(Replaced(text, "10%", "15%")).fGraphs.front();
    EXPECT_EQ(graph.fDimensions.front().fMax, 31);
    EXPECT_EQ(graph.fElements.front().fDistribution->fParameter->fValue, 15.73);
    EXPECT_EQ(graph.fElements.front().fDistribution->fSecondary->fValue, 2.75);
    EXPECT_EQ(refhost::tree::Fraction(graph.fLocations.front().fValue), 0.15);
}

TEST(TemplateEdits, TwoGroupsAreMirroredInTheHistogramsOfRelatedSamples)
{
    const auto before = Read(TemplateText("NPARRelatedSamplesHistogram")).fGraphs.front();
    EXPECT_FALSE(before.fFacetLayout->fAlternating);

    auto text = TemplateText("NPARRelatedSamplesHistogram");
    const auto at = text.find("alternating=") + 13;
    text.replace(at, 5, "true");
    text[text.find('x', at)] = 'y';
    text.replace(text.find("invert=\"") + 8, 4, "false");
    text.replace(text.find("3%"), 1, "18");
    const auto graph = Read(text).fGraphs.front();
    EXPECT_TRUE(graph.fFacetLayout->fAlternating);
    EXPECT_EQ(graph.fFacetLayout->fSide, refhost::tree::Dimension::Y);
    EXPECT_FALSE(graph.fFacetLayout->fInvert);
    EXPECT_EQ(graph.fLocations.front().fValue, "18%");
}

TEST(TemplateEdits, RanksLoseTheSubLabelAndNothingElse)
{
    const auto tree = Read(
        Erased(TemplateText("NPARRelatedSamplesHistogram"), "<label id=\"subLabel\">", "</label>"));
    ASSERT_EQ(tree.fLabelFrames.size(), 1u);
    EXPECT_TRUE(tree.fLabelFrames.front().fLabels.empty());
    EXPECT_EQ(tree.fGraphs.front().fAxes.size(), 3u);
}

TEST(TemplateEdits, BoxesTakeAPopupOnTheMedianALineAndItsFrame)
{
    auto text =
        Replaced(TemplateText("NPARBoxplot"), "</visualization>",
                 "<popup part=\"median\" target=\"schema\" tokenTemplate=\"Mean Rank=$[1]$\">"
                 "<tokenMapping valueToken=\"1\" variable=\"Tooltips\"/></popup>"
                 "</visualization>");
    text = Replaced(text, "</graph>", "<lineGuide y=\"258.500\"/></graph>");
    text = Replaced(text, "</graph>",
                    "</graph><labelFrame><location method=\"sizeToContent\" part=\"width\"/>"
                    "<location method=\"fixed\" part=\"bottom\" value=\"35%\"/>"
                    "<location method=\"same\" part=\"right\" target=\"graph1\"/>"
                    "<label><text>Grand Median = 258.500</text></label></labelFrame>");
    const auto tree = Read(text);
    const auto& graph = tree.fGraphs.front();
    ASSERT_EQ(tree.fPopups.size(), 1u);
    EXPECT_EQ(tree.fPopups.front().fTarget, graph.fElements.front().fId);
    EXPECT_EQ(tree.fPopups.front().fPart, "median");
    ASSERT_EQ(graph.fLineGuides.size(), 1u);
    EXPECT_EQ(graph.fLineGuides.front().fDimension, refhost::tree::Dimension::Y);
    ASSERT_EQ(tree.fLabelFrames.size(), 1u);
    EXPECT_EQ(tree.fLabelFrames.front().Shown(), "Grand Median = 258.500");
    EXPECT_EQ(tree.fLabelFrames.front().fLocations.back().fTarget, graph.fId);
}

TEST(TemplateEdits, ColoursOfTheCrossTableBecomePatterns)
{
    const auto colors =
        Read(TemplateText("FacetBarChart")).fGraphs.front().fElements.front().fColors;
    const auto patterns = Read(Replaced(TemplateText("FacetBarChart"), "<color", "<pattern"))
                              .fGraphs.front()
                              .fElements.front()
                              .fColors;
    ASSERT_EQ(patterns.size(), 1u);
    EXPECT_FALSE(colors.front().fPattern);
    EXPECT_TRUE(patterns.front().fPattern);
    EXPECT_EQ(patterns.front().fVariable, colors.front().fVariable);
}

TEST(TemplateEdits, OneCountACellNeedsNoLegendAndOneTokenOnly)
{
    auto text = Erased(TemplateText("FacetBarChart"), "<legend", "</legend>");
    const auto second = text.find("<tokenMapping", text.find("<tokenMapping") + 1);
    ASSERT_NE(second, std::string::npos);
    text.erase(second, text.find("/>", second) + 2 - second);
    const auto tree = Read(text);
    EXPECT_TRUE(tree.fLegends.empty());
    EXPECT_TRUE(tree.fExtension->fLegends.empty());
    ASSERT_EQ(tree.fPopups.front().fMappings.size(), 1u);
    EXPECT_EQ(tree.fPopups.front().fMappings.front().fVariable, "observed");
}

TEST(TemplateEdits, LeaveNoWordInOneLanguage)
{
    for (const char* name : {"FacetBarChart", "NPAROneSampleRunsTest"}) {
        SCOPED_TRACE(name);
        const auto tree = ReadTemplate(TemplateText(name), [](std::string_view key) {
            return key == "Frequency" || key == "Number of Runs" ? "translated" : std::string(key);
        });
        ASSERT_TRUE(tree);
        int translated = 0;
        for (const auto& axis : tree->fGraphs.front().fAxes)
            translated += axis.fLabel && axis.fLabel->Shown() == "translated";
        EXPECT_EQ(translated, 1);
    }
    const std::string opening = "<text>";
    for (const auto& file :
         std::filesystem::directory_iterator(NONPAR_SOURCE_DIR "/refhost/templates")) {
        const std::string name = file.path().stem();
        const std::string text = TemplateText(name);
        const std::string placeholders = ";" + Between(text, "placeholders words=\"", "\"") + ";";
        for (auto at = text.find(opening); at != std::string::npos;
             at = text.find(opening, at + 1)) {
            const std::string word = Between(text.substr(at), opening, "</text>");
            SCOPED_TRACE(name + ": " + word);
            const bool isArrow = word.find("&#") != std::string::npos;
            EXPECT_TRUE(isArrow || placeholders.find(";" + word + ";") != std::string::npos);
        }
    }
}

TEST(TemplateEdits, TheNetworkLosesFacetsAndLegendAndHidesItsAxes)
{
    auto text = Erased(TemplateText("GLMMPairwiseContrasts"), "<faceting", "</faceting>");
    text = Erased(text, "<facetLayout", "</facetLayout>");
    text = Erased(text, "<legend", "</legend>");
    text = Replaced(text, "id=\"style7\"", " visible=\"false\" id=\"style7\"");
    text = Replaced(text, "</graphLayoutStatistic>", "<swap/></graphLayoutStatistic>");
    text = Replaced(text, "$[1]$", "Adj.Sig. = $[1]$");
    const auto tree = Read(text);
    const auto& graph = tree.fGraphs.front();
    EXPECT_TRUE(graph.fFacets.empty());
    EXPECT_FALSE(graph.fFacetLayout);
    EXPECT_TRUE(tree.fLegends.empty());
    EXPECT_TRUE(graph.fLayout->fSwap);
    for (const auto& axis : graph.fAxes)
        EXPECT_FALSE(tree.FindStyle(axis.fStyle)->fVisible);
    EXPECT_EQ(tree.fPopups.front().fTarget, "edges");
    EXPECT_EQ(tree.fPopups.front().fTokenTemplate, "$[0]$ - $[2]$\nAdj.Sig. = $[1]$");
}
