#include "refhost/pivot/CompositeTemplate.h"

#include <algorithm>
#include <optional>
#include <span>

namespace refhost {

namespace {

constexpr std::string_view kListSeparator = ", ";

/// The number of a place from 0, where a digit from 1 to 9 stands at `at`.
std::optional<std::size_t> PlaceAt(std::string_view text, std::size_t at)
{
    if (at >= text.size() || text[at] < '1' || text[at] > '9') return std::nullopt;
    return static_cast<std::size_t>(text[at] - '1');
}

std::string_view Shown(const TextRef& text)
{
    return text ? std::string_view(text->fShown) : std::string_view();
}

/// The members of a part; a single text is a list of one.
std::span<const TextRef> Members(const CompositePart& part)
{
    if (const auto* list = std::get_if<TextSublist>(&part)) return list->fItems;
    return {&std::get<TextRef>(part), 1};
}

void AppendPart(const CompositePart& part, std::string& out)
{
    bool first = true;
    for (const TextRef& member : Members(part)) {
        if (!first) out += kListSeparator;
        out += Shown(member);
        first = false;
    }
}

/// A form "[A:B]n" or "[A:B:]n".
struct ListForm {
    std::string_view fFirst;
    std::string_view fFurther;
    std::size_t fPlace;
    std::size_t fLength;  // of the whole form
};

/// Where a character stands next; asked for ascending positions it walks the text once.
class NextOf {
public:
    NextOf(std::string_view text, char wanted) : fText(text), fWanted(wanted) {}

    std::size_t From(std::size_t at)
    {
        if (!fAsked || (fFound != std::string_view::npos && fFound < at))
            fFound = fText.find(fWanted, at);
        fAsked = true;
        return fFound;
    }

private:
    std::string_view fText;
    char fWanted;
    std::size_t fFound = 0;
    bool fAsked = false;
};

class ListForms {
public:
    explicit ListForms(std::string_view text) : fText(text), fEnds(text, ']'), fColons(text, ':') {}

    /// The form that begins here; none where this is no "[" or only a bracket.
    std::optional<ListForm> At(std::size_t at)
    {
        if (fText[at] != '[') return std::nullopt;
        const std::size_t end = fEnds.From(at);
        if (end == std::string_view::npos) return std::nullopt;
        const std::optional<std::size_t> place = PlaceAt(fText, end + 1);
        const std::size_t colon = fColons.From(at);
        if (!place || colon > end) return std::nullopt;
        std::string_view further = fText.substr(colon + 1, end - colon - 1);
        if (further.ends_with(':')) further.remove_suffix(1);
        return ListForm{fText.substr(at + 1, colon - at - 1), further, *place, end + 2 - at};
    }

private:
    std::string_view fText;
    NextOf fEnds;
    NextOf fColons;
};

std::size_t MembersOfItem(std::string_view first)
{
    bool marked[9] = {};
    for (std::size_t at = 0; at < first.size(); ++at) {
        const std::optional<std::size_t> place = PlaceAt(first, at + 1);
        if (first[at] == '%' && place) marked[*place] = true;
    }
    return static_cast<std::size_t>(std::max<std::ptrdiff_t>(1, std::ranges::count(marked, true)));
}

/// One item of a list: the marks of `form` are filled with its members.
void AppendItem(std::string_view form, char mark, std::span<const TextRef> members,
                std::string& out)
{
    for (std::size_t at = 0; at < form.size(); ++at) {
        const std::optional<std::size_t> place = PlaceAt(form, at + 1);
        if (form[at] != mark || !place) {
            out += form[at];
            continue;
        }
        if (*place < members.size()) out += Shown(members[*place]);
        ++at;
    }
}

/// The first place from `at` on where a form may begin; the end where there is none.
std::size_t MarkFrom(std::string_view text, std::size_t at)
{
    while (at < text.size() && text[at] != '^' && text[at] != '[')
        ++at;
    return at;
}

void AppendList(const ListForm& form, const CompositePart& part, std::string& out)
{
    const std::size_t step = MembersOfItem(form.fFirst);
    std::span<const TextRef> rest = Members(part);
    for (bool first = true; !rest.empty(); first = false) {
        const std::size_t count = std::min(step, rest.size());
        AppendItem(first ? form.fFirst : form.fFurther, first ? '%' : '^', rest.first(count), out);
        rest = rest.subspan(count);
    }
}

}  // namespace

std::string FillTemplate(std::string_view text, const std::vector<CompositePart>& parts)
{
    std::string out;
    ListForms lists(text);
    std::size_t at = 0;
    while (at < text.size()) {
        const std::size_t mark = MarkFrom(text, at);
        out += text.substr(at, mark - at);
        at = mark;
        if (at == text.size()) break;

        const std::optional<ListForm> list = lists.At(at);
        const std::optional<std::size_t> place =
            text[at] == '^' ? PlaceAt(text, at + 1) : std::optional<std::size_t>();
        if (list) {
            if (list->fPlace < parts.size()) AppendList(*list, parts[list->fPlace], out);
            at += list->fLength;
        } else if (place) {
            if (*place < parts.size()) AppendPart(parts[*place], out);
            at += 2;
        } else {
            out += text[at++];
        }
    }
    return out;
}

}  // namespace refhost
