#include "refhost/framework/XmlTreeBuilder.h"

#include <algorithm>
#include <cstdint>

namespace refhost {

namespace {

constexpr std::size_t kBytesOfElement = 4;    // <a/>
constexpr std::size_t kBytesOfAttribute = 5;  // a="" and a blank

constexpr const char* kTooDeep = "elements nest deeper than 1000 levels";
constexpr const char* kTooLong = "the texts are too long to be held";
constexpr const char* kLoneSurrogate = "a character beyond what Unicode knows";

/// In blocks that a byte can count: many such are counted by one instruction.
std::size_t CountOf(char mark, std::string_view text)
{
    constexpr std::size_t kBlock = std::numeric_limits<std::uint8_t>::max();
    std::size_t count = 0;
    for (; !text.empty(); text.remove_prefix(std::min(kBlock, text.size()))) {
        std::uint8_t inBlock = 0;
        for (const char character : text.substr(0, kBlock))
            inBlock = static_cast<std::uint8_t>(inBlock + (character == mark ? 1 : 0));
        count += inBlock;
    }
    return count;
}

}  // namespace

XmlTreeBuilder::XmlTreeBuilder(std::string_view document)
{
    const auto count = [document](char mark, std::size_t fewestBytes) {
        return std::min(CountOf(mark, document), document.size() / fewestBytes);
    };
    fTree.fArena.reserve(document.size());
    fTree.fElements.reserve(count('<', kBytesOfElement));
    fTree.fAttributes.reserve(count('=', kBytesOfAttribute));
}

bool XmlTreeBuilder::StartElement(std::u16string_view name)
{
    if (fDepth == kDeepestLevel) return Refuse(kTooDeep);
    if (!fTextConversion.IsWhole()) return Refuse(kLoneSurrogate);
    if (fDepth > 0) HoldText(fOpen[fDepth - 1]);

    XmlTree::Node node{0, 0, static_cast<std::uint32_t>(fTree.fAttributes.size()), {}};
    if (!Intern(name, node.fName)) return false;
    if (fOpen.size() == fDepth) fOpen.emplace_back();
    Open& open = fOpen[fDepth++];
    open.fElement = static_cast<XmlTree::Element>(fTree.fElements.size());
    open.fTextPlace = fTree.fArena.size();
    open.fHeldText.clear();
    fTree.fElements.push_back(node);
    return true;
}

bool XmlTreeBuilder::AddAttribute(std::u16string_view name, std::u16string_view value)
{
    XmlTree::Attribute attribute{0, {}};
    const std::size_t place = fTree.fArena.size();
    if (!Intern(name, attribute.fName) || !AppendWhole(value, fTree.fArena)) return false;
    if (!FitsText()) return false;
    attribute.fValue = Shared(SpanFrom(place));
    fTree.fAttributes.push_back(attribute);
    fOpen[fDepth - 1].fTextPlace = fTree.fArena.size();
    return true;
}

bool XmlTreeBuilder::AddText(std::u16string_view piece)
{
    if (fDepth == 0) return true;
    if (!fTextConversion.Append(piece, fTree.fArena)) return Refuse(kLoneSurrogate);
    return FitsText();
}

bool XmlTreeBuilder::EndElement()
{
    if (!fTextConversion.IsWhole()) return Refuse(kLoneSurrogate);
    Open& open = fOpen[--fDepth];
    if (!open.fHeldText.empty()) {
        HoldText(open);
        fTree.fArena += open.fHeldText;
        if (!FitsText()) return false;
    }
    XmlTree::Node& node = fTree.fElements[open.fElement];
    node.fText = SpanFrom(open.fTextPlace);
    node.fEnd = static_cast<XmlTree::Element>(fTree.fElements.size());
    if (fDepth > 0) fOpen[fDepth - 1].fTextPlace = fTree.fArena.size();
    return true;
}

bool XmlTreeBuilder::Intern(std::u16string_view name, XmlTree::Name& number)
{
    const KnownName*& recent =
        fRecentNames[reinterpret_cast<std::uintptr_t>(name.data()) / alignof(void*) % kRecentNames];
    if (recent && recent->first == name) {
        number = recent->second;
        return true;
    }
    const auto known = fNameNumbers.find(name);
    if (known != fNameNumbers.end()) {
        recent = &*known;
        number = known->second;
        return true;
    }
    std::string text;
    if (!AppendWhole(name, text)) return false;
    number = static_cast<XmlTree::Name>(fTree.fNames.size());
    fTree.fNames.push_back(std::move(text));
    fTree.fNameNumbers.emplace(fTree.fNames.back(), number);
    fNameNumbers.emplace(name, number);
    return true;
}

bool XmlTreeBuilder::AppendWhole(std::u16string_view text, std::string& out)
{
    Utf8FromUtf16 conversion;
    return (conversion.Append(text, out) && conversion.IsWhole()) || Refuse(kLoneSurrogate);
}

bool XmlTreeBuilder::FitsText()
{
    return fTree.fArena.size() <= XmlTree::kMostText || Refuse(kTooLong);
}

XmlTree::Span XmlTreeBuilder::SpanFrom(std::size_t place) const
{
    return {static_cast<std::uint32_t>(place),
            static_cast<std::uint32_t>(fTree.fArena.size() - place)};
}

XmlTree::Span XmlTreeBuilder::Shared(XmlTree::Span last)
{
    const std::string_view text = fTree.View(last);
    XmlTree::Span& recent = fRecentValues[std::hash<std::string_view>()(text) % kRecentValues];
    if (fTree.View(recent) != text) return recent = last;
    fTree.fArena.resize(last.fPlace);
    return recent;
}

void XmlTreeBuilder::HoldText(Open& open)
{
    open.fHeldText.append(fTree.fArena, open.fTextPlace, std::string::npos);
    fTree.fArena.resize(open.fTextPlace);
}

bool XmlTreeBuilder::Refuse(const char* reason)
{
    fRefusal = reason;
    return false;
}

}  // namespace refhost
