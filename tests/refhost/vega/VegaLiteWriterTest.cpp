#include "refhost/vega/VegaLiteWriter.h"

#include <gtest/gtest.h>
#include <rapidjson/document.h>

#include <limits>
#include <string>
#include <vector>

#include "refhost/plot/ResolvedChart.h"
#include "refhost/vega/JsonStream.h"
#include "refhost/vega/VegaTheme.h"

#include "support/Cases.h"

namespace refhost {
namespace {

/// One bar, one text and a legend; `label` stands wherever a user's text can.
ResolvedChart ChartOf(const std::string& label)
{
    ResolvedChart chart;
    chart.fTitle = chart.fSubtitle = chart.fFootnote = chart.fDescription = label;
    ResolvedPlot plot;
    plot.fWidth = 300;
    plot.fHeight = 200;
    plot.fX = {ScaleKind::Category, -0.5, 1.5, false, {{"constructor", label}, {"1", label}}};
    plot.fY.fMax = 20;
    ResolvedAxis axis;
    axis.fTitle = label;
    axis.fTicks = {{0, label}, {1, label}};
    plot.fAxes.push_back(axis);
    MarkLayer bars;
    bars.fStyle.fFill = {Paint::Fixed, "#123456"};
    ResolvedMark bar;
    bar.fX = -0.4, bar.fX2 = 0.4, bar.fY = 0, bar.fY2 = 12;
    bar.fKey = label;
    bar.fPopup = label;
    bars.fMarks.push_back(bar);
    plot.fLayers.push_back(bars);
    MarkLayer texts;
    texts.fKind = MarkKind::Text;
    texts.fInPixels = true;
    texts.fStyle.fFill = {Paint::Ink, {}};
    ResolvedMark text;
    text.fX = text.fY = 5;
    text.fText = label;
    texts.fMarks.push_back(text);
    plot.fLayers.push_back(texts);
    chart.fPlots.push_back(plot);
    ResolvedLegend legend;
    legend.fTitle = label;
    legend.fEntries.push_back({"toString", label, bars.fStyle});
    chart.fLegends.push_back(legend);
    return chart;
}

rapidjson::Document Parsed(const std::string& text)
{
    rapidjson::Document document;
    document.Parse<rapidjson::kParseValidateEncodingFlag | rapidjson::kParseFullPrecisionFlag>(
        text.c_str());
    EXPECT_FALSE(document.HasParseError()) << text;
    return document;
}

/// Calls `visit` with each member of each object, at any depth.
template <typename Visit>
void Walk(const rapidjson::Value& value, const Visit& visit)
{
    if (value.IsObject()) {
        for (const auto& member : value.GetObject()) {
            visit(std::string(member.name.GetString()), member.value);
            Walk(member.value, visit);
        }
    } else if (value.IsArray()) {
        for (const auto& item : value.GetArray()) {
            Walk(item, visit);
        }
    }
}

TEST(VegaLiteText, IsValidJsonWhateverTheLabelsHold)
{
    // clang-format off
    const std::string labels[] = {
        "R&D \"x\" <b> \\",  // quotes, markup, a backslash at the end
        "two\nlines",  // a line feed
        "line\xE2\x80\xA8separator",  // U+2028
        "\xff\xfe\xc3",  // bytes that are no UTF-8
        "\xED\xA0\x80",  // half of a surrogate pair
        std::string("a\0b", 3),  // a zero byte
        "</script><script>",  // the end of a script element
        "",
        "\xE6\xBC\xA2\xE5\xAD\x97 \xF0\x9F\x93\x8A",  // other scripts
    };
    // clang-format on
    for (const std::string& label : labels) {
        SCOPED_TRACE(label);
        const std::string text = VegaLiteFile(ChartOf(label));
        EXPECT_TRUE(Parsed(text).IsObject());
        EXPECT_EQ(text.find('<'), std::string::npos) << "may stand in a script element";
        Parsed(VegaLiteText(ChartOf(label)));
    }
}

TEST(VegaLiteText, GivesEveryCharacterOfATextBack)
{
    std::string label = "\u00E4\U0001F600";
    for (int code = 0; code < 0x80; ++code)
        label.insert(label.begin(), static_cast<char>(code));
    const rapidjson::Document document = Parsed(VegaLiteText(ChartOf(label)));
    const auto& text = document["description"];
    EXPECT_EQ(std::string(text.GetString(), text.GetStringLength()), label);
}

TEST(VegaLiteText, KeepsUserTextsOutOfWhatIsMadeIntoExpressions)
{
    const std::string label = "user's \"text\" \\";
    const rapidjson::Document document = Parsed(VegaLiteText(ChartOf(label)));
    Walk(document, [&](const std::string& name, const rapidjson::Value& value) {
        if (name == "labelExpr" || name == "expr" || name == "calculate" || name == "filter") {
            EXPECT_EQ(std::string(value.GetString()).find("user"), std::string::npos);
            EXPECT_EQ(std::string(value.GetString()).find("width"), std::string::npos);
        }
        if (name == "x" || name == "y" || name == "tooltip" || name == "description" ||
            name == "fill" || name == "text") {
            if (!value.IsObject()) return;
            EXPECT_FALSE(value.HasMember("title")) << name;
        }
        for (const char* work : {"aggregate", "bin", "density", "transform"}) {
            EXPECT_NE(name, work) << "marks are finished";
        }
    });
}

TEST(VegaLiteText, LooksLabelsUpByPrefixedKeys)
{
    const rapidjson::Document document = Parsed(VegaLiteText(ChartOf("label")));
    ASSERT_TRUE(document.HasMember("params"));
    std::size_t keys = 0;
    for (const auto& parameter : document["params"].GetArray()) {
        for (const auto& member : parameter["value"].GetObject()) {
            EXPECT_EQ(member.name.GetString()[0], '=');
            ++keys;
        }
    }
    EXPECT_EQ(keys, 3u) << "two ticks and an entry of the legend";
}

TEST(VegaLiteText, LeavesMissingNumbersOutOfRows)
{
    ResolvedChart chart = ChartOf("label");
    ResolvedMark& bar = chart.fPlots[0].fLayers[0].fMarks[0];
    bar.fX2 = std::numeric_limits<double>::infinity();
    bar.fY2 = kOpen;
    const std::string text = VegaLiteText(chart);
    Parsed(text);
    EXPECT_EQ(text.find("\"y2\":null"), std::string::npos);
    EXPECT_EQ(text.find("\"x2\":null"), std::string::npos);
}

TEST(VegaLiteText, DrawsPatternsAsLinesWithinTheBars)
{
    ResolvedChart chart = ChartOf("label");
    chart.fPlots[0].fLayers[0].fStyle.fPattern = FillPattern::Crossed;
    chart.fPlots[0].fLayers[0].fMarks[0].fY2 = 1e20;  // beyond the scale
    chart.fPlots[0].fY.fMax = 12.0;
    const rapidjson::Document document = Parsed(VegaLiteText(chart));
    std::size_t lines = 0;
    for (const auto& layer : document["layer"].GetArray()) {
        if (!layer["mark"].IsObject() || layer["mark"]["type"] != "rule") continue;
        for (const auto& row : layer["data"]["values"].GetArray()) {
            ++lines;
            for (const char* x : {"x", "x2"}) {
                EXPECT_GE(row[x].GetDouble(), -0.4 - 1e-9);
                EXPECT_LE(row[x].GetDouble(), 0.4 + 1e-9);
            }
            for (const char* y : {"y", "y2"}) {
                EXPECT_GE(row[y].GetDouble(), -1e-9);
                EXPECT_LE(row[y].GetDouble(), 12 + 1e-9);
            }
        }
    }
    EXPECT_GT(lines, 20u);
}

TEST(VegaLiteText, HasItsTextsInsideOnlyInAFile)
{
    EXPECT_FALSE(Parsed(VegaLiteText(ChartOf("label"))).HasMember("title"));
    const rapidjson::Document file = Parsed(VegaLiteFile(ChartOf("label")));
    EXPECT_TRUE(file.HasMember("title"));
    EXPECT_TRUE(file.HasMember("config"));
}

/// "line|line@x,y" of each text, with what else is said of it.
std::vector<std::string> TextsOf(const rapidjson::Value& plot)
{
    std::vector<std::string> texts;
    for (const auto& layer : plot["layer"].GetArray()) {
        const auto& mark = layer["mark"];
        if (!mark.IsObject() || mark["type"] != "text") continue;
        const auto& row = layer["data"]["values"][0];
        std::string& text = texts.emplace_back();
        if (row["text"].IsString()) text = row["text"].GetString();
        if (row["text"].IsArray())
            for (const auto& line : row["text"].GetArray())
                text += (text.empty() ? "" : "|") + std::string(line.GetString());
        const auto& at = layer["encoding"];
        text += "@" + ScriptNumber(at["x"]["value"].GetDouble()) + "," +
                ScriptNumber(at["y"]["value"].GetDouble());
        if (mark.HasMember("fontWeight") && mark["fontWeight"].GetInt() >= 600) text += " strong";
        if (mark.HasMember("angle")) text += " turned";
        if (at.HasMember("tooltip")) text += " (" + std::string(row["tip"].GetString()) + ")";
    }
    return texts;
}

TEST(VegaLiteText, PutsHeadersOutsideOfThePlot)
{
    ResolvedChart chart;
    ResolvedPlot& plot = chart.fPlots.emplace_back();
    plot.fWidth = 120;
    plot.fHeight = 80;
    ResolvedAxis& axis = plot.fAxes.emplace_back();
    axis.fSide = AxisSide::Left;
    axis.fExtent = 30;
    plot.fHeader = {{"", "casein", "N = 12"}, 2, "casein, cut"};
    plot.fSideHeader = {{"a name", "of two"}, 1, "the whole name"};
    using Texts = std::vector<std::string>;
    Texts expected = {"casein@60,-24 strong (casein, cut)", "N = 12@60,-8 (casein, cut)",
                      "a name|of two@-56,40 strong turned (the whole name)"};
    EXPECT_EQ(TextsOf(Parsed(VegaLiteText(chart))), expected)
        << "turned: the second line stands between the first and the axis";
    plot.fSideHeader.fLines.emplace_back("");
    plot.fSideHeaderUpright = true;
    expected.back() = "a name@130,24 strong (the whole name)";
    expected.emplace_back("of two@130,40 (the whole name)");
    EXPECT_EQ(TextsOf(Parsed(VegaLiteText(chart))), expected)
        << "right of the plot; an empty line is no mark";
}

TEST(VegaLiteText, GivesAllLayersOfAPlotOneScale)
{
    for (const ScaleKind kind : {ScaleKind::Linear, ScaleKind::Time, ScaleKind::Category}) {
        SCOPED_TRACE(static_cast<int>(kind));
        ResolvedChart chart = ChartOf("a");
        chart.fPlots[0].fX.fKind = kind;
        chart.fPlots[0].fX.fMin = 1e11;
        chart.fPlots[0].fX.fMax = 2e11;
        const rapidjson::Document document = Parsed(VegaLiteText(chart));
        EXPECT_EQ(std::string(document["encoding"]["x"]["type"].GetString()), "quantitative");
        EXPECT_EQ(document["encoding"]["x"]["scale"]["domain"][1].GetDouble(), 2e11);
        int scales = 0;
        Walk(document, [&scales](const std::string& name, const rapidjson::Value& value) {
            const bool isPlace = name == "x" || name == "y";
            scales += isPlace && value.IsObject() && value.HasMember("scale") ? 1 : 0;
        });
        EXPECT_EQ(scales, 2) << "a second domain would be in conflict with the first";
    }
}

TEST(ScriptNumber, IsWrittenAsAScriptWouldTurnItIntoText)
{
    ExpectEach<double, std::string>({{0.1, "0.1"},
                                     {-0.0, "0"},
                                     {1e21, "1e+21"},
                                     {1e-7, "1e-7"},
                                     {123456789012345680000.0, "123456789012345680000"},
                                     {0.000001, "0.000001"},
                                     {-2.5, "-2.5"}},
                                    ScriptNumber);
}

}  // namespace
}  // namespace refhost
