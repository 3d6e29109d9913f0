#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "refhost/document/OutputNode.h"

namespace refhost {

/// A summary of a source of a chart's data, a line for each variable: of numbers their count, range
/// and mean, of texts how many there are, and the first of the different ones. Printable, in words
/// of the language.
std::vector<std::string> SummarizeSource(const ChartSource& source, std::string_view language);

}  // namespace refhost
