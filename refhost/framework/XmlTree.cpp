#include "refhost/framework/XmlTree.h"

namespace refhost {

std::optional<XmlTree::Name> XmlTree::FindName(std::string_view name) const
{
    const auto found = fNameNumbers.find(name);
    if (found == fNameNumbers.end()) return {};
    return found->second;
}

std::string_view XmlTree::TextOf(Element element) const { return View(fElements[element].fText); }

std::optional<std::string_view> XmlTree::AttributeOf(Element element, Name name) const
{
    const std::size_t end = element + 1 < fElements.size() ? fElements[element + 1].fFirstAttribute
                                                           : fAttributes.size();
    for (std::size_t place = fElements[element].fFirstAttribute; place < end; ++place)
        if (fAttributes[place].fName == name) return View(fAttributes[place].fValue);
    return {};
}

}  // namespace refhost
