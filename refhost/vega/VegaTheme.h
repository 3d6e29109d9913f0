#pragma once

#include <string_view>

#include "refhost/plot/ResolvedChart.h"

namespace refhost {

enum class VegaTheme { Light, Dark };

/// The "config" of a Vega-Lite document: fonts, sizes, and the colours of a light or a dark page.
/// One JSON object; its "background" is the ground that the colours are made for.
std::string_view VegaThemeText(VegaTheme theme);

/// The theme's style for a colour of that channel ("fill", "stroke"); empty where the theme leaves
/// the colour as it is.
std::string_view ThemeStyle(std::string_view channel, const PaintedColor& color);

}  // namespace refhost
