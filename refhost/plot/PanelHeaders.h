#pragma once

#include <vector>

#include "refhost/plot/Panels.h"
#include "refhost/plot/ResolvedChart.h"

namespace refhost {

/// Headers in lines that fit into `room` pixels. Names end on one line, and what is told of them
/// begins on the next, whatever the number of lines that each takes.
std::vector<PlotHeader> WrapHeaders(const std::vector<PanelHeader>& headers, double room,
                                    std::size_t mostNameLines);

/// The least room in which most words are whole.
double WordRoom(const std::vector<PanelHeader>& headers);

/// The room in which nothing needs to be wrapped.
double WholeRoom(const std::vector<PanelHeader>& headers);

}  // namespace refhost
