#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace fuzz {

/// An element of a document under mutation. Values and texts stand as in the document, unescaped by
/// nobody.
struct MarkupElement {
    std::string fName;
    std::vector<std::pair<std::string, std::string>> fAttributes;
    std::string fText;
    std::vector<MarkupElement> fChildren;
};

/// Reads whatever looks like markup; what does not is passed over. An element without a name holds
/// all there is.
MarkupElement ReadMarkup(std::string_view text);

/// What stands in an element without a name.
std::string MarkupText(const MarkupElement& all);

}  // namespace fuzz
