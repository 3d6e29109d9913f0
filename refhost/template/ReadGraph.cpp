#include "refhost/template/ReadParts.h"
#include "refhost/template/TemplateNode.h"

namespace refhost::tree {

namespace {

// clang-format off
constexpr Word<Scale> kScales[] = {
    {"data",     Scale::Data},
    {"number",   Scale::Number},
    {"category", Scale::Category},
};

constexpr Word<AxisPlace> kPlaces[] = {{"near", AxisPlace::Near}, {"far", AxisPlace::Far}};

constexpr Word<Facet::Direction> kDirections[] = {
    {"columns", Facet::Direction::Columns},
    {"rows",    Facet::Direction::Rows},
};
// clang-format on

DimensionSpec ReadDimension(const pugi::xml_node& node)
{
    const auto range = node.child("range");
    return {WordOf(node, "name", kDimensions).value_or(Dimension::X),
            WordOf(node, "scale", kScales).value_or(Scale::Data), NumberOf(range, "min"),
            NumberOf(range, "max")};
}

Axis ReadAxis(const pugi::xml_node& node, const TemplateWords& words)
{
    Axis axis;
    axis.fDimension = WordOf(node, "dimension", kDimensions).value_or(Dimension::X);
    axis.fPlace = WordOf(node, "place", kPlaces).value_or(AxisPlace::Near);
    axis.fStyle = TextOf(node, "style");
    axis.fLabel = ReadLabelIn(node, words);
    axis.fTicks = FlagOf(node, "ticks", true);
    axis.fGrid = FlagOf(node, "grid", false);
    return axis;
}

LineGuide ReadLineGuide(const pugi::xml_node& node, const TemplateWords& words)
{
    LineGuide guide;
    guide.fId = TextOf(node, "id");
    guide.fDimension = node.attribute("x") ? Dimension::X : Dimension::Y;
    guide.fPlace = TextOf(node, node.attribute("x") ? "x" : "y");
    guide.fStyle = TextOf(node, "style");
    guide.fLabel = ReadLabelIn(node, words);
    return guide;
}

Facet ReadFacet(const pugi::xml_node& node, const TemplateWords& words)
{
    return {WordOf(node, "direction", kDirections).value_or(Facet::Direction::Columns),
            TextOf(node, "variable"), TextOf(node, "header"), ReadLabelIn(node, words)};
}

FacetLayout ReadFacetLayout(const pugi::xml_node& node)
{
    return {FlagOf(node, "alternating", false),
            WordOf(node, "side", kDimensions).value_or(Dimension::X),
            FlagOf(node, "invert", false)};
}

GraphLayoutStatistic ReadGraphLayout(const pugi::xml_node& node)
{
    return {TextOf(node, "node"), TextOf(node, "from"), TextOf(node, "to"), TextOf(node, "weight"),
            !node.child("swap").empty()};
}

}  // namespace

Graph ReadGraph(const pugi::xml_node& node, const TemplateWords& words)
{
    Graph graph;
    graph.fId = TextOf(node, "id");
    for (const auto& child : node.children()) {
        const std::string_view name = child.name();
        if (name == "location") {
            graph.fLocations.push_back(ReadLocation(child));
        } else if (name == "dimension") {
            graph.fDimensions.push_back(ReadDimension(child));
        } else if (name == "axis") {
            graph.fAxes.push_back(ReadAxis(child, words));
        } else if (name == "lineGuide") {
            graph.fLineGuides.push_back(ReadLineGuide(child, words));
        } else if (name == "facetLayout") {
            graph.fFacetLayout = ReadFacetLayout(child);
        } else if (name == "graphLayoutStatistic") {
            graph.fLayout = ReadGraphLayout(child);
        } else if (auto element = ReadElement(child)) {
            graph.fElements.push_back(*std::move(element));
        }
    }
    for (const auto& facet : node.child("faceting").children("facet")) {
        graph.fFacets.push_back(ReadFacet(facet, words));
    }
    return graph;
}

}  // namespace refhost::tree
