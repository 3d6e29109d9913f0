#include "refhost/vega/VegaLegends.h"

#include <string>
#include <string_view>

#include "refhost/vega/JsonStream.h"
#include "refhost/vega/VegaColors.h"
#include "refhost/vega/VegaPatterns.h"
#include "refhost/vega/VegaScales.h"

namespace refhost {
namespace {

void WriteFill(JsonStream& json, const LegendEntry& entry) { WriteColor(json, entry.fStyle.fFill); }

void WriteStroke(JsonStream& json, const LegendEntry& entry)
{
    const bool isOutlined = entry.fStyle.fStroke.fPaint != Paint::None;
    WriteColor(json, isOutlined ? entry.fStyle.fStroke : entry.fStyle.fFill);
}

void WriteShape(JsonStream& json, const LegendEntry& entry)
{
    json.Value(PatternSymbol(entry.fStyle.fPattern));
}

/// One channel of the symbols. The channels share title and keys, so they make one legend.
void WriteChannel(JsonStream& json, const char* channel, const ResolvedLegend& legend,
                  const LabelParameters& labels, void (*writeLook)(JsonStream&, const LegendEntry&))
{
    json.Key(channel);
    json.BeginObject();
    json.Member("field", "key");
    json.Member("type", "nominal");
    json.Key("sort");
    json.Null();
    json.Key("scale");
    json.BeginObject();
    json.Key("domain");
    json.BeginArray();
    for (const LegendEntry& entry : legend.fEntries) {
        json.Value(std::string_view(entry.fKey));
    }
    json.EndArray();
    json.Key("range");
    json.BeginArray();
    for (const LegendEntry& entry : legend.fEntries) {
        writeLook(json, entry);
    }
    json.EndArray();
    json.EndObject();
    json.Key("legend");
    json.BeginObject();
    json.Key("title");
    if (legend.fTitle.empty()) {
        json.Null();
    } else {
        json.Lines(legend.fTitle);
    }
    json.Member("labelExpr", std::string_view(labels.Expression(legend)));
    json.EndObject();
    json.EndObject();
}

}  // namespace

void WriteLegends(JsonStream& json, const std::vector<ResolvedLegend>& legends,
                  const LabelParameters& labels)
{
    for (const ResolvedLegend& legend : legends) {
        if (legend.fEntries.empty()) continue;
        json.BeginObject();
        json.Key("data");
        json.BeginObject();
        json.Key("values");
        json.BeginArray();
        json.EndArray();
        json.EndObject();
        json.Key("mark");
        json.BeginObject();
        json.Member("type", "point");
        json.Member("filled", true);
        json.Member("opacity", 1);
        json.EndObject();
        json.Key("encoding");
        json.BeginObject();
        WriteChannel(json, "fill", legend, labels, WriteFill);
        WriteChannel(json, "stroke", legend, labels, WriteStroke);
        WriteChannel(json, "shape", legend, labels, WriteShape);
        json.EndObject();
        json.EndObject();
    }
}

}  // namespace refhost
