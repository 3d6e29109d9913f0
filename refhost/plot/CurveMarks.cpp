#include <cmath>

#include "refhost/plot/Curves.h"
#include "refhost/plot/Marks.h"
#include "refhost/plot/Palette.h"

namespace refhost {
namespace {

constexpr const char* kAreaFill = "#E6EEF7";  // below a curve that stands alone
constexpr double kDotSize = 36.0;

std::vector<ResolvedMark> PointsOf(const std::vector<CurvePoint>& curve)
{
    std::vector<ResolvedMark> points(curve.size());
    for (std::size_t at = 0; at < curve.size(); ++at) {
        points[at].fX = curve[at].fX;
        points[at].fY = curve[at].fY;
    }
    return points;
}

MarkLayer AreaBelow(const std::vector<CurvePoint>& curve)
{
    MarkLayer area;
    area.fKind = MarkKind::Area;
    area.fHelper = true;
    area.fStyle.fFill = FixedColor(kAreaFill);
    area.fMarks = PointsOf(curve);
    for (ResolvedMark& point : area.fMarks) {
        point.fY2 = 0.0;
    }
    return area;
}

}  // namespace

void AddCurve(ChartContext& context, const tree::Element& element, const BarTotals& totals,
              double low, double high, PlotSpace& space, std::vector<MarkLayer>& layers)
{
    const auto shape = ShapeOf(*element.fDistribution, space.fX.fKind == ScaleKind::Time);
    if (!shape || space.fX.fKind == ScaleKind::Category) return;
    const bool overBars = totals.fWidth > 0.0;
    const double scale = overBars ? totals.fTotal * totals.fWidth : 1.0;
    const std::vector<CurvePoint> curve = CurvePoints(*shape, low, high, scale, space.fX.fBins);
    if (curve.empty()) return;
    for (const CurvePoint& point : curve) {
        space.fY.fExtent.Take(point.fY);
    }
    space.fY.fExtent.Take(0.0);
    if (!overBars) layers.push_back(AreaBelow(curve));

    MarkStyle usual;
    usual.fStroke = FixedColor(overBars ? kAccent : kFirstSeries);
    usual.fStrokeWidth = 2.0;
    MarkLayer line;
    line.fKind = MarkKind::Line;
    line.fHelper = true;
    line.fStyle = LineStyle(FindStyle(context, element.fStyle), usual);
    line.fMarks = PointsOf(curve);
    const MarkStyle style = line.fStyle;
    layers.push_back(std::move(line));
    if (shape->fKind != tree::Distribution::Poisson) return;

    MarkLayer dots;
    dots.fKind = MarkKind::Point;
    dots.fStyle.fFill = style.fStroke;
    dots.fStyle.fSize = kDotSize;
    dots.fMarks = PointsOf(curve);
    for (ResolvedMark& dot : dots.fMarks) {
        dot.fPopup = ReadableNumber(dot.fX, dot.fX == std::floor(dot.fX) ? 0 : 2) + "\n" +
                     ReadableNumber(dot.fY, 2);
    }
    layers.push_back(std::move(dots));
}

}  // namespace refhost
