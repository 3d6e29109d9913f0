#include "fuzz/targets/OutputChecks.h"

#include <rapidjson/document.h>
#include <unicode/ustring.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "refhost/writers/WebAssets.h"

namespace fuzz {

namespace {

// clang-format off
constexpr std::string_view kElements[] = {
    "html", "head", "title", "style", "script", "body", "header", "main", "nav", "footer", "aside",
    "section", "h1", "h2", "h3", "h4", "h5", "h6", "p", "a", "ul", "li", "div", "span", "i", "sup",
    "fieldset", "legend", "label", "button", "template", "details", "summary", "pre", "figure",
    "figcaption", "svg", "table", "caption", "colgroup", "thead", "tbody", "tfoot", "tr", "th", "td",
};
constexpr std::string_view kEmptyElements[] = {"meta", "input", "col", "br"};

/// Closed by what follows.
constexpr std::string_view kOpenEnded[] = {"colgroup"};
// clang-format on

template <std::size_t kCount>
bool Holds(const std::string_view (&list)[kCount], std::string_view name)
{
    return std::find(std::begin(list), std::end(list), name) != std::end(list);
}

bool IsOwnScript(std::string_view script)
{
    using namespace refhost::web;
    return script == kReport.fText || script == kVega.fText || script == kVegaLite.fText ||
           script == kVegaEmbed.fText;
}

/// Walks the markup of a report from tag to tag.
class MarkupWalk {
public:
    explicit MarkupWalk(std::string_view text) : fRest(text) {}

    void Run()
    {
        while (Advance("<"))
            Tag();
        CheckUtf8(fRest);
        Require(fOpen.empty(), "every element of the report is closed");
    }

private:
    /// To behind the next `mark`; what is passed has to be UTF-8.
    bool Advance(std::string_view mark)
    {
        const std::size_t place = fRest.find(mark);
        if (place == std::string_view::npos) return false;
        fPassed = fRest.substr(0, place);
        fRest.remove_prefix(place + mark.size());
        if (!IsOwnScript(fPassed)) CheckUtf8(fPassed);
        return true;
    }

    void Tag()
    {
        Require(Advance(">"), "every tag of the report ends");
        const std::string_view tag = fPassed;
        if (tag == "!doctype html") return;
        const bool isEnd = tag.starts_with('/');
        const std::string_view name = tag.substr(isEnd ? 1 : 0, tag.find(' ') - (isEnd ? 1 : 0));
        if (Holds(kEmptyElements, name)) return;
        if (!Holds(kElements, name)) std::fprintf(stderr, "<%s>\n", std::string(tag).c_str());
        Require(Holds(kElements, name), "every element of the report is the writer's");
        if (Holds(kOpenEnded, name)) return;
        if (isEnd) {
            Require(!fOpen.empty() && fOpen.back() == name, "elements of the report nest");
            fOpen.pop_back();
        } else if (name == "script" || name == "style") {
            Raw(tag);
        } else {
            fOpen.push_back(name);
        }
    }

    void Raw(std::string_view tag)
    {
        Require(Advance(tag == "style" ? "</style>" : "</script>"), "a script ends");
        if (tag == "style") return;
        if (tag.find("application/json") != std::string_view::npos)
            CheckJson(fPassed);
        else
            Require(IsOwnScript(fPassed), "every script of the report is the page's own");
    }

    std::string_view fRest;
    std::string_view fPassed;
    std::vector<std::string_view> fOpen;
};

}  // namespace

void Require(bool holds, std::string_view what)
{
    if (holds) return;
    std::fprintf(stderr, "does not hold: %s\n", std::string(what).c_str());
    std::abort();
}

void CheckUtf8(std::string_view text)
{
    if (text.empty()) return;
    std::int32_t units = 0;
    UErrorCode error = U_ZERO_ERROR;
    u_strFromUTF8(nullptr, 0, &units, text.data(), static_cast<std::int32_t>(text.size()), &error);
    Require(error != U_INVALID_CHAR_FOUND, "output is UTF-8");
}

void CheckText(std::string_view text)
{
    CheckUtf8(text);
    unsigned char before = 0;
    for (const char character : text) {
        const auto byte = static_cast<unsigned char>(character);
        const bool controls = byte < 0x20 || byte == 0x7F || (before == 0xC2 && byte < 0xA0);
        Require(!controls || byte == '\n', "no text controls the terminal");
        before = byte;
    }
}

void CheckJson(std::string_view text)
{
    constexpr unsigned kFlags =
        rapidjson::kParseValidateEncodingFlag | rapidjson::kParseIterativeFlag;
    rapidjson::Document document;
    document.Parse<kFlags>(text.data(), text.size());
    Require(!document.HasParseError(), "JSON output parses and is UTF-8");
}

void CheckHtml(std::string_view text) { MarkupWalk(text).Run(); }

}  // namespace fuzz
