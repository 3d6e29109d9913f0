#pragma once

#include <string_view>

namespace refhost {

enum class VegaTheme { Light, Dark };

/// The "config" of a Vega-Lite document: colours, fonts, sizes. One JSON object.
std::string_view VegaThemeText(VegaTheme theme);

}  // namespace refhost
