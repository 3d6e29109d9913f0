#include "refhost/vega/VegaTheme.h"

#include <string>

#include "refhost/plot/Lettering.h"
#include "refhost/vega/JsonStream.h"

namespace refhost {
namespace {

/// A colour that is not the same on every ground, and what the theme calls it.
struct ThemedColor {
    Paint fPaint;
    std::string_view fFixed;  ///< for fixed colours, which one
    std::string_view fName;
    std::string_view fLight;
    std::string_view fDark;
};

// clang-format off
constexpr ThemedColor kThemedColors[] = {
    {Paint::Ink,     "",        "paint_ink",      "#1F2937", "#E5E7EB"},
    {Paint::Outline, "",        "paint_outline",  "#4B5563", "#CBD5E1"},
    {Paint::Quiet,   "",        "paint_quiet",    "#4B5563", "#9CA3AF"},
    {Paint::Ground,  "",        "paint_ground",   "#FFFFFF", "#111827"},
    {Paint::Fixed,   "#2F6DB5", "paint_first",    "#2F6DB5", "#5B9BE6"},
    {Paint::Fixed,   "#584028", "paint_third",    "#584028", "#B89A78"},
    {Paint::Fixed,   "#7A1FD6", "paint_fifth",    "#7A1FD6", "#B07BEA"},
    {Paint::Fixed,   "#881058", "paint_sixth",    "#881058", "#D6609F"},
    {Paint::Fixed,   "#B4500B", "paint_accent",   "#B4500B", "#F59E5B"},
    {Paint::Fixed,   "#C2570C", "paint_strong",   "#C2570C", "#F59E5B"},
    {Paint::Fixed,   "#1B7A3D", "paint_green",    "#1B7A3D", "#4ADE80"},
    {Paint::Fixed,   "#1D4ED8", "paint_blue",     "#1D4ED8", "#93B4FF"},
    {Paint::Fixed,   "#E6EEF7", "paint_pale",     "#E6EEF7", "#22354D"},
    {Paint::Fixed,   "#A9C3E3", "paint_box",      "#A9C3E3", "#3E5F8A"},
    {Paint::Fixed,   "#F3C08A", "paint_box_two",  "#F3C08A", "#8F5D22"},
    {Paint::Fixed,   "#CDBBA7", "paint_box_3",    "#CDBBA7", "#6B5843"},
    {Paint::Fixed,   "#E3CACA", "paint_box_4",    "#E3CACA", "#7A5757"},
    {Paint::Fixed,   "#CDB0F0", "paint_box_5",    "#CDB0F0", "#5F3F8A"},
    {Paint::Fixed,   "#DDA9C5", "paint_box_6",    "#DDA9C5", "#7D3A5C"},
    {Paint::Fixed,   "#C3DCB5", "paint_box_7",    "#C3DCB5", "#4B6A3B"},
    {Paint::Fixed,   "#D6CADF", "paint_box_8",    "#D6CADF", "#62546E"},
    {Paint::Fixed,   "#9DB8D9", "paint_bars",     "#9DB8D9", "#4A6E9C"},
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

constexpr std::string_view kFont =
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
    json.Member("labelFontSize", kLabelFont);
    json.Member("titleColor", ground.fInk);
    json.Member("titleFontSize", kHeaderFont);
    json.Member("titleFontWeight", 500);
    json.Member("titlePadding", 10);
    json.Member("domainColor", ground.fLine);
    json.Member("tickColor", ground.fLine);
    json.Member("tickSize", 4);
    json.Member("gridColor", ground.fGrid);
    json.Member("labelPadding", 4);
    json.Member("labelLimit", 200);
    json.Member("labelOverlap", false);
    json.Member("labelFlush", false);
    json.EndObject();
}

void WriteLegend(JsonStream& json, const GroundColors& ground)
{
    json.Key("legend");
    json.BeginObject();
    json.Member("labelColor", ground.fInk);
    json.Member("labelFontSize", kLabelFont);
    json.Member("titleColor", ground.fInk);
    json.Member("titleFontSize", kHeaderFont);
    json.Member("titleFontWeight", 500);
    json.Member("symbolSize", 110);
    json.Member("labelLimit", 260);
    json.Member("titleLimit", 260);
    json.Member("rowPadding", 5);
    json.Member("titlePadding", 8);
    json.Member("offset", 18);
    json.EndObject();
}

void WriteColors(JsonStream& json, const GroundColors& ground)
{
    json.Key("params");
    json.BeginArray();
    for (const ThemedColor& color : kThemedColors) {
        json.BeginObject();
        json.Member("name", color.fName);
        json.Member("value", ground.fDark ? color.fDark : color.fLight);
        json.EndObject();
    }
    json.BeginObject();
    json.Member("name", kFrameName);
    json.Member("value", ground.fFrame);
    json.EndObject();
    json.EndArray();
}

void AppendTheme(std::string& out, const GroundColors& ground)
{
    JsonStream json(out);
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
    json.Member("fontSize", kLabelFont);
    json.EndObject();
    WriteColors(json, ground);
    json.EndObject();
}

std::string Theme(const GroundColors& ground)
{
    std::string text;
    AppendTheme(text, ground);
    return text;
}

}  // namespace

std::string_view VegaThemeText(VegaTheme theme)
{
    static const std::string light = Theme(kLight);
    static const std::string dark = Theme(kDark);
    return theme == VegaTheme::Light ? light : dark;
}

std::string_view ThemedName(const PaintedColor& color)
{
    for (const ThemedColor& themed : kThemedColors) {
        if (themed.fPaint != color.fPaint) continue;
        if (themed.fPaint != Paint::Fixed || themed.fFixed == color.fColor) return themed.fName;
    }
    return {};
}

}  // namespace refhost
