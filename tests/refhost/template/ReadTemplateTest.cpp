#include "refhost/template/ReadTemplate.h"

#include <gtest/gtest.h>

#include "refhost/template/RepairTemplate.h"
#include "refhost/template/TemplateNumbers.h"

#include "support/Cases.h"

using refhost::ReadTemplate;
using refhost::RepairTemplate;
using namespace refhost::tree;  // NOLINT(google-build-using-namespace): every line reads a tree

namespace {

std::string InGraph(const std::string& inside)
{
    return "<visualization><graph id=\"graph1\">" + inside + "</graph></visualization>";
}

Visualization Read(const std::string& text)
{
    const auto tree = ReadTemplate(text);
    EXPECT_TRUE(tree) << text;
    return tree.value_or(Visualization());
}

}  // namespace

TEST(RepairTemplate, TakesForMarkupOnlyWhatTheLanguageKnowsAtItsPlace)
{
    // clang-format off
    ExpectEach<const char*, std::optional<std::string>>({
        {"<axis dimension=\"x\" grid=\"true\"/>", "<axis dimension=\"x\" grid=\"true\"/>", "sound markup stays"},
        {"<label id=\"a&b\"/>", "<label id=\"a&amp;b\"/>", "an ampersand without an entity"},
        {"<label id=\"a&#10;b&lt;\"/>", "<label id=\"a&#10;b&lt;\"/>", "entities stay"},
        {"<label id=\"a\nb\"/>", "<label id=\"a&#10;b\"/>", "line feeds stay line feeds"},
        {"<label id=\"5\" tall\" style=\"s\"/>", "<label id=\"5&quot; tall\" style=\"s\"/>", "a quote in a label"},
        {"<label id=\"x\" id=\"y\"/>", "<label id=\"x&quot; id=&quot;y\"/>", "no attribute stands twice"},
        {"<text>a</b> < c</text></label>", "<text>a&lt;/b&gt; &lt; c</text></label>", "tags in a text are text"},
        {"<!-- <axis/> --><swap/>stray", "<swap/>", "comments and stray text go"},
        {"<faceting></faceting><facetLayout side=\"x\"></facetLayout>", "<faceting></faceting><facetLayout side=\"x\"></facetLayout>", "names are whole"},
    }, RepairTemplate);
    // clang-format on
}

TEST(RepairTemplate, IsLinearInTextsThatNeverEnd)
{
    std::string text = "<visualization>";
    for (int i = 0; i < 50000; ++i)
        text += "<text></text>a <label id=\"";
    EXPECT_EQ(RepairTemplate(text), std::nullopt);
    std::string texts = "<visualization>";
    for (int i = 0; i < 200000; ++i)
        texts += "<text>a</text>b";
    EXPECT_TRUE(RepairTemplate(texts));
}

TEST(ReadTemplate, GivesNothingForATextThatIsNoTemplate)
{
    for (const char* text :
         {"", "no template", "<graph/>", "<visualization>", "<visualization id=\"",
          "<visualization></graph></visualization>", "\xFF\xFE", "<"}) {
        EXPECT_FALSE(ReadTemplate(text)) << text;
    }
}

TEST(ReadTemplate, LeavesOutWhatItCannotRead)
{
    const auto tree =
        Read(InGraph("<dimension name=\"x\"><range max=\"inf\" min=\"-3\"/></dimension>"
                     "<interval><y variable=\"v\" scalingFactor=\"0\"/></interval>"
                     "<line><distributionStatistic distribution=\"cauchy\"/></line>"
                     "<lineGuide x=\"soon\"/>"));
    const auto& graph = tree.fGraphs.front();
    EXPECT_EQ(graph.fDimensions.front().fMax, std::nullopt);
    EXPECT_EQ(graph.fDimensions.front().fMin, -3);
    EXPECT_EQ(graph.fElements.front().fY->fScalingFactor, 1.0);
    EXPECT_FALSE(graph.fElements.back().fDistribution);
    EXPECT_EQ(graph.fLineGuides.front().Place(), std::nullopt);
}

TEST(ReadTemplate, ReadsPlacesAndTargets)
{
    const auto tree = Read(
        "<visualization><graph id=\"graph1\"><axis dimension=\"y\" place=\"far\"/>"
        "<facetLayout alternating=\"true\" side=\"y\" invert=\"true\"/></graph>"
        "<labelFrame><location part=\"bottom\" method=\"against\" value=\"35%\" "
        "target=\"graph1\"/></labelFrame>"
        "<popup target=\"bars\" part=\"median\"/></visualization>");
    const auto& graph = tree.fGraphs.front();
    EXPECT_EQ(graph.fAxes.front().fDimension, Dimension::Y);
    EXPECT_EQ(graph.fAxes.front().fPlace, AxisPlace::Far);
    EXPECT_TRUE(graph.fFacetLayout->fAlternating);
    EXPECT_EQ(graph.fFacetLayout->fSide, Dimension::Y);
    EXPECT_TRUE(graph.fFacetLayout->fInvert);
    const auto& location = tree.fLabelFrames.front().fLocations.front();
    EXPECT_EQ(location.fPart, ENUM_part::Bottom);
    EXPECT_EQ(location.fMethod, ENUM_method::Against);
    EXPECT_EQ(location.fValue, "35%");
    EXPECT_EQ(location.fTarget, "graph1");
    EXPECT_EQ(tree.fPopups.front().fTarget, "bars");
    EXPECT_EQ(tree.fPopups.front().fPart, "median");
}

TEST(ReadTemplate, ReadsVariablesOrdersAndCases)
{
    const auto tree = Read(
        "<visualization><sourceVariable id=\"v\" source=\"s\" column=\"V\" decimals=\"99\"/>"
        "<derivedVariable id=\"d\" value=\"v\"><case above=\"0\" value=\"up\"/><case "
        "value=\"rest\"/>"
        "<format><relabel from=\"up\" to=\"Up\"/></format></derivedVariable>"
        "<categoryOrder variable=\"d\" values=\"up;rest\" complete=\"true\"/></visualization>");
    ASSERT_TRUE(tree.FindSourceVariable("v"));
    EXPECT_EQ(tree.FindSourceVariable("v")->fColumn, "V");
    EXPECT_EQ(tree.FindSourceVariable("v")->fDecimals, 16);
    const auto* const derived = tree.FindDerivedVariable("d");
    ASSERT_TRUE(derived);
    EXPECT_EQ(derived->fCases[0].fAbove, 0.0);
    EXPECT_EQ(derived->fCases[1].fAbove, std::nullopt);
    EXPECT_EQ(derived->fFormats.front().fRelabels[0].fTo, "Up");
    EXPECT_EQ(tree.fOrders.front().fValues, (std::vector<std::string>{"up", "rest"}));
    EXPECT_TRUE(tree.fOrders.front().fComplete);
}

TEST(ParseParameter, TellsNumbersDatesAndDurationsApart)
{
    struct Row {
        const char* fText;
        ParameterKind fKind;
        double fValue;
    };
    // clang-format off
    constexpr Row kRows[] = {
        {"4.5",                    ParameterKind::Number,   4.5},
        {" -1e-3 ",                ParameterKind::Number,   -0.001},
        {"1582-10-14T00:00:00",    ParameterKind::Date,     0},
        {"1970-01-01T00:00:01",    ParameterKind::Date,     12219379201},
        {"P2DT03H00M00S",          ParameterKind::Duration, 183600},
        {"P0DT00H00M60S",          ParameterKind::Duration, 60},
    };
    // clang-format on
    for (const Row& row : kRows) {
        SCOPED_TRACE(row.fText);
        const auto parameter = ParseParameter(row.fText);
        ASSERT_TRUE(parameter);
        EXPECT_EQ(parameter->fKind, row.fKind);
        EXPECT_DOUBLE_EQ(parameter->fValue, row.fValue);
    }
    for (const char* none :
         {"", ".", "inf", "nan", "-1.7976931348623157e+308", "P2DT", "P.DT1H2M3S",
          "1970-13-01T00:00:00", "1970-02-30T00:00:00", "1970-01-01", "--T1:2:3",
          "99999-01-01T00:00:00", "1970-01-01T00:00", "12 apples"}) {
        EXPECT_FALSE(ParseParameter(none)) << none;
    }
}

TEST(Fraction, ReadsPercentages)
{
    EXPECT_EQ(Fraction("35%"), 0.35);
    EXPECT_EQ(Fraction("35"), std::nullopt);
    EXPECT_EQ(Fraction("%"), std::nullopt);
}
