#pragma once

#include <string>
#include <vector>

struct NumericTable;
struct SimpleTableData;

/// The numbers of a text replace those of `list`, with `MissingValue` for the token "__MISSING__".
/// A text without tokens leaves the list as it was. Always true.
bool ParseNumbers(const std::string& text, std::vector<double>& list);

/// The same with integers, which know no missing token.
bool ParseIntegers(const std::string& text, std::vector<int>& list);

/// The table as numbers. Rows of the target that the document leaves empty keep what they held.
bool ToNumericTable(const SimpleTableData& data, NumericTable& table);
