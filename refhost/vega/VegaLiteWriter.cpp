#include "refhost/vega/VegaLiteWriter.h"

#include <algorithm>
#include <string_view>

#include "refhost/plot/Lettering.h"
#include "refhost/plot/ResolvedChart.h"
#include "refhost/vega/JsonStream.h"
#include "refhost/vega/VegaLegends.h"
#include "refhost/vega/VegaMarks.h"
#include "refhost/vega/VegaScales.h"
#include "refhost/vega/VegaTheme.h"

namespace refhost {
namespace {

constexpr std::string_view kSchema = "https://vega.github.io/schema/vega-lite/v6.json";
constexpr double kSideHeaderGap = 10.0;

/// Lines that stand below the picture, in small italics.
std::string LinesBelow(const ResolvedChart& chart, VegaTexts texts)
{
    std::string lines = texts == VegaTexts::Inside ? chart.fFootnote : std::string();
    for (const std::string& note : chart.fNotes) {
        if (!lines.empty()) lines.push_back('\n');
        lines.append(note);
    }
    return lines;
}

void WriteTitle(JsonStream& json, const ResolvedChart& chart)
{
    if (chart.fTitle.empty() && chart.fSubtitle.empty()) return;
    json.Key("title");
    json.BeginObject();
    json.Key("text");
    json.Lines(chart.fTitle);
    if (!chart.fSubtitle.empty()) {
        json.Key("subtitle");
        json.Lines(chart.fSubtitle);
    }
    json.EndObject();
}

void WriteLinesBelow(JsonStream& json, const std::string& lines)
{
    json.Key("title");
    json.BeginObject();
    json.Key("text");
    json.Lines(lines);
    json.Member("orient", "bottom");
    json.Member("fontSize", kLabelFont);
    json.Member("lineHeight", kLabelLine);
    json.Member("fontWeight", 400);
    json.Member("fontStyle", "italic");
    json.Member("offset", 8);
    json.EndObject();
}

/// The label of the field whose categories stand along the plots.
void WriteFieldTitle(JsonStream& json, const std::string& title, const char* side)
{
    json.Key("title");
    json.BeginObject();
    json.Key("text");
    json.Lines(title);
    json.Member("orient", side);
    json.Member("anchor", "middle");
    json.Member("frame", "bounds");
    json.Member("fontSize", kHeaderFont);
    json.Member("fontWeight", 500);
    json.Member("offset", 8);
    json.EndObject();
}

/// Headers beside several rows stand in one line, whether or not each row's axis has a title.
double SideHeaderStrip(const ResolvedChart& chart, const ResolvedPlot& plot)
{
    if (plot.fSideHeaderUpright) return kSideHeaderGap;
    double strip = 0.0;
    for (const ResolvedPlot& other : chart.fPlots) {
        strip = std::max(strip, LeftStrip(other));
    }
    return kSideHeaderGap + strip;
}

/// What a plot is made of, as members of an object that is open.
void WritePlot(JsonStream& json, const ResolvedChart& chart, const ResolvedPlot& plot,
               const LabelParameters& labels)
{
    json.Member("width", plot.fWidth);
    json.Member("height", plot.fHeight);
    if (plot.fFramed) {
        json.Key("view");
        json.BeginObject();
        json.Key("stroke");
        json.BeginObject();
        json.Member("expr", kFrameName);
        json.EndObject();
        json.EndObject();
    }
    json.Key("encoding");
    json.BeginObject();
    WritePositions(json, plot, labels);
    json.EndObject();
    json.Key("layer");
    json.BeginArray();
    WriteMarks(json, plot);
    WriteHeader(json, plot);
    if (!plot.fSideHeader.fLines.empty()) {
        WriteSideHeader(json, plot, SideHeaderStrip(chart, plot));
    }
    if (&plot == &chart.fPlots.front()) WriteLegends(json, chart.fLegends, labels);
    json.EndArray();
}

void WritePlots(JsonStream& json, const ResolvedChart& chart, const LabelParameters& labels)
{
    if (chart.fPlots.size() == 1) {
        return WritePlot(json, chart, chart.fPlots.front(), labels);
    }
    json.Member("columns", chart.fColumns);
    json.Key("spacing");
    json.BeginObject();
    json.Member("row", chart.fRowSpacing);
    json.Member("column", chart.fColumnSpacing);
    json.EndObject();
    json.Member("bounds", "flush");
    json.Key("concat");
    json.BeginArray();
    for (const ResolvedPlot& plot : chart.fPlots) {
        json.BeginObject();
        WritePlot(json, chart, plot, labels);
        json.EndObject();
    }
    json.EndArray();
}

/// A view bears one title only, so each further title is a view around what it belongs to.
class Wrappings {
public:
    explicit Wrappings(JsonStream& json) : fJson(json) {}
    void Open()
    {
        fJson.Key("concat");
        fJson.BeginArray();
        fJson.BeginObject();
        ++fDepth;
    }
    void Close()
    {
        for (; fDepth > 0; --fDepth) {
            fJson.EndObject();
            fJson.EndArray();
        }
    }

private:
    JsonStream& fJson;
    int fDepth = 0;
};

void WriteDocument(JsonStream& json, const ResolvedChart& chart, VegaTexts texts, bool themed)
{
    const LabelParameters labels(chart);
    json.BeginObject();
    json.Member("$schema", kSchema);
    json.Member("description", std::string_view(chart.fDescription));
    labels.Write(json);
    if (themed) {
        json.Key("config");
        json.Written(VegaThemeText(VegaTheme::Light));
    }
    if (texts == VegaTexts::Inside) WriteTitle(json, chart);

    Wrappings wrappings(json);
    if (const std::string lines = LinesBelow(chart, texts); !lines.empty()) {
        wrappings.Open();
        WriteLinesBelow(json, lines);
    }
    if (!chart.fRowTitle.empty()) {
        wrappings.Open();
        WriteFieldTitle(json, chart.fRowTitle, "left");
    }
    if (!chart.fColumnTitle.empty()) {
        wrappings.Open();
        WriteFieldTitle(json, chart.fColumnTitle, "top");
    }
    WritePlots(json, chart, labels);
    wrappings.Close();
    json.EndObject();
}

void AppendDocument(std::string& out, const ResolvedChart& chart, VegaTexts texts, bool themed)
{
    JsonStream json(out);
    if (chart.fPlots.empty()) return json.Written("{}");
    WriteDocument(json, chart, texts, themed);
}

std::string Document(const ResolvedChart& chart, VegaTexts texts, bool themed)
{
    std::string text;
    AppendDocument(text, chart, texts, themed);
    return text;
}

}  // namespace

void AppendVegaLite(std::string& out, const ResolvedChart& chart)
{
    AppendDocument(out, chart, VegaTexts::Outside, /*themed=*/false);
}

std::string VegaLiteText(const ResolvedChart& chart)
{
    return Document(chart, VegaTexts::Outside, /*themed=*/false);
}

std::string VegaLiteText(const ResolvedChart& chart, VegaTexts texts)
{
    return Document(chart, texts, /*themed=*/false);
}

std::string VegaLiteFile(const ResolvedChart& chart)
{
    return Document(chart, VegaTexts::Inside, /*themed=*/true);
}

}  // namespace refhost
