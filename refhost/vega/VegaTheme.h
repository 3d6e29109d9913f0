#pragma once

#include <string_view>

#include "refhost/plot/ResolvedChart.h"

namespace refhost {

enum class VegaTheme { Light, Dark };

/// The "config" of a Vega-Lite document: fonts, sizes, and the colours of a light or a dark page.
/// One JSON object; its "background" is the ground that the colours are made for.
std::string_view VegaThemeText(VegaTheme theme);

/// What the theme calls the colour of a frame around a plot.
inline constexpr std::string_view kFrameName = "paint_frame";

/// The theme's name for a colour that is not the same on every ground, to be used as an expression;
/// empty for a colour that stands as it is.
std::string_view ThemedName(const PaintedColor& color);

}  // namespace refhost
