#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <limits>
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

    /// Bytes of all texts together.
    static constexpr std::size_t kMostText = std::numeric_limits<std::uint32_t>::max();

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

    /// Takes in the elements of a piece of the same document that was parsed for itself: the piece
    /// behind what is here, whose first `opened` elements stand for those that are still open here.
    /// False: it doesn't continue this tree, or their texts are too long; both are then of no use.
    bool Join(const XmlTree& next, std::size_t opened);

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

    /// The last elements of the outermost levels, fewer where there are not so many.
    std::vector<Element> LastElements(std::size_t levels) const;

    /// The number of a name, a new one where it has none yet.
    Name NumberFor(const std::string& name);

    /// Joins two texts of the arena.
    Span Joined(const Span& first, const Span& second);

    std::string fArena;
    std::deque<std::string> fNames;  // a deque: the views below stay valid while it grows
    std::unordered_map<std::string_view, Name> fNameNumbers;
    std::vector<Attribute> fAttributes;
    std::vector<Node> fElements;
};

}  // namespace refhost
