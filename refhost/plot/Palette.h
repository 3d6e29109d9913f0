#pragma once

#include <cstddef>
#include <string>

#include "refhost/plot/ResolvedChart.h"
#include "refhost/template/VisualizationTree.h"

namespace refhost {

/// A colour of a template: a known name or "#rrggbb"; `otherwise` for all else.
PaintedColor ColorOf(const std::string& color, const PaintedColor& otherwise);

PaintedColor FixedColor(const char* color);

/// What bars of one colour look like: a pale fill gets an outline.
MarkStyle BarStyle(const PaintedColor& fill);

/// The look of a category among others, from the palette of the template where it reaches, else
/// from the series' own colours.
MarkStyle SeriesStyle(const tree::Color& color, std::size_t category);

/// The same for boxes, whose tints let the median show.
MarkStyle BoxTint(const tree::Color* color, std::size_t category);

/// A line, or a rule, of a style; what the style leaves open is `usual`.
MarkStyle LineStyle(const tree::Style* style, const MarkStyle& usual);

/// A text of a style.
MarkStyle TextStyle(const tree::Style* style);

inline constexpr const char* kFirstSeries = "#2F6DB5";
inline constexpr const char* kBarsUnderCurve = "#9DB8D9";
inline constexpr const char* kPaleBars = "#B8C4D6";
inline constexpr const char* kAccent = "#B4500B";

}  // namespace refhost
