#pragma once

#include <pugixml.hpp>

#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <utility>

#include "refhost/template/VisualizationTree.h"

/// Readers of what occurs in several places of a template.
namespace refhost::tree {

/// Words of the template that stand for a label; one that nobody replaced shows as nothing.
class Placeholders {
public:
    explicit Placeholders(const pugi::xml_node& visualization);

    bool Has(std::string_view text) const { return fWords.find(text) != fWords.end(); }

    /// The text, or nothing for a placeholder.
    std::string Filled(std::string text) const
    {
        return Has(text) ? std::string() : std::move(text);
    }

private:
    std::set<std::string, std::less<>> fWords;
};

/// The child `label` of an element, if there is one.
std::optional<Label> ReadLabelIn(const pugi::xml_node& parent, const Placeholders& placeholders);

LabelFrame ReadLabelFrame(const pugi::xml_node& node, const Placeholders& placeholders);
Location ReadLocation(const pugi::xml_node& node);

/// The graph with all that is in it.
Graph ReadGraph(const pugi::xml_node& node, const Placeholders& placeholders);

/// Nothing where the node is no element that draws.
std::optional<Element> ReadElement(const pugi::xml_node& node);

}  // namespace refhost::tree
