#include "refhost/template/ReadParts.h"

#include "refhost/template/TemplateNode.h"

namespace refhost::tree {

namespace {

// clang-format off
constexpr Word<ENUM_part> kParts[] = {
    {"left",   ENUM_part::Left},
    {"right",  ENUM_part::Right},
    {"top",    ENUM_part::Top},
    {"bottom", ENUM_part::Bottom},
    {"width",  ENUM_part::Width},
    {"height", ENUM_part::Height},
};

constexpr Word<ENUM_method> kMethods[] = {
    {"fixed",         ENUM_method::Fixed},
    {"sizeToContent", ENUM_method::SizeToContent},
    {"same",          ENUM_method::Same},
    {"against",       ENUM_method::Against},
};
// clang-format on

Label ReadLabel(const pugi::xml_node& node, const TemplateWords& words)
{
    Label label;
    label.fId = TextOf(node, "id");
    label.fStyle = TextOf(node, "style");
    for (const auto& text : node.children("text"))
        label.fTexts.push_back({"", words.Shown(text)});
    return label;
}

}  // namespace

std::vector<std::string> ListOf(const pugi::xml_node& node, const char* name)
{
    std::vector<std::string> members;
    std::string_view rest = node.attribute(name).value();
    while (!rest.empty()) {
        const auto end = rest.find(';');
        members.emplace_back(rest.substr(0, end));
        rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
    }
    return members;
}

TemplateWords::TemplateWords(const pugi::xml_node& visualization, TextOfKey* textOfKey)
    : fTextOfKey(textOfKey)
{
    for (const auto& node : visualization.children("placeholders")) {
        for (std::string& word : ListOf(node, "words"))
            fPlaceholders.insert(std::move(word));
    }
}

std::string TemplateWords::Shown(const pugi::xml_node& text) const
{
    const char* own = text.text().get();
    if (fTextOfKey && FlagOf(text, "lookup", false)) return fTextOfKey(own);
    return Filled(own);
}

std::optional<Label> ReadLabelIn(const pugi::xml_node& parent, const TemplateWords& words)
{
    const auto node = parent.child("label");
    return node ? std::optional(ReadLabel(node, words)) : std::nullopt;
}

Location ReadLocation(const pugi::xml_node& node)
{
    Location location;
    location.fId = TextOf(node, "id");
    location.fPart = WordOf(node, "part", kParts);
    location.fMethod = WordOf(node, "method", kMethods);
    location.fValue = TextOf(node, "value");
    location.fTarget = TextOf(node, "target");
    return location;
}

LabelFrame ReadLabelFrame(const pugi::xml_node& node, const TemplateWords& words)
{
    LabelFrame frame;
    frame.fId = TextOf(node, "id");
    for (const auto& child : node.children("location")) {
        frame.fLocations.push_back(ReadLocation(child));
    }
    for (const auto& child : node.children("label")) {
        frame.fLabels.push_back(ReadLabel(child, words));
    }
    return frame;
}

}  // namespace refhost::tree
