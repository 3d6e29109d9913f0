#include "refhost/vega/VegaTheme.h"

#include <string>

#include "refhost/vega/JsonStream.h"

namespace refhost {
namespace {

/// A colour that is not the same on every ground, and what the theme calls it.
struct ThemedColor {
    Paint fPaint;
    std::string_view fFixed;  ///< for fixed colours, which one
    std::string_view fFillStyle;
    std::string_view fStrokeStyle;
    std::string_view fLight;
    std::string_view fDark;
};

// clang-format off
constexpr ThemedColor kThemedColors[] = {
    {Paint::Ink,     "",        "fill-ink",     "stroke-ink",     "#1F2937", "#E5E7EB"},
    {Paint::Outline, "",        "fill-outline", "stroke-outline", "#4B5563", "#CBD5E1"},
    {Paint::Quiet,   "",        "fill-quiet",   "stroke-quiet",   "#4B5563", "#9CA3AF"},
    {Paint::Ground,  "",        "fill-ground",  "stroke-ground",  "#FFFFFF", "#111827"},
    {Paint::Fixed,   "#B4500B", "fill-accent",  "stroke-accent",  "#B4500B", "#F59E5B"},
    {Paint::Fixed,   "#1B7A3D", "fill-green",   "stroke-green",   "#1B7A3D", "#4ADE80"},
    {Paint::Fixed,   "#1D4ED8", "fill-blue",    "stroke-blue",    "#1D4ED8", "#93B4FF"},
    {Paint::Fixed,   "#C2570C", "fill-strong",  "stroke-strong",  "#C2570C", "#F59E5B"},
    {Paint::Fixed,   "#2F6DB5", "fill-first",   "stroke-first",   "#2F6DB5", "#5B9BE6"},
    {Paint::Fixed,   "#E6EEF7", "fill-pale",    "stroke-pale",    "#E6EEF7", "#22354D"},
};
// clang-format on

struct GroundColors {
    const char* fBackground;
    const char* fInk;
    const char* fSoft;
    const char* fLine;
    const char* fGrid;
    const char* fFrame;
    bool fDark;
};

// clang-format off
constexpr GroundColors kLight = {"white",   "#1F2937", "#4B5563", "#9CA3AF", "#E5E7EB", "#D1D5DB", false};
constexpr GroundColors kDark =  {"#111827", "#E5E7EB", "#B6C0CE", "#6B7280", "#2D3746", "#4B5563", true};
// clang-format on

constexpr const char* kFont =
    "\"Segoe UI\", system-ui, -apple-system, \"Helvetica Neue\", Arial, \"DejaVu Sans\", "
    "sans-serif";

void WriteTitle(JsonStream& json, const GroundColors& ground)
{
    json.Key("title");
    json.BeginObject();
    json.Member("anchor", "start");
    json.Member("frame", "group");
    json.Member("fontSize", 14);
    json.Member("fontWeight", 600);
    json.Member("color", ground.fInk);
    json.Member("subtitleColor", ground.fSoft);
    json.Member("subtitleFontSize", 12);
    json.Member("subtitlePadding", 4);
    json.Member("offset", 14);
    json.Member("lineHeight", 18);
    json.Member("subtitleLineHeight", 16);
    json.EndObject();
}

void WriteAxes(JsonStream& json, const GroundColors& ground)
{
    json.Key("axis");
    json.BeginObject();
    json.Member("labelColor", ground.fSoft);
    json.Member("labelFontSize", 11);
    json.Member("titleColor", ground.fInk);
    json.Member("titleFontSize", 12);
    json.Member("titleFontWeight", 500);
    json.Member("titlePadding", 10);
    json.Member("domainColor", ground.fLine);
    json.Member("tickColor", ground.fLine);
    json.Member("tickSize", 4);
    json.Member("gridColor", ground.fGrid);
    json.Member("labelPadding", 4);
    json.Member("labelLimit", 200);
    json.Member("labelOverlap", false);
    json.EndObject();
}

void WriteLegend(JsonStream& json, const GroundColors& ground)
{
    json.Key("legend");
    json.BeginObject();
    json.Member("labelColor", ground.fInk);
    json.Member("labelFontSize", 11);
    json.Member("titleColor", ground.fInk);
    json.Member("titleFontSize", 12);
    json.Member("titleFontWeight", 500);
    json.Member("symbolSize", 110);
    json.Member("labelLimit", 260);
    json.Member("titleLimit", 260);
    json.Member("rowPadding", 5);
    json.Member("titlePadding", 8);
    json.Member("offset", 18);
    json.EndObject();
}

void WriteStyles(JsonStream& json, const GroundColors& ground)
{
    const auto style = [&json](std::string_view name, std::string_view channel,
                               std::string_view color) {
        json.Key(name);
        json.BeginObject();
        json.Member(channel, color);
        json.EndObject();
    };
    json.Key("style");
    json.BeginObject();
    for (const ThemedColor& color : kThemedColors) {
        style(color.fFillStyle, "fill", ground.fDark ? color.fDark : color.fLight);
        style(color.fStrokeStyle, "stroke", ground.fDark ? color.fDark : color.fLight);
    }
    style("framed", "stroke", ground.fFrame);
    json.EndObject();
}

std::string Theme(const GroundColors& ground)
{
    JsonStream json;
    json.BeginObject();
    json.Member("font", kFont);
    json.Member("background", ground.fBackground);
    json.Member("padding", 8);
    json.Member("customFormatTypes", false);
    json.Key("view");
    json.BeginObject();
    json.Key("stroke");
    json.Null();
    json.EndObject();
    WriteTitle(json, ground);
    WriteAxes(json, ground);
    WriteLegend(json, ground);
    json.Key("text");
    json.BeginObject();
    json.Member("fontSize", 11);
    json.EndObject();
    WriteStyles(json, ground);
    json.EndObject();
    return json.Text();
}

}  // namespace

std::string_view VegaThemeText(VegaTheme theme)
{
    static const std::string light = Theme(kLight);
    static const std::string dark = Theme(kDark);
    return theme == VegaTheme::Light ? light : dark;
}

std::string_view ThemeStyle(std::string_view channel, const PaintedColor& color)
{
    for (const ThemedColor& themed : kThemedColors) {
        if (themed.fPaint != color.fPaint) continue;
        if (themed.fPaint == Paint::Fixed && themed.fFixed != color.fColor) continue;
        return channel == "fill" ? themed.fFillStyle : themed.fStrokeStyle;
    }
    return {};
}

}  // namespace refhost
