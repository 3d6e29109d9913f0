#pragma once

#include <string>

namespace refhost {

struct ResolvedChart;

/// Where title, subtitle and footnote stand: a page shows them as text around the picture, a file
/// has them in it. (A page that saves a picture adds its own top-level "title".)
enum class VegaTexts { Outside, Inside };

/// A chart as a Vega-Lite 6 document without a theme: the page joins `VegaTheme` as "config".
/// Valid JSON and UTF-8 whatever the chart's texts hold; `<` is written as `\u003c`, so the text
/// can stand in a script element. The text is one line.
void AppendVegaLite(std::string& out, const ResolvedChart& chart);
std::string VegaLiteText(const ResolvedChart& chart);
std::string VegaLiteText(const ResolvedChart& chart, VegaTexts texts);

/// A document that opens by itself in any editor: with its texts and the light theme.
std::string VegaLiteFile(const ResolvedChart& chart);

}  // namespace refhost
