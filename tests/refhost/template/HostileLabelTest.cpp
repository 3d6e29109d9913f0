#include <algorithm>
#include <map>

#include <gtest/gtest.h>

#include "refhost/template/ReadTemplate.h"

#include "support/DocumentBuilder.h"
#include "support/TemplateText.h"

using namespace refhost::tree;  // NOLINT(google-build-using-namespace): every line reads a tree

namespace {

using Places = std::multimap<std::string, std::string>;

void AddLabel(Places& places, const std::string& place, const std::optional<Label>& label)
{
    if (label) places.emplace(place, label->Shown());
}

void AddFrame(Places& places, const std::string& place, const LabelFrame& frame)
{
    for (const Label& label : frame.fLabels)
        for (const Text& text : label.fTexts)
            places.emplace(place, text.fText);
}

/// All that a reader may see of a template, by its place: axes count where they have a label. Of a
/// popup what stands before its first token.
Places TextsOf(const Visualization& tree)
{
    Places places;
    for (const Axis& axis : tree.fGraphs.front().fAxes)
        AddLabel(places, "axis " + std::to_string(places.size()), axis.fLabel);
    for (const Facet& facet : tree.fGraphs.front().fFacets)
        AddLabel(places, facet.fDirection == Facet::Direction::Rows ? "rows" : "columns",
                 facet.fLabel);
    for (const LineGuide& guide : tree.fGraphs.front().fLineGuides)
        AddLabel(places, guide.fId, guide.fLabel);
    for (const Legend& legend : tree.fLegends)
        AddLabel(places, "legend", legend.fLabel);
    for (const LabelFrame& frame : tree.fLabelFrames)
        AddFrame(places, "frame", frame);
    if (tree.fExtension && tree.fExtension->fTitle)
        AddFrame(places, "title", *tree.fExtension->fTitle);
    if (tree.fExtension && tree.fExtension->fFootnote)
        AddFrame(places, "footnote", *tree.fExtension->fFootnote);
    for (const Popup& popup : tree.fPopups)
        places.emplace("popup", popup.fTokenTemplate.substr(0, popup.fTokenTemplate.find("=$[")));
    for (const CategoryOrder& order : tree.fOrders)
        for (const std::string& value : order.fValues)
            places.emplace("order", value);
    for (const DerivedVariable& variable : tree.fDerivedVariables)
        for (const Format& format : variable.fFormats)
            for (const Relabel& relabel : format.fRelabels)
                places.emplace("relabel", relabel.fTo);
    return places;
}

struct Token {
    const char* fTemplate;
    const char* fToken;
    const char* fPlace;              ///< where the label has to be found
    const char* fReplacement = "@";  ///< "@" stands for the label
};

// In the order in which views replace them. A later token may be the text of an earlier label.
// clang-format off
constexpr Token kTokens[] = {
    {"NPARHistogram", "xAxisLabel", "axis 1"},
    {"NPARHistogram", "yAxisLabel", "axis 0"},
    {"NPARHistogram", "labelText",  "frame"},
    {"NPARStackedBar", "yAxisLabel",  "axis 0"},
    {"NPARStackedBar", "LegendLabel", "legend"},
    {"NPARStackedBar", "CategoryOrderText", "order", "first;@;last"},
    {"NPARChiSquareTest", "titleText",   "title"},
    {"NPARChiSquareTest", "xAxisText",   "axis 1"},
    {"NPARChiSquareTest", "yAxisText",   "axis 0"},
    {"NPARChiSquareTest", "legendTitle", "legend"},
    {"NPARChiSquareTest", "<popup ",     "popup", "<popup tokenTemplate=\"@=$[category]$\n\" "},
    {"NPAROneSampleRunsTest", "ObservedRunsText", "observedGuide"},
    {"NPAROneSampleRunsTest", "TooFewRuns",  "frame"},
    {"NPAROneSampleRunsTest", "TooManyRuns", "frame"},
    {"NPARBoxplot", "yAxisText", "axis 1"},
    {"NPARBoxplot", "xAxisText", "axis 0"},
    {"NPARBoxplot", "</visualization>", "popup",
     "<popup part=\"median\" target=\"schema\" tokenTemplate=\"@=$[1]$\">"
     "<tokenMapping valueToken=\"1\" variable=\"Tooltips\"/></popup></visualization>"},
    {"NPARRelatedSamplesHistogram", "xTitle",   "axis 2"},
    {"NPARRelatedSamplesHistogram", "subTitle", "frame"},
    {"NPARRelatedSamplesHistogram", "yTitle0",  "axis 1"},
    {"NPARRelatedSamplesHistogram", "yTitle1",  "axis 0"},
    {"NPARKolmogorovSmirnov", "xTitle",   "axis 2"},
    {"NPARKolmogorovSmirnov", "subTitle", "frame"},
    {"NPARKolmogorovSmirnov", "yTitle0",  "axis 1"},
    {"NPARKolmogorovSmirnov", "yTitle1",  "axis 0"},
    {"NPARWilcoxonPairSignedRank", "LegendLabel", "relabel"},
    {"NPARWilcoxonPairSignedRank", "XAxis Text", "axis 1"},
    {"NPARWilcoxonPairSignedRank", "YAxis Text", "axis 0"},
    {"FacetBarChart", "TitleText",   "title"},
    {"FacetBarChart", "Facet1Text",  "columns"},
    {"FacetBarChart", "Facet2Text",  "rows"},
    {"FacetBarChart", "tooltipText", "popup", "@=$[0]$"},
    {"GLMMPairwiseContrasts", "TitleText",    "title"},
    {"GLMMPairwiseContrasts", "FootnoteText", "footnote"},
    {"GLMMPairwiseContrasts", "$[0]$ - $[2]$&#10;$[1]$", "popup", "@=$[1]$"},
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

Places ReadTexts(const std::string& text)
{
    const auto tree = refhost::ReadTemplate(text);
    EXPECT_TRUE(tree);
    return tree ? TextsOf(*tree) : Places();
}

}  // namespace

TEST(HostileLabel, ComesThroughAsItIsAtEveryTokenOfEveryTemplate)
{
    for (const Token& token : kTokens) {
        const std::string text = TemplateText(token.fTemplate);
        for (const std::string label : kLabels) {
            SCOPED_TRACE(std::string(token.fTemplate) + ": " + token.fToken + ": " + label);
            const std::string with = Replaced(token.fReplacement, "@", label);
            const Places places = ReadTexts(Replaced(text, token.fToken, with));
            // Between the ends of a list a ";" parts, so only labels without one can be told.
            if (std::string_view(token.fPlace) == "order" && label.find(';') != std::string::npos)
                continue;
            const auto [from, to] = places.equal_range(token.fPlace);
            EXPECT_TRUE(std::any_of(from, to, [&](const auto& at) { return at.second == label; }));
        }
    }
}

TEST(HostileLabel, ATokenThatNobodyReplacedShowsAsNothing)
{
    for (const Token& token : kTokens) {
        const bool isPlain = std::isalpha(token.fToken[0]) != 0;
        for (const auto& [place, text] : ReadTexts(TemplateText(token.fTemplate)))
            EXPECT_FALSE(isPlain && text.find(token.fToken) != std::string::npos)
                << token.fTemplate << ": " << text;
    }
}
