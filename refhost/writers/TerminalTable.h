#pragma once

namespace refhost {

class ByteOutput;
struct TableNode;

/// Draws a table for a terminal of so many columns: title, box, caption and footnotes. Columns are
/// as wide as their content needs; where the terminal is too narrow, texts are wrapped, and columns
/// that still don't fit follow in a further box, behind the row headers.
void WriteTerminalTable(const TableNode& table, int terminalWidth, ByteOutput& output);

}  // namespace refhost
