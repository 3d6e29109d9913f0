#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace refhost {

/// Makes well-formed XML of a template's text into which labels were put as they are.
///
/// Markup is only what the grammar knows at its place; all else is a label. So a "<" opens a tag
/// when the name of an element follows; a quote closes an attribute when one that
/// this tag may still have, or the tag's end and behind it the next tag, follows; a text ends at
/// the closing tag that its label's end, or another text, follows. An "&" begins an entity when it
/// is one that XML knows, or a character by its number. Line feeds in attributes stay. Comments,
/// and what stands between tags outside of texts, are left out.
///
/// Nothing for a tag that never ends.
std::optional<std::string> RepairTemplate(std::string_view text);

}  // namespace refhost
