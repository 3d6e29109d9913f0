#pragma once

#include <string>
#include <string_view>

#include "refhost/document/OutputNode.h"

struct lxw_worksheet;

namespace refhost {

class XlsxBook;

/// Writes a pivot table into an empty sheet: title, where it stands in the output, nested headers
/// with joined cells, numbers as numbers, caption and footnotes. The headers stay in view.
/// A note says what has no room in a sheet.
void WriteTableSheet(XlsxBook& book, lxw_worksheet* sheet, const TableNode& table,
                     const std::string& path, std::string_view language);

/// Writes a chart into an empty sheet: its texts and the rows of its sources.
void WriteChartSheet(XlsxBook& book, lxw_worksheet* sheet, const ChartNode& chart,
                     const std::string& path, std::string_view language);

}  // namespace refhost
