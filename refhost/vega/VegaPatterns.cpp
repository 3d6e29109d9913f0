#include "refhost/vega/VegaPatterns.h"

#include "refhost/plot/PlotScales.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <vector>

namespace refhost {
namespace {

constexpr double kDotSize = 1.6;
constexpr double kStep = 7.0;               // pixels between lines
constexpr std::size_t kMostLines = 20'000;  // of a whole layer; what is beyond stays plain

struct PatternRow {
    FillPattern fPattern;
    bool fRising, fFalling, fLevel, fUpright, fDots;
    const char* fSymbol;
};

// A symbol is filled, so thin parallelograms stand for lines; a thin frame goes around them.
// clang-format off
constexpr PatternRow kPatterns[] = {
    {FillPattern::Solid,   false, false, false, false, false, "M-1,-1h2v2h-2z"},
    {FillPattern::Rising,  true,  false, false, false, false, "M-1,-1h2v2h-2zM-.9,-.9v1.8h1.8v-1.8zM-1,1L1,-1V-.7L-.7,1zM-1,0L0,-1H.3L-1,.3zM0,1L1,0V.3L.3,1z"},
    {FillPattern::Falling, false, true,  false, false, false, "M-1,-1h2v2h-2zM-.9,-.9v1.8h1.8v-1.8zM1,1L-1,-1H-.7L1,.7zM1,0L0,-1H.3L1,-.3zM0,1L-1,0V-.3L.3,1z"},
    {FillPattern::Crossed, true,  true,  false, false, false, "M-1,-1h2v2h-2zM-.9,-.9v1.8h1.8v-1.8zM-1,1L1,-1V-.7L-.7,1zM1,1L-1,-1H-.7L1,.7z"},
    {FillPattern::Level,   false, false, true,  false, false, "M-1,-1h2v2h-2zM-.9,-.9v1.8h1.8v-1.8zM-1,-.6h2v.3h-2zM-1,-.1h2v.3h-2zM-1,.4h2v.3h-2z"},
    {FillPattern::Upright, false, false, false, true,  false, "M-1,-1h2v2h-2zM-.9,-.9v1.8h1.8v-1.8zM-.6,-1v2h.3v-2zM-.1,-1v2h.3v-2zM.4,-1v2h.3v-2z"},
    {FillPattern::Dotted,  false, false, false, false, true,  "M-1,-1h2v2h-2zM-.9,-.9v1.8h1.8v-1.8zM-.6,-.6h.4v.4h-.4zM.2,-.6h.4v.4h-.4zM-.6,.2h.4v.4h-.4zM.2,.2h.4v.4h-.4z"},
    {FillPattern::Grid,    false, false, true,  true,  false, "M-1,-1h2v2h-2zM-.9,-.9v1.8h1.8v-1.8zM-1,-.15h2v.3h-2zM-.15,-1v2h.3v-2z"},
};
// clang-format on

const PatternRow& RowOf(FillPattern pattern)
{
    for (const PatternRow& row : kPatterns) {
        if (row.fPattern == pattern) return row;
    }
    return kPatterns[0];
}

struct PixelRect {
    double fLeft, fTop, fRight, fBottom;
};

struct Segment {
    double fX, fY, fX2, fY2;
};

/// Lines x + y = c (rising) or x - y = c (falling) within the rect.
void AddSlanted(std::vector<Segment>& lines, const PixelRect& rect, bool rising)
{
    const double sign = rising ? 1.0 : -1.0;
    const double corners[] = {rect.fLeft + sign * rect.fTop, rect.fLeft + sign * rect.fBottom,
                              rect.fRight + sign * rect.fTop, rect.fRight + sign * rect.fBottom};
    const auto [low, high] = std::minmax_element(std::begin(corners), std::end(corners));
    const double step = kStep * std::sqrt(2.0);
    for (double c = std::ceil(*low / step) * step; c < *high && lines.size() < kMostLines;
         c += step) {
        const double atTop = c - sign * rect.fTop;
        const double atBottom = c - sign * rect.fBottom;
        const double from = std::clamp(std::min(atTop, atBottom), rect.fLeft, rect.fRight);
        const double to = std::clamp(std::max(atTop, atBottom), rect.fLeft, rect.fRight);
        if (to > from) lines.push_back({from, sign * (c - from), to, sign * (c - to)});
    }
}

void AddParallel(std::vector<Segment>& lines, const PixelRect& rect, bool level)
{
    const double first = level ? rect.fTop : rect.fLeft;
    const double last = level ? rect.fBottom : rect.fRight;
    for (double at = std::ceil(first / kStep) * kStep; at < last && lines.size() < kMostLines;
         at += kStep) {
        if (level) {
            lines.push_back({rect.fLeft, at, rect.fRight, at});
        } else {
            lines.push_back({at, rect.fTop, at, rect.fBottom});
        }
    }
}

/// How many steps of the pattern fit from `first` on, so that a dot stays clear of the edge.
int StepsWithin(double first, double edge)
{
    const double steps = std::ceil((edge - first) / kStep);
    return static_cast<int>(std::clamp(steps, 0.0, static_cast<double>(kMostLines)));
}

/// Dots are lines as long as they are wide.
void AddDots(std::vector<Segment>& lines, const PixelRect& rect)
{
    const double left = std::ceil(rect.fLeft / kStep) * kStep + 1.0;
    const double top = std::ceil(rect.fTop / kStep) * kStep + 1.0;
    const int columns = StepsWithin(left, rect.fRight - kDotSize);
    const int rows = StepsWithin(top, rect.fBottom - kDotSize);
    for (int column = 0; column < columns; ++column) {
        for (int row = 0; row < rows && lines.size() < kMostLines; ++row) {
            const double x = left + column * kStep, y = top + row * kStep;
            lines.push_back({x, y, x + kDotSize, y});
        }
    }
}

}  // namespace

MarkLayer PatternMarks(const MarkLayer& rects, const ResolvedPlot& plot)
{
    const PatternRow& pattern = RowOf(rects.fStyle.fPattern);
    MarkLayer layer;
    layer.fKind = MarkKind::Rule;
    layer.fHelper = true;
    layer.fStyle.fStroke = {Paint::Ground, {}};
    layer.fStyle.fStrokeWidth = 1.6;

    const auto pixelX = [&plot](double place) {
        return PixelAt(plot.fX, plot.fWidth, /*downwards=*/false, place);
    };
    const auto pixelY = [&plot](double place) {
        return PixelAt(plot.fY, plot.fHeight, /*downwards=*/true, place);
    };
    std::vector<Segment> lines;
    for (const ResolvedMark& rect : rects.fMarks) {
        const auto [left, right] = std::minmax({pixelX(rect.fX), pixelX(rect.fX2)});
        const auto [top, bottom] = std::minmax({pixelY(rect.fY), pixelY(rect.fY2)});
        // Bars may reach far beyond a scale that is given.
        const PixelRect area{std::max(left, 0.0), std::max(top, 0.0), std::min(right, plot.fWidth),
                             std::min(bottom, plot.fHeight)};
        if (!(area.fLeft < area.fRight) || !(area.fTop < area.fBottom)) continue;
        if (pattern.fRising) AddSlanted(lines, area, /*rising=*/true);
        if (pattern.fFalling) AddSlanted(lines, area, /*rising=*/false);
        if (pattern.fLevel) AddParallel(lines, area, /*level=*/true);
        if (pattern.fUpright) AddParallel(lines, area, /*level=*/false);
        if (pattern.fDots) AddDots(lines, area);
    }
    for (const Segment& line : lines) {
        ResolvedMark mark;
        mark.fX = PlaceAt(plot.fX, plot.fWidth, /*downwards=*/false, line.fX);
        mark.fY = PlaceAt(plot.fY, plot.fHeight, /*downwards=*/true, line.fY);
        mark.fX2 = PlaceAt(plot.fX, plot.fWidth, /*downwards=*/false, line.fX2);
        mark.fY2 = PlaceAt(plot.fY, plot.fHeight, /*downwards=*/true, line.fY2);
        layer.fMarks.push_back(mark);
    }
    return layer;
}

const char* PatternSymbol(FillPattern pattern) { return RowOf(pattern).fSymbol; }

}  // namespace refhost
