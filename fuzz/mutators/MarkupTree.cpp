#include "fuzz/mutators/MarkupTree.h"

namespace fuzz {

namespace {

/// Elements that are nested deeper stand beside each other.
constexpr std::size_t kDeepest = 100;

constexpr std::string_view kBlanks = " \t\r\n";

class MarkupReader {
public:
    explicit MarkupReader(std::string_view text) : fRest(text) {}

    MarkupElement Run()
    {
        MarkupElement all;
        fOpen = {&all};
        while (!fRest.empty()) {
            AddText(Take("<"));
            if (Skips("!--"))
                Take("-->");
            else if (Skips("![CDATA["))
                fOpen.back()->fText += Take("]]>");
            else if (Skips("?") || Skips("!"))
                Take(">");
            else if (Skips("/"))
                Close(Take(">"));
            else if (!fRest.empty())
                Open();
        }
        return all;
    }

private:
    /// What stands before `mark`, or all; the mark goes too.
    std::string_view Take(std::string_view mark)
    {
        const std::size_t place = fRest.find(mark);
        const std::string_view taken = fRest.substr(0, place);
        fRest.remove_prefix(place == std::string_view::npos ? fRest.size() : place + mark.size());
        return taken;
    }

    bool Skips(std::string_view start)
    {
        if (!fRest.starts_with(start)) return false;
        fRest.remove_prefix(start.size());
        return true;
    }

    std::string_view TakeUpTo(std::string_view ends)
    {
        const std::string_view taken = fRest.substr(0, fRest.find_first_of(ends));
        fRest.remove_prefix(taken.size());
        return taken;
    }

    void SkipBlanks()
    {
        fRest.remove_prefix(std::min(fRest.find_first_not_of(kBlanks), fRest.size()));
    }

    void AddText(std::string_view text)
    {
        if (text.find_first_not_of(kBlanks) != std::string_view::npos) fOpen.back()->fText += text;
    }

    void Open()
    {
        MarkupElement element;
        element.fName = TakeUpTo(" \t\r\n/>");
        for (SkipBlanks(); !fRest.empty() && fRest.front() != '>' && fRest.front() != '/';
             SkipBlanks())
            ReadAttribute(element);
        const bool isEmpty = Take(">").ends_with('/');
        std::vector<MarkupElement>& siblings = fOpen.back()->fChildren;
        siblings.push_back(std::move(element));
        if (!isEmpty && fOpen.size() < kDeepest) fOpen.push_back(&siblings.back());
    }

    void ReadAttribute(MarkupElement& element)
    {
        std::string name(TakeUpTo("= \t\r\n/>"));
        SkipBlanks();
        std::string value;
        if (Skips("=")) {
            SkipBlanks();
            if (Skips("\""))
                value = Take("\"");
            else if (Skips("'"))
                value = Take("'");
        }
        if (!name.empty()) element.fAttributes.emplace_back(std::move(name), std::move(value));
    }

    void Close(std::string_view name)
    {
        for (std::size_t place = fOpen.size(); place > 1; --place) {
            if (fOpen[place - 1]->fName != name) continue;
            fOpen.resize(place - 1);
            return;
        }
    }

    std::string_view fRest;
    std::vector<MarkupElement*> fOpen;  // outermost first; only the innermost gets children
};

void Append(const MarkupElement& element, std::string& text)
{
    text += '<';
    text += element.fName;
    for (const auto& [name, value] : element.fAttributes) {
        const char quote = value.find('"') == std::string::npos ? '"' : '\'';
        text.append(" ").append(name).append("=") += quote;
        text.append(value) += quote;
    }
    if (element.fText.empty() && element.fChildren.empty()) {
        text += "/>";
        return;
    }
    text.append(">").append(element.fText);
    for (const MarkupElement& child : element.fChildren)
        Append(child, text);
    text.append("</").append(element.fName) += '>';
}

}  // namespace

MarkupElement ReadMarkup(std::string_view text) { return MarkupReader(text).Run(); }

std::string MarkupText(const MarkupElement& all)
{
    std::string text = all.fText;
    for (const MarkupElement& child : all.fChildren)
        Append(child, text);
    return text;
}

}  // namespace fuzz
