#include "refhost/vega/VegaLegends.h"

#include <string>
#include <string_view>

#include "refhost/vega/JsonStream.h"
#include "refhost/vega/VegaPatterns.h"
#include "refhost/vega/VegaScales.h"

namespace refhost {
namespace {

/// A colour for a legend's symbol, whose scale can't take a style of the theme; those that follow
/// the theme become one that shows on any ground.
std::string_view SymbolColor(const PaintedColor& color, std::string_view none)
{
    constexpr std::string_view kOnAnyGround = "#6B7C93";
    if (color.fPaint == Paint::Fixed) return color.fColor;
    return color.fPaint == Paint::None ? none : kOnAnyGround;
}

std::string_view SymbolFill(const LegendEntry& entry)
{
    return SymbolColor(entry.fStyle.fFill, "transparent");
}

std::string_view SymbolStroke(const LegendEntry& entry)
{
    return SymbolColor(entry.fStyle.fStroke, SymbolFill(entry));
}

std::string_view SymbolShape(const LegendEntry& entry)
{
    return PatternSymbol(entry.fStyle.fPattern);
}

/// One channel of the symbols. The channels share title and keys, so they make one legend.
template <typename Look>
void WriteChannel(JsonStream& json, const char* channel, const ResolvedLegend& legend,
                  const LabelParameters& labels, Look look)
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
        json.Value(look(entry));
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
        json.EndObject();
        json.Key("encoding");
        json.BeginObject();
        WriteChannel(json, "fill", legend, labels, SymbolFill);
        WriteChannel(json, "stroke", legend, labels, SymbolStroke);
        WriteChannel(json, "shape", legend, labels, SymbolShape);
        json.EndObject();
        json.EndObject();
    }
}

}  // namespace refhost
