#pragma once

#include <optional>
#include <string_view>

#include "refhost/template/VisualizationTree.h"

namespace refhost::tree {

/// A decimal number, wholly; blanks around it don't count. Nothing for what is not finite and for
/// the host's missing number.
std::optional<double> ParseNumber(std::string_view text);

/// A number, a date (`YYYY-MM-DDTHH:MM:SS`) or a duration (`P2DT03H00M00S`).
std::optional<Parameter> ParseParameter(std::string_view text);

}  // namespace refhost::tree
