#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace refhost {

/// The elements of an XML document, compact: all text lies in one UTF-8 arena, names are interned,
/// elements are numbers in document order, the root is 0. An element's descendants are those from
/// the number behind it up to its end, so that a walk from child to child follows no pointers.
/// Places have 32 bits; the text of a tree is bounded by that.
class XmlTree {
public:
    using Element = std::uint32_t;
    using Name = std::uint32_t;

    std::size_t ElementCount() const { return fElements.size(); }

    /// The name's number; nothing where nothing in the document bears it.
    std::optional<Name> FindName(std::string_view name) const;

    const std::string& Spelled(Name name) const { return fNames[name]; }
    const std::string& NameOf(Element element) const { return Spelled(fElements[element].fName); }
    bool Bears(Element element, Name name) const { return fElements[element].fName == name; }

    /// The number behind an element's last descendant.
    Element EndOf(Element element) const { return fElements[element].fEnd; }

    /// The element's own text, all its parts joined. Views are valid as long as the tree.
    std::string_view TextOf(Element element) const;

    std::optional<std::string_view> AttributeOf(Element element, Name name) const;

private:
    friend class XmlTreeBuilder;

    struct Span {
        std::uint32_t fPlace = 0;
        std::uint32_t fSize = 0;
    };
    struct Attribute {
        Name fName;
        Span fValue;
    };
    struct Node {
        Name fName;
        Element fEnd;
        std::uint32_t fFirstAttribute;
        Span fText;
    };

    std::string_view View(const Span& span) const
    {
        return std::string_view(fArena).substr(span.fPlace, span.fSize);
    }

    std::string fArena;
    std::deque<std::string> fNames;  // a deque: the views below stay valid while it grows
    std::unordered_map<std::string_view, Name> fNameNumbers;
    std::vector<Attribute> fAttributes;
    std::vector<Node> fElements;
};

}  // namespace refhost
