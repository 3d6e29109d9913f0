#pragma once

/// Sizes of a chart's texts in pixels: the layout keeps room for them, and the pen fills it.

namespace refhost {

inline constexpr double kLabelFont = 11.0;  ///< of ticks, guides, nodes and legends
inline constexpr double kLabelLine = 15.0;
inline constexpr double kLabelLimit = 150.0;  ///< of a category's label; what is longer is cut

inline constexpr double kHeaderFont = 12.0;  ///< of headers, and of the titles of axes
inline constexpr double kHeaderLine = 16.0;

inline constexpr double kBoldness = 1.08;  ///< letters of bold texts are so much wider

}  // namespace refhost
