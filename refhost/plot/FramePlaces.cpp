#include "refhost/plot/FramePlaces.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>
#include <utility>

namespace refhost {
namespace {

constexpr double kGap = 18.0;      // from what a frame stands against, sideways
constexpr double kLineGap = 10.0;  // the same below or above it

using Parts = std::array<std::optional<double>, 6>;  // by the number of `ENUM_part`

std::size_t At(ENUM_part part) { return static_cast<std::size_t>(part); }

double EdgeOf(const FrameBox& box, ENUM_part part)
{
    switch (part) {
        case ENUM_part::Left:
            return box.fLeft;
        case ENUM_part::Right:
            return box.fRight;
        case ENUM_part::Top:
            return box.fTop;
        case ENUM_part::Bottom:
            return box.fBottom;
        case ENUM_part::Width:
            return box.fRight - box.fLeft;
        case ENUM_part::Height:
            return box.fBottom - box.fTop;
    }
    return 0.0;
}

/// The place of a part that stands against the opposite edge of a frame.
double BesideOf(const FrameBox& box, ENUM_part part)
{
    switch (part) {
        case ENUM_part::Left:
            return box.fRight + kGap;
        case ENUM_part::Right:
            return box.fLeft - kGap;
        case ENUM_part::Top:
            return box.fBottom + kLineGap;
        case ENUM_part::Bottom:
            return box.fTop - kLineGap;
        case ENUM_part::Width:
        case ENUM_part::Height:
            break;
    }
    return EdgeOf(box, part);
}

bool IsUpright(ENUM_part part)
{
    return part == ENUM_part::Top || part == ENUM_part::Bottom || part == ENUM_part::Height;
}

/// From two of start, end and length: both ends. One alone is met by the content's length.
std::pair<double, double> Span(std::optional<double> start, std::optional<double> end,
                               std::optional<double> length, double content)
{
    const double extent = length.value_or(content);
    if (start && end) return {*start, *end};
    if (start) return {*start, *start + extent};
    if (end) return {*end - extent, *end};
    return {0.0, extent};
}

}  // namespace

void FramePlaces::Add(const std::string& id, const FrameBox& box)
{
    if (!id.empty()) fPlaced.insert_or_assign(id, box);
}

FrameBox FramePlaces::Place(const tree::LabelFrame& frame, const FrameSize& content)
{
    Parts parts;
    for (const tree::Location& location : frame.fLocations) {
        if (!location.fPart || At(*location.fPart) >= parts.size()) continue;
        const ENUM_part part = *location.fPart;
        const bool upright = IsUpright(part);
        const auto target = fPlaced.find(location.fTarget);
        const FrameBox& other = target == fPlaced.end() ? fPicture : target->second;
        std::optional<double>& settled = parts[At(part)];
        switch (location.fMethod.value_or(ENUM_method::Fixed)) {
            case ENUM_method::Fixed:
                if (const auto fraction = tree::Fraction(location.fValue)) {
                    const double length = upright ? fPicture.fBottom : fPicture.fRight;
                    settled = std::clamp(*fraction, -1.0, 2.0) * length;
                }
                break;
            case ENUM_method::SizeToContent:
                settled = upright ? content.fHeight : content.fWidth;
                break;
            case ENUM_method::Same:
                settled = EdgeOf(other, part);
                break;
            case ENUM_method::Against:
                settled = BesideOf(other, part);
                break;
        }
    }
    const auto [left, right] = Span(parts[At(ENUM_part::Left)], parts[At(ENUM_part::Right)],
                                    parts[At(ENUM_part::Width)], content.fWidth);
    const auto [top, bottom] = Span(parts[At(ENUM_part::Top)], parts[At(ENUM_part::Bottom)],
                                    parts[At(ENUM_part::Height)], content.fHeight);
    const FrameBox box{left, top, right, bottom};
    Add(frame.fId, box);
    return box;
}

}  // namespace refhost
