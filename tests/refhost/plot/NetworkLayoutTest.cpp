#include "refhost/plot/NetworkLayout.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

namespace refhost {
namespace {

std::vector<NetworkEdge> EveryEdge(std::size_t nodes, std::size_t leaveOut)
{
    std::vector<NetworkEdge> edges;
    for (std::size_t from = 0; from < nodes; ++from) {
        for (std::size_t to = from + 1; to < nodes; ++to) {
            if ((from * 7 + to) % 5 == leaveOut) continue;
            edges.push_back({from, to, 1.0 + static_cast<double>((from + to * 3) % 11)});
        }
    }
    return edges;
}

TEST(LayOutNetwork, KeepsNodesAndLabelsApartAndInsideThePlan)
{
    for (std::size_t count = 1; count <= 14; ++count) {
        for (const double halfWidth : {20.0, 60.0, 210.0}) {
            for (std::size_t leaveOut = 0; leaveOut <= 5; leaveOut += 5) {
                SCOPED_TRACE(testing::Message() << count << " nodes of " << halfWidth);
                const std::vector<NodeRoom> rooms(count, NodeRoom{halfWidth, 9, 42});
                const NetworkPlan plan =
                    LayOutNetwork(rooms, EveryEdge(count, leaveOut), 490, 360, true);
                ASSERT_EQ(plan.fNodes.size(), count);
                for (std::size_t a = 0; a < count; ++a) {
                    const NodePlace& first = plan.fNodes[a];
                    EXPECT_GE(first.fX - halfWidth, -1e-6);
                    EXPECT_LE(first.fX + halfWidth, plan.fWidth + 1e-6);
                    EXPECT_LE(first.fY + 42, plan.fHeight + 1e-6);
                    for (std::size_t b = a + 1; b < count; ++b) {
                        const NodePlace& second = plan.fNodes[b];
                        EXPECT_TRUE(std::fabs(first.fX - second.fX) >= 2 * halfWidth ||
                                    std::fabs(first.fY - second.fY) >= 51)
                            << a << " and " << b;
                    }
                }
            }
        }
    }
}

TEST(LayOutNetwork, PutsSimilarSamplesNearEachOther)
{
    const std::vector<NodeRoom> rooms(3, NodeRoom{10, 9, 20});
    const auto plan = LayOutNetwork(rooms, {{0, 1, 1e6}, {0, 2, 1}, {1, 2, 1}}, 490, 360, true);
    const auto apart = [&plan](std::size_t a, std::size_t b) {
        return std::hypot(plan.fNodes[a].fX - plan.fNodes[b].fX,
                          plan.fNodes[a].fY - plan.fNodes[b].fY);
    };
    EXPECT_LT(apart(0, 1), apart(0, 2));
    EXPECT_LT(apart(0, 1), apart(1, 2));
}

TEST(LayOutNetwork, TakesEdgesAndWeightsThatMakeNoSense)
{
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const std::vector<NodeRoom> rooms(3, NodeRoom{10, 9, 20});
    const auto plan = LayOutNetwork(
        rooms, {{0, 9, 1}, {1, 1, 1}, {0, 1, nan}, {1, 2, -4}, {0, 2, 1e308}}, 490, 360, false);
    for (const NodePlace& node : plan.fNodes) {
        EXPECT_TRUE(std::isfinite(node.fX) && std::isfinite(node.fY));
    }
}

}  // namespace
}  // namespace refhost
