#pragma once

#include <cstddef>
#include <vector>

namespace refhost {

struct NetworkEdge {
    std::size_t fFrom = 0;
    std::size_t fTo = 0;
    double fWeight = 1.0;  ///< at least 1; the heavier, the nearer
};

/// Room that a node takes around its place, in pixels: its symbol and the label below it.
struct NodeRoom {
    double fHalfWidth = 0.0;
    double fAbove = 0.0;
    double fBelow = 0.0;
};

struct NodePlace {
    double fX = 0.0;  ///< pixels from the left
    double fY = 0.0;  ///< pixels from the top
};

struct NetworkPlan {
    double fWidth = 0.0;  ///< may be larger than was asked for
    double fHeight = 0.0;
    std::vector<NodePlace> fNodes;
};

/// Places for nodes by stress majorization from a circle: the same edges give the same places. No
/// two rooms overlap; the plan grows where they would not fit. With `lying` the longest extent of
/// the network lies, otherwise it stands. Edges to nodes that aren't there are passed over.
NetworkPlan LayOutNetwork(const std::vector<NodeRoom>& nodes, const std::vector<NetworkEdge>& edges,
                          double width, double height, bool lying);

}  // namespace refhost
