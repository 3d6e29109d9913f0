#include "refhost/plot/NetworkLayout.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace refhost {
namespace {

constexpr int kRounds = 300;
constexpr int kPushRounds = 400;
constexpr int kGrowths = 40;
constexpr double kGrowth = 1.1;
constexpr double kNearest = 0.45;  // distance of nodes that an endless weight joins
constexpr double kSpread = 0.55;   // what the lightest edge adds
constexpr double kAir = 8.0;       // pixels between rooms

struct Point {
    double fX = 0.0;
    double fY = 0.0;
};

/// Two nodes, how far apart they should stand, and how much that counts: the nearer, the more.
struct Pair {
    std::size_t fFirst;
    std::size_t fSecond;
    double fWanted;
    double fWeight;
};

/// Every pair of nodes; pairs without an edge are the most alike.
std::vector<Pair> PairsOf(std::size_t count, const std::vector<NetworkEdge>& edges)
{
    std::vector<double> distances(count * count, kNearest);
    for (const NetworkEdge& edge : edges) {
        if (edge.fFrom >= count || edge.fTo >= count || edge.fFrom == edge.fTo) continue;
        const double weight = edge.fWeight >= 1.0 ? edge.fWeight : 1.0;
        const auto [first, second] = std::minmax(edge.fFrom, edge.fTo);
        distances[first * count + second] = kNearest + kSpread / std::sqrt(weight);
    }
    std::vector<Pair> pairs;
    pairs.reserve(count * (count - 1) / 2);
    for (std::size_t first = 0; first < count; ++first) {
        for (std::size_t second = first + 1; second < count; ++second) {
            const double wanted = distances[first * count + second];
            pairs.push_back({first, second, wanted, 1.0 / (wanted * wanted)});
        }
    }
    return pairs;
}

std::vector<Point> OnCircle(std::size_t count)
{
    std::vector<Point> points(count);
    for (std::size_t node = 0; node < count; ++node) {
        const double angle =
            2.0 * std::numbers::pi * static_cast<double>(node) / static_cast<double>(count);
        points[node] = {std::cos(angle) / 2, std::sin(angle) / 2};
    }
    return points;
}

/// Where every node's distances would have it, weighted by closeness.
void SumWantedPlaces(const std::vector<Point>& points, const std::vector<Pair>& pairs,
                     std::vector<Point>& sums)
{
    sums.assign(points.size(), {});
    for (const Pair& pair : pairs) {
        const Point& first = points[pair.fFirst];
        const Point& second = points[pair.fSecond];
        const double dx = first.fX - second.fX, dy = first.fY - second.fY;
        const double apart = std::max(std::sqrt(dx * dx + dy * dy), 1e-9);
        const double wantedX = pair.fWanted * dx / apart, wantedY = pair.fWanted * dy / apart;
        sums[pair.fFirst].fX += pair.fWeight * (second.fX + wantedX);
        sums[pair.fFirst].fY += pair.fWeight * (second.fY + wantedY);
        sums[pair.fSecond].fX += pair.fWeight * (first.fX - wantedX);
        sums[pair.fSecond].fY += pair.fWeight * (first.fY - wantedY);
    }
}

/// Moves all nodes in rounds, until none moves: the last digits settle how a network without a main
/// axis is turned.
void Majorize(std::vector<Point>& points, const std::vector<Pair>& pairs)
{
    std::vector<double> weights(points.size());
    for (const Pair& pair : pairs) {
        weights[pair.fFirst] += pair.fWeight;
        weights[pair.fSecond] += pair.fWeight;
    }
    std::vector<Point> sums;
    bool moves = true;
    for (int round = 0; round < kRounds && moves; ++round) {
        SumWantedPlaces(points, pairs, sums);
        moves = false;
        for (std::size_t node = 0; node < points.size(); ++node) {
            const Point next{sums[node].fX / weights[node], sums[node].fY / weights[node]};
            moves |= next.fX != points[node].fX || next.fY != points[node].fY;
            points[node] = next;
        }
    }
}

/// Turns the points to their main axis; signs are fixed by the first node, so that no rounding
/// mirrors the picture.
void TurnToMainAxis(std::vector<Point>& points, bool lying)
{
    const auto count = static_cast<double>(points.size());
    Point mean;
    for (const Point& point : points) {
        mean.fX += point.fX / count;
        mean.fY += point.fY / count;
    }
    double xx = 0.0, yy = 0.0, xy = 0.0;
    for (Point& point : points) {
        point.fX -= mean.fX;
        point.fY -= mean.fY;
        xx += point.fX * point.fX;
        yy += point.fY * point.fY;
        xy += point.fX * point.fY;
    }
    const double angle = 0.5 * std::atan2(2.0 * xy, xx - yy);
    const double cosine = std::cos(angle), sine = std::sin(angle);
    for (Point& point : points) {
        const Point turned{point.fX * cosine + point.fY * sine,
                           point.fY * cosine - point.fX * sine};
        point = lying ? turned : Point{turned.fY, turned.fX};
    }
    const double flipX = points.front().fX > 1e-9 ? -1.0 : 1.0;
    const double flipY = points.front().fY > 1e-9 ? -1.0 : 1.0;
    for (Point& point : points) {
        point = {point.fX * flipX, point.fY * flipY};
    }
}

/// Stretches points over the room inside of the margins that the rooms at the edge need.
void FitInto(NetworkPlan& plan, const std::vector<Point>& points,
             const std::vector<NodeRoom>& rooms)
{
    NodeRoom margin;
    for (const NodeRoom& room : rooms) {
        margin.fHalfWidth = std::max(margin.fHalfWidth, room.fHalfWidth);
        margin.fAbove = std::max(margin.fAbove, room.fAbove);
        margin.fBelow = std::max(margin.fBelow, room.fBelow);
    }
    const auto [left, right] = std::minmax_element(points.begin(), points.end(),
                                                   [](Point a, Point b) { return a.fX < b.fX; });
    const auto [top, bottom] = std::minmax_element(points.begin(), points.end(),
                                                   [](Point a, Point b) { return a.fY < b.fY; });
    const double spanX = right->fX - left->fX, spanY = bottom->fY - top->fY;
    const double roomX = std::max(0.0, plan.fWidth - 2.0 * margin.fHalfWidth);
    const double roomY = std::max(0.0, plan.fHeight - margin.fAbove - margin.fBelow);
    plan.fNodes.resize(points.size());
    for (std::size_t node = 0; node < points.size(); ++node) {
        const double partX = spanX > 1e-9 ? (points[node].fX - left->fX) / spanX : 0.5;
        const double partY = spanY > 1e-9 ? (points[node].fY - top->fY) / spanY : 0.5;
        plan.fNodes[node] = {margin.fHalfWidth + roomX * partX, margin.fAbove + roomY * partY};
    }
}

/// By how much two rooms overlap, with the air between them; not positive where they don't.
Point Overlap(const NodePlace& a, const NodeRoom& roomA, const NodePlace& b, const NodeRoom& roomB)
{
    const double topOfLower = std::max(a.fY - roomA.fAbove, b.fY - roomB.fAbove);
    const double bottomOfUpper = std::min(a.fY + roomA.fBelow, b.fY + roomB.fBelow);
    return {roomA.fHalfWidth + roomB.fHalfWidth + kAir - std::fabs(a.fX - b.fX),
            bottomOfUpper + kAir - topOfLower};
}

/// Pushes overlapping rooms apart the shorter way, within the plan. True where none is left.
bool PushApart(NetworkPlan& plan, const std::vector<NodeRoom>& rooms)
{
    for (int round = 0; round < kPushRounds; ++round) {
        bool isFree = true;
        for (std::size_t node = 0; node < rooms.size(); ++node) {
            for (std::size_t other = node + 1; other < rooms.size(); ++other) {
                NodePlace& a = plan.fNodes[node];
                NodePlace& b = plan.fNodes[other];
                const Point overlap = Overlap(a, rooms[node], b, rooms[other]);
                if (overlap.fX <= 1e-6 || overlap.fY <= 1e-6) continue;
                isFree = false;
                if (overlap.fX < overlap.fY) {
                    const double shift = (a.fX <= b.fX ? 0.5 : -0.5) * (overlap.fX + 0.01);
                    a.fX -= shift;
                    b.fX += shift;
                } else {
                    const double shift = (a.fY <= b.fY ? 0.5 : -0.5) * (overlap.fY + 0.01);
                    a.fY -= shift;
                    b.fY += shift;
                }
            }
        }
        if (isFree) return true;
        for (std::size_t node = 0; node < rooms.size(); ++node) {
            NodePlace& place = plan.fNodes[node];
            const NodeRoom& room = rooms[node];
            place.fX = std::max(room.fHalfWidth, std::min(place.fX, plan.fWidth - room.fHalfWidth));
            place.fY = std::max(room.fAbove, std::min(place.fY, plan.fHeight - room.fBelow));
        }
    }
    return false;
}

/// Finer places than a screen has only make the numbers of a picture long.
double ToHundredth(double pixels) { return std::round(pixels * 100.0) / 100.0; }

}  // namespace

NetworkPlan LayOutNetwork(const std::vector<NodeRoom>& nodes, const std::vector<NetworkEdge>& edges,
                          double width, double height, bool lying)
{
    NetworkPlan plan{width, height, {}};
    if (nodes.empty()) return plan;
    std::vector<Point> points = OnCircle(nodes.size());
    if (nodes.size() > 1) {
        Majorize(points, PairsOf(nodes.size(), edges));
        TurnToMainAxis(points, lying);
    }
    for (int growth = 0; growth < kGrowths; ++growth) {
        FitInto(plan, points, nodes);
        if (PushApart(plan, nodes)) break;
        plan.fWidth = std::ceil(plan.fWidth * kGrowth);
        plan.fHeight = std::ceil(plan.fHeight * kGrowth);
    }
    for (NodePlace& place : plan.fNodes)
        place = {ToHundredth(place.fX), ToHundredth(place.fY)};
    return plan;
}

}  // namespace refhost
