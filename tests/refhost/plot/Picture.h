#pragma once

#include <string>
#include <vector>

#include "refhost/plot/ResolvedChart.h"

/// Questions to a resolved plot.

namespace refhost::test {

inline const MarkLayer* FindLayer(const ResolvedPlot& plot, MarkKind kind)
{
    for (const MarkLayer& layer : plot.fLayers) {
        if (layer.fKind == kind) return &layer;
    }
    return nullptr;
}

/// All marks of a kind, in drawing order.
inline std::vector<ResolvedMark> MarksOf(const ResolvedPlot& plot, MarkKind kind)
{
    std::vector<ResolvedMark> marks;
    for (const MarkLayer& layer : plot.fLayers) {
        if (layer.fKind != kind) continue;
        marks.insert(marks.end(), layer.fMarks.begin(), layer.fMarks.end());
    }
    return marks;
}

inline std::size_t CountMarks(const ResolvedPlot& plot, MarkKind kind)
{
    return MarksOf(plot, kind).size();
}

inline std::vector<std::string> Texts(const ResolvedPlot& plot)
{
    std::vector<std::string> texts;
    for (const ResolvedMark& mark : MarksOf(plot, MarkKind::Text))
        texts.push_back(mark.fText);
    return texts;
}

inline const ResolvedAxis* FindAxis(const ResolvedPlot& plot, AxisSide side)
{
    for (const ResolvedAxis& axis : plot.fAxes) {
        if (axis.fSide == side) return &axis;
    }
    return nullptr;
}

inline std::vector<std::string> TickTexts(const ResolvedAxis& axis)
{
    std::vector<std::string> texts;
    for (const AxisTick& tick : axis.fTicks) {
        texts.push_back(tick.fLabel);
    }
    return texts;
}

}  // namespace refhost::test
