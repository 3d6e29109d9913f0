#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "refhost/plot/PlotSpace.h"

namespace refhost {

/// One facet of the chart, or the whole of it.
struct Panel {
    int fRow = 0;
    int fColumn = 0;
    std::vector<std::size_t> fRows;  ///< of the data that it shows, in order
    std::vector<std::string> fName;  ///< texts of its facets' values, for the data's table
};

/// Bars and what is known of them, for a curve over them.
struct BarTotals {
    double fTotal = 0.0;
    double fWidth = 0.0;  ///< 0 without bars
};

/// Every element adds its layers and widens the space's extents by what it draws.
void AddBars(ChartContext& context, const tree::Element& element, const Panel& panel,
             PlotSpace& space, std::vector<MarkLayer>& layers, BarTotals& totals);
void AddBoxes(ChartContext& context, const tree::Element& element, const Panel& panel,
              PlotSpace& space, std::vector<MarkLayer>& layers);

/// Points, and lines through them where the element is a line.
void AddPoints(ChartContext& context, const tree::Element& element, const Panel& panel,
               PlotSpace& space, std::vector<MarkLayer>& layers);

/// The texts of a variable at their places; without places they wait for the middle of the plot.
void AddTexts(ChartContext& context, const tree::Element& element, const Panel& panel,
              PlotSpace& space, std::vector<MarkLayer>& layers, std::string& caption);

/// A distribution over the range of x that is settled by now.
void AddCurve(ChartContext& context, const tree::Element& element, const BarTotals& totals,
              double low, double high, PlotSpace& space, std::vector<MarkLayer>& layers);

/// The layer of that look, made at the end of the list where there is none yet.
MarkLayer& LayerOf(std::vector<MarkLayer>& layers, std::size_t from, MarkKind kind,
                   const MarkStyle& style);

/// Its place in the list.
std::size_t LayerAt(std::vector<MarkLayer>& layers, std::size_t from, MarkKind kind,
                    const MarkStyle& style);

/// Says that an element has more marks than are drawn.
void NoteCutMarks(ChartContext& context);

/// A row of the data's table; its first cells name the panel.
void Summarize(ChartContext& context, const Panel& panel, std::vector<std::string> cells);

}  // namespace refhost
