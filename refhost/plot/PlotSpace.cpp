#include "refhost/plot/PlotSpace.h"

#include <cmath>

#include "refhost/template/ChartDrawing.h"

namespace refhost {
namespace {

constexpr double kNarrowestBar = 1.0 / 60.0;  // of the range

const tree::DimensionSpec* FindSpec(const tree::Graph& graph, tree::Dimension dimension)
{
    for (const tree::DimensionSpec& spec : graph.fDimensions) {
        if (spec.fDimension == dimension) return &spec;
    }
    return nullptr;
}

bool HasPoissonCurve(const tree::Graph& graph)
{
    return std::any_of(
        graph.fElements.begin(), graph.fElements.end(), [](const tree::Element& element) {
            return element.fDistribution &&
                   element.fDistribution->fDistribution == tree::Distribution::Poisson;
        });
}

std::vector<double> NumbersOf(const DataVariable& variable)
{
    std::vector<double> numbers;
    for (std::size_t row = 0; row < variable.Rows(); ++row) {
        if (const auto number = variable.Number(row)) numbers.push_back(*number);
    }
    return numbers;
}

/// The smallest gap between neighbours, but no hairline.
double BarWidth(std::vector<double> numbers)
{
    std::sort(numbers.begin(), numbers.end());
    numbers.erase(std::unique(numbers.begin(), numbers.end()), numbers.end());
    if (numbers.size() < 2) return 1.0;
    double gap = std::numeric_limits<double>::infinity();
    for (std::size_t next = 1; next < numbers.size(); ++next) {
        gap = std::min(gap, numbers[next] - numbers[next - 1]);
    }
    const double range = numbers.back() - numbers.front();
    return std::min(std::max(gap, range * kNarrowestBar), std::numeric_limits<double>::max());
}

ScaleKind KindOf(const tree::DimensionSpec* spec, const DataVariable* variable)
{
    if (spec && spec->fScale == tree::Scale::Category) return ScaleKind::Category;
    if (!variable) return ScaleKind::Linear;
    const bool isNumber = spec && spec->fScale == tree::Scale::Number;
    if (!isNumber && (variable->IsSetCategorical() || variable->HoldsText())) {
        return ScaleKind::Category;
    }
    return variable->IsDate() ? ScaleKind::Time : ScaleKind::Linear;
}

/// What the elements of a graph do along a direction.
struct Use {
    bool fHasBars = false;  // bars stand on it
    bool fBinned = false;
};

/// The variable is that of the first element that takes one along the dimension.
Use TakeElements(const ChartContext& context, tree::Dimension dimension, PlotDirection& direction)
{
    Use use;
    for (const tree::Element& element : context.fGraph.fElements) {
        const auto& position = PositionOf(element, dimension);
        const DataVariable* variable = VariableAt(context, position);
        if (!variable) continue;
        const bool isBar = element.fKind == tree::ElementKind::Interval;
        if (isBar && element.fExtent == dimension) {
            direction.fCounts = true;
            direction.fAir |= !element.fLabelings.empty();
        }
        use.fHasBars |= isBar && element.fExtent != dimension;
        use.fBinned |= position->fBinned;
        if (!direction.fVariable) direction.fVariable = variable;
    }
    return use;
}

/// Of bars that stand on numbers: bins around the numbers, or each bar on its own.
void SettleBars(const ChartContext& context, bool binned, PlotDirection& direction)
{
    const std::vector<double> numbers = NumbersOf(*direction.fVariable);
    direction.fTight = true;
    if (!binned) {
        direction.fBarWidth = BarWidth(numbers);
        return;
    }
    const BinKind kind = direction.fKind == ScaleKind::Time ? BinKind::Date
                         : HasPoissonCurve(context.fGraph)  ? BinKind::Whole
                                                            : BinKind::Number;
    direction.fBins = MakeBins(numbers, kind);
    direction.fBarWidth = direction.fBins->fWidth;
}

PlotDirection MakeDirection(ChartContext& context, tree::Dimension dimension)
{
    PlotDirection direction;
    const Use use = TakeElements(context, dimension, direction);
    const tree::DimensionSpec* spec = FindSpec(context.fGraph, dimension);
    if (spec) direction.fMin = spec->fMin;
    if (spec) direction.fMax = spec->fMax;
    direction.fKind = direction.fCounts ? ScaleKind::Linear : KindOf(spec, direction.fVariable);
    if (!direction.fVariable) return direction;
    if (direction.fKind == ScaleKind::Category) {
        direction.fCategories =
            CategoryList(*direction.fVariable, context.fTree.fOrders, kMostCategories);
        NoteCut(context.fNotes, context.fWords.fCutCategories, direction.fCategories.Count(),
                direction.fCategories.Cut());
    } else if (use.fHasBars) {
        SettleBars(context, use.fBinned, direction);
    }
    return direction;
}

}  // namespace

std::optional<double> PlotDirection::Place(const DataVariable& variable, std::size_t row) const
{
    if (variable.IsAbsent(row)) return std::nullopt;
    if (fKind != ScaleKind::Category) return variable.Number(row);
    std::string room;
    const auto category = fCategories.Find(variable.Key(row, room));
    return category ? std::optional(static_cast<double>(*category)) : std::nullopt;
}

std::string PlotDirection::PlaceText(const DataVariable& variable, double place) const
{
    if (fKind != ScaleKind::Category) return variable.NumberText(place);
    const auto category = static_cast<std::size_t>(std::max(0.0, std::round(place)));
    return category < fCategories.Count() ? fCategories.All()[category].fLabel : std::string();
}

PlotSpace MakePlotSpace(ChartContext& context)
{
    return {MakeDirection(context, tree::Dimension::X), MakeDirection(context, tree::Dimension::Y)};
}

std::string AxisTitle(const ChartContext& context, tree::Dimension dimension,
                      const PlotDirection& direction)
{
    for (const tree::Axis& axis : context.fGraph.fAxes) {
        if (axis.fDimension != dimension || !axis.fLabel) continue;
        if (std::string shown = axis.fLabel->Shown(); !shown.empty()) return shown;
    }
    return direction.fVariable ? direction.fVariable->Title() : std::string();
}

const tree::Style* FindStyle(const ChartContext& context, const std::string& id)
{
    return context.fTree.FindStyle(id);
}

bool IsVisible(const ChartContext& context, const std::string& style)
{
    const tree::Style* found = FindStyle(context, style);
    return !found || found->fVisible;
}

const tree::Color* ColorOf(const ChartContext& context, const tree::Element& element)
{
    const tree::Color* last = nullptr;
    for (const tree::Color& color : element.fColors) {
        if (context.fData.Find(color.fVariable)) last = &color;
    }
    return last;
}

}  // namespace refhost
