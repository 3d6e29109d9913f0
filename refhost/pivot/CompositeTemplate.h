#pragma once

#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "refhost/document/OutputNode.h"

namespace refhost {

/// A part of a composite: one text, or a list.
using CompositePart = std::variant<TextRef, TextSublist>;

/// Fills the places of a template:
///   ^1 to ^9      the part of that number; a list reads as its members joined by ", "
///   [A:B]1        the list in place 1: A for its first item, whose members are %1, %2 and so on,
///                 and B for each further item, whose members are ^1, ^2 and so on
///   [A:B:]1       the same
/// An item has as many members as A has different % marks, at least one. A place that is not
/// filled shows as nothing; what is no form of these stands as it is. Filled in text is never read
/// as a template.
std::string FillTemplate(std::string_view text, const std::vector<CompositePart>& parts);

}  // namespace refhost
