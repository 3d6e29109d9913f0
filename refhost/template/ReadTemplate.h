#pragma once

#include <optional>
#include <string_view>

#include "refhost/template/VisualizationTree.h"

namespace refhost {

/// Reads the text of a template after a view has put labels and fragments into it. Labels stand in
/// it as they are, so it need not be well-formed; see `RepairTemplate`. What the grammar does not
/// know is passed over. Nothing for a text without a visualization.
std::optional<tree::Visualization> ReadTemplate(std::string_view text);

}  // namespace refhost
