#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "refhost/template/VisualizationTree.h"

namespace refhost {

/// The text that a key has in the language of the output; the key itself where it has none.
using TextOfKey = std::string(std::string_view key);

/// Reads the text of a template after a view has put labels and fragments into it. Labels stand in
/// it as they are, so it need not be well-formed; see `RepairTemplate`. What the grammar does not
/// know is passed over. Without a `textOfKey` the template's keys show as they stand. Nothing for a
/// text without a visualization.
std::optional<tree::Visualization> ReadTemplate(std::string_view text,
                                                TextOfKey* textOfKey = nullptr);

}  // namespace refhost
