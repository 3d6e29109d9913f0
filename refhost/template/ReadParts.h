#pragma once

#include <pugixml.hpp>

#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <utility>

#include "refhost/template/ReadTemplate.h"
#include "refhost/template/VisualizationTree.h"

/// Readers of what occurs in several places of a template.
namespace refhost::tree {

/// What the template's own words show as: a placeholder that nobody replaced as nothing, a key as
/// its text.
class TemplateWords {
public:
    TemplateWords(const pugi::xml_node& visualization, TextOfKey* textOfKey);

    bool IsPlaceholder(std::string_view text) const
    {
        return fPlaceholders.find(text) != fPlaceholders.end();
    }

    /// The text, or nothing for a placeholder.
    std::string Filled(std::string text) const
    {
        return IsPlaceholder(text) ? std::string() : std::move(text);
    }

    /// What an element `text` shows.
    std::string Shown(const pugi::xml_node& text) const;

private:
    std::set<std::string, std::less<>> fPlaceholders;
    TextOfKey* fTextOfKey;  // may be null
};

/// The child `label` of an element, if there is one.
std::optional<Label> ReadLabelIn(const pugi::xml_node& parent, const TemplateWords& words);

LabelFrame ReadLabelFrame(const pugi::xml_node& node, const TemplateWords& words);
Location ReadLocation(const pugi::xml_node& node);

/// The graph with all that is in it.
Graph ReadGraph(const pugi::xml_node& node, const TemplateWords& words);

/// Nothing where the node is no element that draws.
std::optional<Element> ReadElement(const pugi::xml_node& node);

}  // namespace refhost::tree
