#pragma once

#include <algorithm>
#include <cstddef>
#include <limits>
#include <optional>
#include <string>
#include <vector>

#include "refhost/plot/Bins.h"
#include "refhost/plot/Categories.h"
#include "refhost/plot/ChartData.h"
#include "refhost/plot/PlotWords.h"
#include "refhost/plot/ResolvedChart.h"

namespace refhost {

/// What the steps of drawing share: the visualization, its data, the notes that are made underway.
struct ChartContext {
    const ChartDrawing& fDrawing;
    const tree::Visualization& fTree;
    const tree::Graph& fGraph;
    const PlotWords& fWords;
    ChartData fData;
    std::vector<std::string> fNotes = {};
    DataSummary fSummary = {};
};

/// How much of a direction the marks take.
struct Extent {
    double fLow = std::numeric_limits<double>::infinity();
    double fHigh = -std::numeric_limits<double>::infinity();

    void Take(double place)
    {
        fLow = std::min(fLow, place);
        fHigh = std::max(fHigh, place);
    }
    bool IsEmpty() const { return fLow > fHigh; }
};

/// One direction of the coordinates, shared by all plots of the chart.
struct PlotDirection {
    ScaleKind fKind = ScaleKind::Linear;
    const DataVariable* fVariable = nullptr;  // the first that an element takes along it
    CategoryList fCategories;
    std::optional<Bins> fBins;
    double fBarWidth = 1.0;  ///< of bars that stand on it
    bool fCounts = false;    ///< bars grow along it
    bool fAir = false;       ///< numbers stand on the bars
    bool fTight = false;     ///< the marks fill it from end to end
    std::optional<double> fMin, fMax;
    Extent fExtent;

    /// The place of a row: a category's, or the number.
    std::optional<double> Place(const DataVariable& variable, std::size_t row) const;

    /// What a reader calls a place.
    std::string PlaceText(const DataVariable& variable, double place) const;
};

struct PlotSpace {
    PlotDirection fX;
    PlotDirection fY;

    PlotDirection& Of(tree::Dimension dimension)
    {
        return dimension == tree::Dimension::X ? fX : fY;
    }
    const PlotDirection& Of(tree::Dimension dimension) const
    {
        return dimension == tree::Dimension::X ? fX : fY;
    }
};

inline tree::Dimension Other(tree::Dimension dimension)
{
    return dimension == tree::Dimension::X ? tree::Dimension::Y : tree::Dimension::X;
}

inline const std::optional<tree::Position>& PositionOf(const tree::Element& element,
                                                       tree::Dimension dimension)
{
    return dimension == tree::Dimension::X ? element.fX : element.fY;
}

/// Null without a position, and where the data don't have what it names.
inline const DataVariable* VariableAt(const ChartContext& context,
                                      const std::optional<tree::Position>& position)
{
    return position ? context.fData.Find(position->fVariable) : nullptr;
}

/// Kinds, categories, bins and bar widths of both directions, from the data of all plots.
PlotSpace MakePlotSpace(ChartContext& context);

/// What stands beside the axis of a direction: its label, else the variable's.
std::string AxisTitle(const ChartContext& context, tree::Dimension dimension,
                      const PlotDirection& direction);

/// Null for an id that isn't there.
const tree::Style* FindStyle(const ChartContext& context, const std::string& id);

/// False where the style says so.
bool IsVisible(const ChartContext& context, const std::string& style);

/// The colour of an element that counts, with the variable behind it; null where there is none.
const tree::Color* ColorOf(const ChartContext& context, const tree::Element& element);

/// Categories that are drawn of an axis, and entries of a legend.
inline constexpr std::size_t kMostCategories = 100;

/// Marks that are drawn of an element in a plot.
inline constexpr std::size_t kMostMarks = 5000;

}  // namespace refhost
