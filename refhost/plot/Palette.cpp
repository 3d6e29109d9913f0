#include "refhost/plot/Palette.h"

#include <algorithm>
#include <cctype>
#include <iterator>
#include <string_view>
#include <utility>

namespace refhost {
namespace {

constexpr const char* kSeries[] = {"#2F6DB5", "#D07410", "#584028", "#B88888",
                                   "#7A1FD6", "#881058", "#70A058", "#A088B8"};
constexpr const char* kTints[] = {"#A9C3E3", "#F3C08A", "#CDBBA7", "#E3CACA",
                                  "#CDB0F0", "#DDA9C5", "#C3DCB5", "#D6CADF"};
constexpr FillPattern kPatterns[] = {
    FillPattern::Rising,  FillPattern::Falling, FillPattern::Dotted, FillPattern::Level,
    FillPattern::Crossed, FillPattern::Upright, FillPattern::Grid,   FillPattern::Solid};
constexpr const char* kPaleOutline = "#6B7C93";
constexpr std::string_view kInks[] = {"#374151", "#4B5563"};  // greys of text; not on a dark page

struct NamedColor {
    std::string_view fName;
    const char* fColor;
};

// clang-format off
constexpr NamedColor kNamedColors[] = {
    {"green",  "#1B7A3D"},
    {"blue",   "#1D4ED8"},
    {"red",    "#B91C1C"},
    {"orange", "#D07410"},
    {"brown",  "#584028"},
    {"purple", "#7A1FD6"},
    {"grey",   "#9CA3AF"},
    {"gray",   "#9CA3AF"},
};
// clang-format on

bool IsHexColor(std::string_view color)
{
    return color.size() == 7 && color.front() == '#' &&
           std::all_of(color.begin() + 1, color.end(),
                       [](char c) { return std::isxdigit(static_cast<unsigned char>(c)) != 0; });
}

std::string UpperCase(std::string text)
{
    std::transform(text.begin(), text.end(), text.begin(), [](char c) {
        return static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    });
    return text;
}

std::vector<double> DashesOf(tree::Dash dash)
{
    switch (dash) {
        case tree::Dash::Solid:
            return {};
        case tree::Dash::Dashed:
            return {6.0, 4.0};
        case tree::Dash::Dotted:
            return {2.0, 3.0};
    }
    return {};
}

PaintedColor PaletteColor(const tree::Color& color, std::size_t category, const char* usual)
{
    const PaintedColor own = FixedColor(usual);
    return category < color.fPalette.size() ? ColorOf(color.fPalette[category], own) : own;
}

}  // namespace

PaintedColor FixedColor(const char* color) { return {Paint::Fixed, color}; }

PaintedColor ColorOf(const std::string& color, const PaintedColor& otherwise)
{
    if (IsHexColor(color)) {
        std::string fixed = UpperCase(color);
        if (std::find(std::begin(kInks), std::end(kInks), fixed) != std::end(kInks)) {
            return {Paint::Quiet, {}};
        }
        return {Paint::Fixed, std::move(fixed)};
    }
    if (color == "black") return {Paint::Ink, {}};
    if (color == "white") return {Paint::Ground, {}};
    for (const NamedColor& named : kNamedColors) {
        if (named.fName == color) return FixedColor(named.fColor);
    }
    return otherwise;
}

MarkStyle BarStyle(const PaintedColor& fill)
{
    MarkStyle style;
    style.fFill = fill;
    if (fill == FixedColor(kPaleBars)) style.fStroke = FixedColor(kPaleOutline);
    return style;
}

MarkStyle SeriesStyle(const tree::Color& color, std::size_t category)
{
    MarkStyle style =
        BarStyle(PaletteColor(color, category, kSeries[category % std::size(kSeries)]));
    if (color.fPattern) style.fPattern = kPatterns[category % std::size(kPatterns)];
    return style;
}

MarkStyle BoxTint(const tree::Color* color, std::size_t category)
{
    const char* tint = kTints[category % std::size(kTints)];
    MarkStyle style;
    style.fFill = color ? PaletteColor(*color, category, tint) : FixedColor(tint);
    style.fStroke = {Paint::Outline, {}};
    style.fCorner = 1.0;
    if (color && color->fPattern) style.fPattern = kPatterns[category % std::size(kPatterns)];
    return style;
}

MarkStyle LineStyle(const tree::Style* style, const MarkStyle& usual)
{
    MarkStyle line = usual;
    if (!style) return line;
    line.fStroke = ColorOf(style->fColor, line.fStroke);
    if (style->fWidth > 0.0) line.fStrokeWidth = std::min(style->fWidth, 20.0);
    if (style->fDash) line.fDash = DashesOf(*style->fDash);
    return line;
}

MarkStyle TextStyle(const tree::Style* style)
{
    MarkStyle text;
    text.fFill = {Paint::Ink, {}};
    if (!style) return text;
    text.fFill = ColorOf(style->fColor, text.fFill);
    text.fBold = style->fFontWeight >= 2;
    text.fItalic = style->fItalic;
    return text;
}

}  // namespace refhost
