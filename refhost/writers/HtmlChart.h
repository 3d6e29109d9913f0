#pragma once

#include <string>
#include <string_view>

namespace refhost {

struct ChartNode;

/// A chart as a figure: its texts, a box of the size that the picture will have, its data as a
/// folded table, and the document by which the page draws it. One that can't be drawn has a line in
/// place of the picture.
///
/// All but its head hangs on nothing but the chart: `body` is that, where it was made before, and
/// otherwise empty.
void AppendChart(std::string& out, const ChartNode& chart, std::string_view id,
                 std::string_view language, std::string_view body = {});

/// What stands under the title of the figure, to its end.
void AppendChartBody(std::string& out, const ChartNode& chart, std::string_view language);

}  // namespace refhost
