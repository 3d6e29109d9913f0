#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "refhost/framework/Utf8FromUtf16.h"
#include "refhost/framework/XmlTree.h"

namespace refhost {

/// Gathers the events of a parse into a tree. False: the text is no well-formed UTF-16 or too long,
/// or the document nests too deep, as `GetRefusal` says; the tree is then of no use.
class XmlTreeBuilder {
public:
    /// The root is level 1.
    static constexpr std::size_t kDeepestLevel = 1000;

    /// Makes the room that the whole document is going to need, so that no copy of what is there
    /// has to be held while it grows.
    explicit XmlTreeBuilder(std::string_view document);

    bool StartElement(std::u16string_view name);
    bool AddAttribute(std::u16string_view name, std::u16string_view value);
    bool AddText(std::u16string_view piece);
    bool EndElement();

    const char* GetRefusal() const { return fRefusal; }

    XmlTree Take() { return std::move(fTree); }

private:
    /// An element whose end has not come. Its text grows at the end of the arena; when a child
    /// begins there, what has come so far is held here.
    struct Open {
        XmlTree::Element fElement = 0;
        std::size_t fTextPlace = 0;
        std::string fHeldText;
    };

    bool Intern(std::u16string_view name, XmlTree::Name& number);
    bool AppendWhole(std::u16string_view text, std::string& out);
    bool FitsText();
    XmlTree::Span SpanFrom(std::size_t place) const;

    /// For a text at the end of the arena that was met not long ago, that one; the last one is then
    /// given up. Names of statistics and of tables come again and again.
    XmlTree::Span Shared(XmlTree::Span last);
    void HoldText(Open& open);
    bool Refuse(const char* reason);

    XmlTree fTree;
    std::vector<Open> fOpen;  // kept at its deepest, so that the held texts keep their memory
    std::size_t fDepth = 0;
    Utf8FromUtf16 fTextConversion;
    const char* fRefusal = "";

    static constexpr std::size_t kRecentValues = 1024;
    std::vector<XmlTree::Span> fRecentValues =
        std::vector<XmlTree::Span>(kRecentValues);  // by hash

    struct Hash {
        using is_transparent = void;
        std::size_t operator()(std::u16string_view text) const
        {
            return std::hash<std::u16string_view>()(text);
        }
    };
    using Names = std::unordered_map<std::u16string, XmlTree::Name, Hash, std::equal_to<>>;
    using KnownName = Names::value_type;
    Names fNameNumbers;

    // By the place in memory where the parser keeps a name; each is looked at before it is
    // believed.
    static constexpr std::size_t kRecentNames = 64;
    std::array<const KnownName*, kRecentNames> fRecentNames{};
};

}  // namespace refhost
