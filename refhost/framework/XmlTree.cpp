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

std::vector<XmlTree::Element> XmlTree::LastElements(std::size_t levels) const
{
    std::vector<Element> path;
    for (Element first = 0, end = 1; first < end && path.size() < levels;) {
        Element last = first;
        while (EndOf(last) < end)
            last = EndOf(last);
        path.push_back(last);
        first = last + 1;
        end = EndOf(last);
    }
    return path;
}

XmlTree::Name XmlTree::NumberFor(const std::string& name)
{
    if (const auto known = FindName(name)) return *known;
    const Name number = static_cast<Name>(fNames.size());
    fNames.push_back(name);
    fNameNumbers.emplace(fNames.back(), number);
    return number;
}

XmlTree::Span XmlTree::Joined(const Span& first, const Span& second)
{
    if (first.fSize == 0) return second;
    if (second.fSize == 0) return first;
    const Span joined{static_cast<std::uint32_t>(fArena.size()), first.fSize + second.fSize};
    fArena.append(fArena, first.fPlace, first.fSize);
    fArena.append(fArena, second.fPlace, second.fSize);
    return joined;
}

bool XmlTree::Join(const XmlTree& next, std::size_t opened)
{
    const std::vector<Element> path = LastElements(opened);
    if (path.size() != opened || next.fElements.size() < opened) return false;
    // Each text of the path is copied once more.
    if (2 * (fArena.size() + next.fArena.size()) > kMostText) return false;

    const auto textsBefore = static_cast<std::uint32_t>(fArena.size());
    const auto attributesBefore = static_cast<std::uint32_t>(fAttributes.size());
    const auto moved = static_cast<Element>(fElements.size() - opened);
    const auto movedText = [&](const Span& span) {
        return Span{span.fPlace + textsBefore, span.fSize};
    };
    std::vector<Name> names;
    for (const std::string& name : next.fNames)
        names.push_back(NumberFor(name));

    fArena += next.fArena;
    for (const Attribute& attribute : next.fAttributes)
        fAttributes.push_back({names[attribute.fName], movedText(attribute.fValue)});
    for (std::size_t level = 0; level < opened; ++level) {
        const Node& more = next.fElements[level];
        Node& open = fElements[path[level]];
        if (names[more.fName] != open.fName) return false;
        open.fEnd = more.fEnd + moved;
        open.fText = Joined(open.fText, movedText(more.fText));
    }
    for (std::size_t element = opened; element < next.fElements.size(); ++element) {
        const Node& node = next.fElements[element];
        fElements.push_back({names[node.fName], node.fEnd + moved,
                             node.fFirstAttribute + attributesBefore, movedText(node.fText)});
    }
    return true;
}

}  // namespace refhost
