#include <cstddef>
#include <iterator>

#include <gtest/gtest.h>

#include "TemplateText.h"
#include "refhost/template/ReadTemplate.h"

using refhost::ReadTemplate;
using refhost::tree::Visualization;

namespace {

using Find = std::string (*)(const Visualization&);

struct Token {
    const char* fTemplate;
    const char* fToken;
    const char* fReplacement;  ///< "@" stands for the label
    Find fFind;                ///< where the label has to be found
};

std::string Axis(const Visualization& tree, std::size_t index)
{
    return tree.fGraphs.front().fAxes.at(index).fLabel->Shown();
}

std::string Frame(const Visualization& tree, std::ptrdiff_t index)
{
    return std::next(tree.fLabelFrames.begin(), index)->Shown();
}

std::string Facet(const Visualization& tree, std::size_t index)
{
    return tree.fGraphs.front().fFacets.at(index).fLabel->Shown();
}

std::string Legend(const Visualization& tree) { return tree.fLegends.front().fLabel->Shown(); }
std::string Title(const Visualization& tree) { return tree.fExtension->fTitle->Shown(); }
std::string Footnote(const Visualization& tree) { return tree.fExtension->fFootnote->Shown(); }

/// The popup's template up to its own first token.
std::string Popup(const Visualization& tree)
{
    const std::string& text = tree.fPopups.back().fTokenTemplate;
    return text.substr(0, text.find("=$["));
}

std::string FirstPopup(const Visualization& tree)
{
    const std::string& text = tree.fPopups.front().fTokenTemplate;
    return text.substr(0, text.find("=$["));
}

std::string First(const Visualization& tree) { return Axis(tree, 0); }
std::string Second(const Visualization& tree) { return Axis(tree, 1); }
std::string Third(const Visualization& tree) { return Axis(tree, 2); }

constexpr const char* kHistogram = "NPARHistogram";
constexpr const char* kStacked = "NPARStackedBar";
constexpr const char* kChiSquare = "NPARChiSquareTest";
constexpr const char* kRuns = "NPAROneSampleRunsTest";
constexpr const char* kBoxes = "NPARBoxplot";
constexpr const char* kRelated = "NPARRelatedSamplesHistogram";
constexpr const char* kMirrored = "NPARKolmogorovSmirnov";
constexpr const char* kPaired = "NPARWilcoxonPairSignedRank";
constexpr const char* kFacets = "FacetBarChart";
constexpr const char* kNetwork = "GLMMPairwiseContrasts";

// In the order in which views replace them. A later token may be the text of an earlier label.
// clang-format off
constexpr Token kTokens[] = {
    {kHistogram, "xAxisLabel", "@", Second},
    {kHistogram, "yAxisLabel", "@", First},
    {kHistogram, "labelText",  "@", [](const Visualization& tree) { return Frame(tree, 0); }},
    {kStacked, "yAxisLabel",  "@", Second},
    {kStacked, "LegendLabel", "@", Legend},
    {kStacked, "CategoryOrderText", "first;@;last",
     [](const Visualization& tree) { return tree.fOrders.front().fValues.at(1); }},
    {kChiSquare, "titleText",   "@", Title},
    {kChiSquare, "xAxisText",   "@", Second},
    {kChiSquare, "yAxisText",   "@", First},
    {kChiSquare, "legendTitle", "@", Legend},
    {kChiSquare, "<popup ",     "<popup tokenTemplate=\"@=$[category]$\n\" ", Popup},
    {kRuns, "ObservedRunsText", "@",
     [](const Visualization& tree) { return tree.fGraphs.front().fLineGuides.back().fLabel->Shown(); }},
    {kRuns, "TooFewRuns",  "@", [](const Visualization& tree) { return tree.fLabelFrames.back().fLabels.front().fTexts.back().fText; }},
    {kRuns, "TooManyRuns", "@", [](const Visualization& tree) { return tree.fLabelFrames.front().fLabels.front().fTexts.front().fText; }},
    {kBoxes, "yAxisText", "@", Second},
    {kBoxes, "xAxisText", "@", First},
    {kBoxes, "</visualization>",
     "<popup part=\"median\" target=\"schema\" tokenTemplate=\"@=$[1]$\">"
     "<tokenMapping valueToken=\"1\" variable=\"Tooltips\"/></popup></visualization>", Popup},
    {kRelated, "xTitle",   "@", Third},
    {kRelated, "subTitle", "@", [](const Visualization& tree) { return Frame(tree, 0); }},
    {kRelated, "yTitle0",  "@", Second},
    {kRelated, "yTitle1",  "@", First},
    {kMirrored, "xTitle",   "@", Third},
    {kMirrored, "subTitle", "@", [](const Visualization& tree) { return Frame(tree, 0); }},
    {kMirrored, "yTitle0",  "@", Second},
    {kMirrored, "yTitle1",  "@", First},
    {kPaired, "LegendLabel", "@",
     [](const Visualization& tree) { return tree.fDerivedVariables.front().fFormats.front().fRelabels[0].fTo; }},
    {kPaired, "XAxis Text", "@", Second},
    {kPaired, "YAxis Text", "@", First},
    {kFacets, "TitleText",   "@", Title},
    {kFacets, "Facet1Text",  "@", [](const Visualization& tree) { return Facet(tree, 1); }},
    {kFacets, "Facet2Text",  "@", [](const Visualization& tree) { return Facet(tree, 0); }},
    {kFacets, "tooltipText", "@=$[0]$", FirstPopup},
    {kNetwork, "TitleText",    "@", Title},
    {kNetwork, "FootnoteText", "@", Footnote},
    {kNetwork, "$[0]$ - $[2]$&#10;$[1]$", "@=$[1]$", FirstPopup},
};

constexpr const char* kLabels[] = {
    "R&D <5\" 'x' ]]>",
    "\"",
    "5\">6",
    "5\"/>6",
    "a < b & c > d; \"quoted\" text\"",
    "<b>bold</b> <text>",
    "<!-- no comment -->",
    "line\nfeed\ttab",
    "  blanks around  ",
    "&nbsp; &#0; &#xD800; &#99999999; &",
    "x\" variable=\"y",
    "back\\slash\\",
    "\xE6\x97\xA5\xE6\x9C\xAC \xC3\xBC",
    "</text> goes on",
};
// clang-format on

}  // namespace

TEST(HostileLabel, ComesThroughAsItIsAtEveryTokenOfEveryTemplate)
{
    for (const Token& token : kTokens) {
        for (const std::string label : kLabels) {
            SCOPED_TRACE(std::string(token.fTemplate) + ": " + token.fToken + ": " + label);
            const std::string text = Replaced(TemplateText(token.fTemplate), token.fToken,
                                              Replaced(token.fReplacement, "@", label));
            ASSERT_NE(text, TemplateText(token.fTemplate)) << "no such token";
            const auto tree = ReadTemplate(text);
            ASSERT_TRUE(tree);
            // Between the ends of a list a ";" parts, so only labels without one can be told.
            if (token.fFind == kTokens[5].fFind && label.find(';') != std::string::npos) continue;
            EXPECT_EQ(token.fFind(*tree), label);
        }
    }
}

TEST(HostileLabel, ATokenThatNobodyReplacedShowsAsNothing)
{
    for (const Token& token : kTokens) {
        if (token.fToken[0] == '<' || token.fToken[0] == '$') continue;
        SCOPED_TRACE(std::string(token.fTemplate) + ": " + token.fToken);
        const auto tree = ReadTemplate(TemplateText(token.fTemplate));
        ASSERT_TRUE(tree);
        if (token.fFind == kTokens[5].fFind) {
            EXPECT_TRUE(tree->fOrders.empty());
        } else if (std::string_view(token.fTemplate) == kPaired &&
                   std::string_view(token.fToken) == "LegendLabel") {
            EXPECT_TRUE(tree->fDerivedVariables.front().fFormats.front().fRelabels.empty());
        } else {
            EXPECT_EQ(token.fFind(*tree), "");
        }
    }
}
