#include "refhost/template/ReadParts.h"
#include "refhost/template/TemplateNode.h"

namespace refhost::tree {

namespace {

// clang-format off
constexpr Word<ElementKind> kElements[] = {
    {"interval", ElementKind::Interval},
    {"line",     ElementKind::Line},
    {"point",    ElementKind::Point},
    {"schema",   ElementKind::Schema},
    {"edge",     ElementKind::Edge},
    {"node",     ElementKind::Node},
    {"caption",  ElementKind::Caption},
};

constexpr Word<Arrangement> kArrangements[] = {
    {"overlay", Arrangement::Overlay},
    {"stack",   Arrangement::Stack},
    {"cluster", Arrangement::Cluster},
};

constexpr Word<Distribution> kDistributions[] = {
    {"normal",      Distribution::Normal},
    {"uniform",     Distribution::Uniform},
    {"poisson",     Distribution::Poisson},
    {"exponential", Distribution::Exponential},
};

constexpr Word<Summary> kSummaries[] = {{"sum", Summary::Sum}};
// clang-format on

std::optional<Position> ReadPosition(const pugi::xml_node& node)
{
    if (!node) return std::nullopt;
    Position position;
    position.fVariable = TextOf(node, "variable");
    position.fBinned = !node.child("binStatistic").empty();
    position.fSummary =
        WordOf(node.child("summaryStatistic"), "method", kSummaries).value_or(Summary::None);
    position.fScalingFactor = PositiveOf(node, "scalingFactor", 1.0);
    return position;
}

std::optional<DistributionStatistic> ReadDistribution(const pugi::xml_node& node)
{
    const auto distribution = WordOf(node, "distribution", kDistributions);
    if (!distribution) return std::nullopt;
    return DistributionStatistic{*distribution, ParseParameter(TextOf(node, "parameter")),
                                 ParseParameter(TextOf(node, "secondaryParameter"))};
}

std::list<Color> ReadColors(const pugi::xml_node& node)
{
    std::list<Color> colors;
    for (const auto& child : node.children()) {
        const std::string_view name = child.name();
        if (name != "color" && name != "pattern") continue;
        colors.push_back({TextOf(child, "id"), TextOf(child, "variable"), ListOf(child, "palette"),
                          name == "pattern"});
    }
    return colors;
}

}  // namespace

std::optional<Element> ReadElement(const pugi::xml_node& node)
{
    const auto kind = MeaningOf<ElementKind>(node.name(), kElements);
    if (!kind) return std::nullopt;
    Element element;
    element.fKind = *kind;
    element.fId = TextOf(node, "id");
    element.fStyle = TextOf(node, "style");
    element.fVariable = TextOf(node, "variable");
    element.fFrom = TextOf(node, "from");
    element.fTo = TextOf(node, "to");
    element.fX = ReadPosition(node.child("x"));
    element.fY = ReadPosition(node.child("y"));
    element.fExtent = WordOf(node, "extent", kDimensions).value_or(Dimension::Y);
    element.fArrangement =
        WordOf(node, "arrangement", kArrangements).value_or(Arrangement::Overlay);
    element.fDistribution = ReadDistribution(node.child("distributionStatistic"));
    element.fColors = ReadColors(node);
    for (const auto& child : node.children("labeling")) {
        element.fLabelings.push_back({TextOf(child, "id"), TextOf(child, "variable")});
    }
    return element;
}

}  // namespace refhost::tree
