#include "refhost/template/RepairTemplate.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <vector>

#include "refhost/data/CharacterSet.h"
#include "refhost/template/TemplateGrammar.h"

namespace refhost {

namespace {

constexpr std::string_view kNamedEntities[] = {"amp", "lt", "gt", "quot", "apos"};
constexpr std::string_view kTextEnd = "</text>";
constexpr std::size_t kLongestEntity = 10;  // "&#1114111;"

constexpr CharacterSet kNameCharacters(
    "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789_");
constexpr CharacterSet kSpace(" \t\n\r");
constexpr CharacterSet kEscaped(std::string_view("<>\"\n\r\t\0&", 8));

bool IsXmlCharacter(std::uint32_t code)
{
    if (code < 0x20) return code == '\t' || code == '\n' || code == '\r';
    return code < 0xD800 || (code > 0xDFFF && code < 0xFFFE) || (code > 0xFFFF && code <= 0x10FFFF);
}

bool IsEntity(std::string_view name)
{
    if (std::find(std::begin(kNamedEntities), std::end(kNamedEntities), name) !=
        std::end(kNamedEntities)) {
        return true;
    }
    if (name.size() < 2 || name[0] != '#') return false;
    const bool hexadecimal = name[1] == 'x';
    const char* const begin = name.data() + (hexadecimal ? 2 : 1);
    const char* const end = name.data() + name.size();
    std::uint32_t code = 0;
    const auto [stop, error] = std::from_chars(begin, end, code, hexadecimal ? 16 : 10);
    return error == std::errc() && stop == end && begin != end && IsXmlCharacter(code);
}

/// Length of the entity at the start of `text`, which begins with "&"; 0 when it is none.
std::size_t EntityLength(std::string_view text)
{
    const auto end = text.substr(0, kLongestEntity).find(';');
    if (end == std::string_view::npos || !IsEntity(text.substr(1, end - 1))) return 0;
    return end + 1;
}

/// What stands for a character so that a parser gives it back; empty where it stands for itself. An
/// "&" is looked at by its surroundings.
std::string_view EscapeOf(char c)
{
    switch (c) {
        case '<':
            return "&lt;";
        case '>':
            return "&gt;";
        case '"':
            return "&quot;";
        case '\n':
            return "&#10;";
        case '\r':
            return "&#13;";
        case '\t':
            return "&#9;";
        case '\0':
            return "\xEF\xBF\xBD";
        case '&':
            return "&amp;";
        default:
            return {};
    }
}

/// Appends character data so that a parser gives back the very same.
void AppendEscaped(std::string& out, std::string_view label)
{
    std::size_t plain = 0;  // from here on nothing is written yet
    for (std::size_t at = 0; at < label.size(); ++at) {
        if (!kEscaped.Has(label[at])) continue;
        if (label[at] == '&' && EntityLength(label.substr(at)) > 0) continue;
        out.append(label.substr(plain, at - plain)).append(EscapeOf(label[at]));
        plain = at + 1;
    }
    out.append(label.substr(plain));
}

class Repair {
public:
    explicit Repair(std::string_view text) : fText(text) { fOut.reserve(text.size() + 64); }

    std::optional<std::string> Run()
    {
        while ((fAt = std::min(fText.find('<', fAt), fText.size())) < fText.size()) {
            if (Skip("<!--", "-->") || Skip("<?", "?>")) continue;
            const Tag tag = TagAt(fAt);
            if (!tag.fElement) {
                ++fAt;
            } else if (!(tag.fCloses ? CloseTag(tag) : OpenTag(tag))) {
                return std::nullopt;
            }
        }
        return std::move(fOut);
    }

private:
    struct Tag {
        const GrammarRow* fElement = nullptr;
        bool fCloses = false;
        std::size_t fNameEnd = 0;
    };

    bool Has(std::size_t at, std::string_view word) const
    {
        return fText.substr(std::min(at, fText.size()), word.size()) == word;
    }

    bool Has(std::size_t at, char character) const
    {
        return at < fText.size() && fText[at] == character;
    }

    bool HasEmptyEnd(std::size_t at) const { return Has(at, '/') && Has(at + 1, '>'); }

    bool HasValue(std::size_t at) const { return Has(at, '=') && Has(at + 1, '"'); }

    std::size_t BehindSpace(std::size_t at) const
    {
        while (at < fText.size() && kSpace.Has(fText[at]))
            ++at;
        return at;
    }

    /// A name behind an attribute is looked at to tell the attribute's end, and then read.
    std::size_t NameEnd(std::size_t at)
    {
        if (at != fNamePlace) {
            fNamePlace = fNameEnd = at;
            while (fNameEnd < fText.size() && kNameCharacters.Has(fText[fNameEnd]))
                ++fNameEnd;
        }
        return fNameEnd;
    }

    /// The start of a tag of the language, if there is one at this place. A tag's end is told by
    /// the tag behind it, which is then asked for again.
    const Tag& TagAt(std::size_t at)
    {
        if (at != fTagPlace) {
            fTag = FindTag(at);
            fTagPlace = at;
        }
        return fTag;
    }

    Tag FindTag(std::size_t at)
    {
        if (!Has(at, '<')) return {};
        const bool closes = Has(at + 1, '/');
        const std::size_t begin = at + (closes ? 2 : 1);
        const std::size_t end = NameEnd(begin);
        if (end == fText.size()) return {};
        const char behind = fText[end];
        if (!kSpace.Has(behind) && behind != '/' && behind != '>') return {};
        return {FindElement(fText.substr(begin, end - begin)), closes, end};
    }

    bool Skip(std::string_view opening, std::string_view closing)
    {
        if (!Has(fAt, opening)) return false;
        const auto end = fText.find(closing, fAt + opening.size());
        fAt = end == std::string_view::npos ? fText.size() : end + closing.size();
        return true;
    }

    bool CloseTag(const Tag& tag)
    {
        fAt = BehindSpace(tag.fNameEnd);
        if (!Has(fAt, '>')) return false;
        ++fAt;
        fOut.append("</").append(tag.fElement->fElement) += '>';
        return true;
    }

    bool OpenTag(const Tag& tag)
    {
        fOut += '<';
        fOut += tag.fElement->fElement;
        fGiven.clear();
        fAt = BehindSpace(tag.fNameEnd);
        while (fAt < fText.size()) {
            if (HasEmptyEnd(fAt)) {
                fAt += 2;
                fOut.append("/>");
                return true;
            }
            if (Has(fAt, '>')) {
                ++fAt;
                fOut += '>';
                if (tag.fElement->fElement == kTextElement) CopyText();
                return true;
            }
            if (!CopyAttribute(*tag.fElement)) return false;
            fAt = BehindSpace(fAt);
        }
        return false;
    }

    /// An attribute, also one that the element does not know.
    bool CopyAttribute(const GrammarRow& element)
    {
        const std::size_t nameEnd = NameEnd(fAt);
        if (nameEnd == fAt || !HasValue(nameEnd)) return false;
        const std::string_view name = fText.substr(fAt, nameEnd - fAt);
        fGiven.push_back(name);
        const std::size_t begin = nameEnd + 2;
        const std::size_t end = AttributeEnd(begin, element);
        if (end == std::string_view::npos) return false;
        fOut += ' ';
        fOut.append(fText, fAt, begin - fAt);
        AppendEscaped(fOut, fText.substr(begin, end - begin));
        fOut += '"';
        fAt = end + 1;
        return true;
    }

    std::size_t AttributeEnd(std::size_t begin, const GrammarRow& element)
    {
        auto quote = fText.find('"', begin);
        while (quote != std::string_view::npos && !ClosesAttribute(quote + 1, element)) {
            quote = fText.find('"', quote + 1);
        }
        return quote;
    }

    bool ClosesAttribute(std::size_t behind, const GrammarRow& element)
    {
        const std::size_t next = BehindSpace(behind);
        if (HasEmptyEnd(next)) return IsBetweenTags(next + 2);
        if (Has(next, '>')) return element.fElement == kTextElement || IsBetweenTags(next + 1);
        if (next == behind) return false;
        const std::size_t nameEnd = NameEnd(next);
        const std::string_view name = fText.substr(next, nameEnd - next);
        return HasValue(nameEnd) && HasAttribute(element, name) &&
               std::find(fGiven.begin(), fGiven.end(), name) == fGiven.end();
    }

    /// Whether nothing but space stands before the next tag.
    bool IsBetweenTags(std::size_t at)
    {
        at = BehindSpace(at);
        return at == fText.size() || TagAt(at).fElement || Has(at, "<!--");
    }

    void CopyText()
    {
        const std::size_t end = TextEnd();
        AppendEscaped(fOut, fText.substr(fAt, end - fAt));
        fAt = end;
    }

    std::size_t TextEnd()
    {
        const auto first = fText.find(kTextEnd, fAt);
        if (first == std::string_view::npos) return fText.size();
        // Where no text behind this one ends properly, there is no need to look again.
        if (fNoMoreProperEnds) return first;
        for (auto end = first; end != std::string_view::npos; end = fText.find(kTextEnd, end + 1)) {
            const Tag next = TagAt(BehindSpace(end + kTextEnd.size()));
            if (!next.fElement) continue;
            if (next.fCloses ? next.fElement->fElement == "label"
                             : next.fElement->fElement == kTextElement) {
                return end;
            }
        }
        fNoMoreProperEnds = true;
        return first;
    }

    std::string_view fText;
    std::size_t fAt = 0;
    std::size_t fTagPlace = std::string_view::npos;  // that was looked at last
    Tag fTag;
    std::size_t fNamePlace = std::string_view::npos;  // likewise
    std::size_t fNameEnd = 0;
    std::string fOut;
    std::vector<std::string_view> fGiven;  // attributes of the tag, up to here
    bool fNoMoreProperEnds = false;
};

}  // namespace

std::optional<std::string> RepairTemplate(std::string_view text) { return Repair(text).Run(); }

}  // namespace refhost
