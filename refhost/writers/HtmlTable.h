#pragma once

#include <string>
#include <string_view>

namespace refhost {

struct DataSummary;
struct TableNode;

/// A pivot table as a figure: the table with its nested headers, below it caption and footnotes.
/// The ids of its parts begin with the figure's.
void AppendTable(std::string& out, const TableNode& table, std::string_view id,
                 std::string_view language);

/// Plain rows under plain heads, in a box that scrolls.
void AppendDataTable(std::string& out, const DataSummary& data);

}  // namespace refhost
