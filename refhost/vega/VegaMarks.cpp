#include "refhost/vega/VegaMarks.h"

#include <algorithm>
#include <cmath>
#include <string_view>

#include "refhost/plot/Lettering.h"
#include "refhost/vega/JsonStream.h"
#include "refhost/vega/VegaColors.h"
#include "refhost/vega/VegaPatterns.h"

namespace refhost {
namespace {

constexpr double kHaloWidth = 4.0;
constexpr double kHeaderGap = 8.0;

const char* MarkName(MarkKind kind)
{
    switch (kind) {
        case MarkKind::Rect:
            return "rect";
        case MarkKind::Line:
            return "line";
        case MarkKind::Area:
            return "area";
        case MarkKind::Rule:
            return "rule";
        case MarkKind::Point:
            return "point";
        case MarkKind::Text:
            return "text";
    }
    return "point";
}

/// What the marks of a layer have, and so what its encoding names.
struct LayerFields {
    bool fX2 = false, fY2 = false, fPopup = false;
    bool fOpenX = true, fOpenY = true;
};

LayerFields FieldsOf(const MarkLayer& layer)
{
    LayerFields fields;
    for (const ResolvedMark& mark : layer.fMarks) {
        fields.fX2 |= std::isfinite(mark.fX2);
        fields.fY2 |= std::isfinite(mark.fY2);
        fields.fPopup |= !mark.fPopup.empty();
        fields.fOpenX &= !std::isfinite(mark.fX);
        fields.fOpenY &= !std::isfinite(mark.fY);
    }
    return fields;
}

void WriteNumber(JsonStream& json, const char* name, double number)
{
    if (std::isfinite(number)) json.Member(name, number);
}

void WriteWord(JsonStream& json, const char* name, const std::string& word)
{
    if (!word.empty()) json.Member(name, std::string_view(word));
}

/// Rows of the layer, or of one of its marks: numbers that are missing are left out.
void WriteRows(JsonStream& json, const MarkLayer& layer, const ResolvedMark* only)
{
    json.Key("data");
    json.BeginObject();
    json.Key("values");
    json.BeginArray();
    int place = 0;
    for (const ResolvedMark& mark : layer.fMarks) {
        if (only && only != &mark) continue;
        json.BeginObject();
        if (layer.fKind == MarkKind::Line) json.Member("i", place++);
        if (!layer.fInPixels) {
            WriteNumber(json, "x", mark.fX);
            WriteNumber(json, "x2", mark.fX2);
            WriteNumber(json, "y", mark.fY);
            WriteNumber(json, "y2", mark.fY2);
        }
        WriteWord(json, "key", mark.fKey);
        WriteWord(json, "series", mark.fSeries);
        if (layer.fKind == MarkKind::Text) {
            json.Key("text");
            json.Lines(mark.fText);
        }
        WriteWord(json, "tip", mark.fPopup);
        json.EndObject();
    }
    json.EndArray();
    json.EndObject();
}

void WriteColorMember(JsonStream& json, const char* channel, const PaintedColor& color)
{
    json.Key(channel);
    WriteColor(json, color);
}

void WriteTextStyle(JsonStream& json, const MarkStyle& style)
{
    constexpr const char* kAligns[] = {"left", "center", "right"};
    constexpr const char* kBaselines[] = {"top", "middle", "bottom"};
    json.Member("align", kAligns[static_cast<int>(style.fAlign)]);
    json.Member("baseline", kBaselines[static_cast<int>(style.fBaseline)]);
    json.Member("fontSize", style.fFontSize);
    json.Member("lineHeight", std::round(style.fFontSize * 1.4));
    if (style.fBold) json.Member("fontWeight", 600);
    if (style.fItalic) json.Member("fontStyle", "italic");
    if (style.fShiftX != 0.0) json.Member("dx", style.fShiftX);
    if (style.fShiftY != 0.0) json.Member("dy", style.fShiftY);
}

void WriteRectStyle(JsonStream& json, const MarkStyle& style)
{
    if (style.fCorner > 0.0) json.Member("cornerRadius", style.fCorner);
    if (style.fGapX > 0.0) {
        json.Member("xOffset", style.fGapX / 2);
        json.Member("x2Offset", -style.fGapX / 2);
    }
    if (style.fGapY > 0.0) {
        json.Member("yOffset", -style.fGapY / 2);
        json.Member("y2Offset", style.fGapY / 2);
    }
}

void WriteMark(JsonStream& json, const MarkLayer& layer)
{
    const MarkStyle& style = layer.fStyle;
    json.Key("mark");
    json.BeginObject();
    json.Member("type", MarkName(layer.fKind));
    if (layer.fKind == MarkKind::Line || layer.fKind == MarkKind::Rule) {
        WriteColorMember(json, "stroke", style.fStroke);
        json.Member("strokeWidth", style.fStrokeWidth);
    } else {
        WriteColorMember(json, "fill", style.fFill);
        if (style.fStroke.fPaint != Paint::None || layer.fKind == MarkKind::Point) {
            WriteColorMember(json, "stroke", style.fStroke);
            json.Member("strokeWidth", style.fStrokeWidth);
        }
    }
    if (!style.fDash.empty()) {
        json.Key("strokeDash");
        json.BeginArray();
        for (const double length : style.fDash) {
            json.Value(length);
        }
        json.EndArray();
    }
    json.Member("opacity", style.fOpacity);
    if (layer.fKind == MarkKind::Rect) WriteRectStyle(json, style);
    if (layer.fKind == MarkKind::Point) json.Member("size", style.fSize);
    if (layer.fKind == MarkKind::Text) WriteTextStyle(json, style);
    if (layer.fKind == MarkKind::Line || layer.fKind == MarkKind::Area) json.Member("clip", true);
    if (layer.fHelper) json.Member("aria", false);
    json.EndObject();
}

void WritePixel(JsonStream& json, const char* channel, double pixel)
{
    json.Key(channel);
    json.BeginObject();
    json.Member("value", pixel);
    json.EndObject();
}

void WriteField(JsonStream& json, const char* channel, const char* field, const char* type)
{
    json.Key(channel);
    json.BeginObject();
    json.Member("field", field);
    if (type) json.Member("type", type);
    json.EndObject();
}

/// A direction that no mark settles is the whole length of the plot.
void WritePlaces(JsonStream& json, const ResolvedPlot& plot, const LayerFields& fields)
{
    if (fields.fOpenX) {
        WritePixel(json, "x", 0.0);
        WritePixel(json, "x2", plot.fWidth);
    } else if (fields.fX2) {
        WriteField(json, "x2", "x2", nullptr);
    }
    if (fields.fOpenY) {
        WritePixel(json, "y", 0.0);
        WritePixel(json, "y2", plot.fHeight);
    } else if (fields.fY2) {
        WriteField(json, "y2", "y2", nullptr);
    }
}

void WritePixelPlaces(JsonStream& json, const ResolvedMark& mark)
{
    struct Row {
        const char* fChannel;
        double fPixel;
    };
    for (const Row& row :
         {Row{"x", mark.fX}, Row{"y", mark.fY}, Row{"x2", mark.fX2}, Row{"y2", mark.fY2}}) {
        if (std::isfinite(row.fPixel)) WritePixel(json, row.fChannel, row.fPixel);
    }
}

void WriteOneLayer(JsonStream& json, const ResolvedPlot& plot, const MarkLayer& layer,
                   const ResolvedMark* only)
{
    const LayerFields fields = FieldsOf(layer);
    json.BeginObject();
    WriteRows(json, layer, only);
    WriteMark(json, layer);
    json.Key("encoding");
    json.BeginObject();
    if (only) {
        WritePixelPlaces(json, *only);
    } else {
        WritePlaces(json, plot, fields);
    }
    // Of an area it would make a group of each point; an area is joined by x as it is.
    if (layer.fKind == MarkKind::Line) WriteField(json, "order", "i", "quantitative");
    if (layer.fKind == MarkKind::Text) WriteField(json, "text", "text", "nominal");
    if (fields.fPopup) {
        WriteField(json, "tooltip", "tip", "nominal");
        WriteField(json, "description", "tip", "nominal");
    }
    json.EndObject();
    json.EndObject();
}

void WriteLayer(JsonStream& json, const ResolvedPlot& plot, const MarkLayer& layer)
{
    if (layer.fMarks.empty()) return;
    if (!layer.fInPixels) return WriteOneLayer(json, plot, layer, nullptr);
    for (const ResolvedMark& mark : layer.fMarks) {
        WriteOneLayer(json, plot, layer, &mark);
    }
}

/// The ground's colour around the letters, drawn below them.
MarkLayer HaloOf(const MarkLayer& texts)
{
    MarkLayer halo = texts;
    halo.fHelper = true;
    halo.fStyle.fFill = {Paint::Ground, {}};
    halo.fStyle.fStroke = {Paint::Ground, {}};
    halo.fStyle.fStrokeWidth = kHaloWidth;
    halo.fStyle.fOpacity = 0.85;
    return halo;
}

struct TextPlace {
    double fX = 0.0;
    double fY = 0.0;
};

/// One line below the other, from the place of the first; `layer` says how they are aligned.
void WriteHeaderLines(JsonStream& json, const ResolvedPlot& plot, const PlotHeader& header,
                      MarkLayer layer, TextPlace first)
{
    layer.fKind = MarkKind::Text;
    layer.fInPixels = true;
    layer.fStyle.fFill = {Paint::Ink, {}};
    layer.fStyle.fFontSize = kHeaderFont;
    for (std::size_t line = 0; line < header.fLines.size(); ++line, first.fY += kHeaderLine) {
        if (header.fLines[line].empty()) continue;
        layer.fStyle.fBold = line < header.fStrongLines;
        ResolvedMark mark;
        mark.fX = first.fX;
        mark.fY = first.fY;
        mark.fText = header.fLines[line];
        mark.fPopup = header.fPopup;
        layer.fMarks.assign(1, mark);
        WriteLayer(json, plot, layer);
    }
}

/// The header's lines as one text.
void WriteTurnedRow(JsonStream& json, const PlotHeader& header)
{
    json.Key("data");
    json.BeginObject();
    json.Key("values");
    json.BeginArray();
    json.BeginObject();
    json.Key("text");
    json.BeginArray();
    for (const std::string& line : header.fLines) {
        if (!line.empty()) json.Value(std::string_view(line));
    }
    json.EndArray();
    WriteWord(json, "tip", header.fPopup);
    json.EndObject();
    json.EndArray();
    json.EndObject();
}

void WriteTurnedMark(JsonStream& json)
{
    json.Key("mark");
    json.BeginObject();
    json.Member("type", "text");
    json.Member("angle", 270);
    json.Member("align", "center");
    json.Member("baseline", "bottom");
    json.Member("fontSize", kHeaderFont);
    json.Member("lineHeight", kHeaderLine);
    json.Member("fontWeight", 600);
    WriteColorMember(json, "fill", {Paint::Ink, {}});
    json.EndObject();
}

/// Turned, and so one text of one weight.
void WriteTurnedHeader(JsonStream& json, const ResolvedPlot& plot, double strip)
{
    const PlotHeader& header = plot.fSideHeader;
    json.BeginObject();
    WriteTurnedRow(json, header);
    WriteTurnedMark(json);
    json.Key("encoding");
    json.BeginObject();
    const auto count = std::count_if(header.fLines.begin(), header.fLines.end(),
                                     [](const std::string& line) { return !line.empty(); });
    // Further lines stand right of the first.
    const double further = kHeaderLine * (std::max(1.0, static_cast<double>(count)) - 1.0);
    WritePixel(json, "x", -strip - further);
    WritePixel(json, "y", plot.fHeight / 2);
    WriteField(json, "text", "text", "nominal");
    if (!header.fPopup.empty()) WriteField(json, "tooltip", "tip", "nominal");
    json.EndObject();
    json.EndObject();
}

}  // namespace

void WriteMarks(JsonStream& json, const ResolvedPlot& plot)
{
    // Axes need a layer that takes the scales, also where every mark stands at pixels.
    json.BeginObject();
    json.Key("data");
    json.BeginObject();
    json.Key("values");
    json.BeginArray();
    json.EndArray();
    json.EndObject();
    json.Member("mark", "point");
    json.EndObject();
    for (const MarkLayer& layer : plot.fLayers) {
        if (layer.fKind == MarkKind::Text && layer.fStyle.fHalo) {
            WriteLayer(json, plot, HaloOf(layer));
        }
        WriteLayer(json, plot, layer);
        if (layer.fKind == MarkKind::Rect && layer.fStyle.fPattern != FillPattern::Solid) {
            WriteLayer(json, plot, PatternMarks(layer, plot));
        }
    }
}

void WriteHeader(JsonStream& json, const ResolvedPlot& plot)
{
    MarkLayer layer;
    layer.fStyle.fAlign = TextAlign::Center;
    layer.fStyle.fBaseline = TextBaseline::Bottom;
    const auto lines = static_cast<double>(plot.fHeader.fLines.size());
    WriteHeaderLines(json, plot, plot.fHeader, layer,
                     {plot.fWidth / 2, -kHeaderGap - kHeaderLine * (lines - 1.0)});
}

void WriteSideHeader(JsonStream& json, const ResolvedPlot& plot, double strip)
{
    if (!plot.fSideHeaderUpright) return WriteTurnedHeader(json, plot, strip);
    MarkLayer layer;
    layer.fStyle.fAlign = TextAlign::Left;
    layer.fStyle.fBaseline = TextBaseline::Middle;
    const auto lines = static_cast<double>(plot.fSideHeader.fLines.size());
    WriteHeaderLines(json, plot, plot.fSideHeader, layer,
                     {plot.fWidth + strip, plot.fHeight / 2 - kHeaderLine * (lines - 1.0) / 2});
}

}  // namespace refhost
