#include "refhost/plot/PanelLayout.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "refhost/plot/Lettering.h"
#include "refhost/plot/PanelHeaders.h"
#include "refhost/plot/TextWidth.h"

namespace refhost {
namespace {

constexpr double kUnit = 240.0;  // pixels of the template's frame
constexpr double kUsualWidth = 500.0;
constexpr double kUsualHeight = 320.0;
constexpr double kWidest = 4000.0;
constexpr double kHeaderAir = 10.0;  // above and below all lines of a header
constexpr double kTickGap = 8.0;
constexpr double kTitleStrip = 24.0;
constexpr double kLabelStrip = 20.0;
constexpr double kSlantRise = 0.643;  // sine of the labels' angle
constexpr double kMirrorGap = 14.0;
constexpr double kPlotGap = 18.0;
constexpr double kGridGap = 8.0;
constexpr double kNarrowestPlot = 64.0;
constexpr double kLowestPlot = 56.0;
constexpr double kHighestHeader = 96.0;  // of a plot for the turned header beside it
constexpr double kHighestOfMany = 84.0;
constexpr double kWidestWord = 128.0;  // of a header that a plot is widened for
constexpr double kWidestOfMany = 92.0;
constexpr double kSideHeaderRoom = 120.0;
constexpr int kMany = 5;  // rows or columns from which a grid is crowded
constexpr std::size_t kNameLines = 3;
constexpr std::size_t kSideNameLines = 2;
constexpr double kCategoryRoom = 20.0;  // the least for a slanted label
constexpr double kLabelAir = 8.0;

const tree::Axis* FindAxis(const ChartContext& context, tree::Dimension dimension,
                           tree::AxisPlace place)
{
    for (const tree::Axis& axis : context.fGraph.fAxes) {
        if (axis.fDimension == dimension && axis.fPlace == place) return &axis;
    }
    return nullptr;
}

/// Null where nothing of the axis shows.
const tree::Axis* NearAxis(const ChartContext& context, tree::Dimension dimension)
{
    const tree::Axis* axis = FindAxis(context, dimension, tree::AxisPlace::Near);
    return axis && IsVisible(context, axis->fStyle) ? axis : nullptr;
}

/// An axis without ticks bears no title but its own.
std::string TitleOf(const tree::Axis& axis, const PlotDirection& direction)
{
    if (axis.fLabel) {
        if (std::string shown = axis.fLabel->Shown(); !shown.empty()) return shown;
    }
    return axis.fTicks && direction.fVariable ? direction.fVariable->Title() : std::string();
}

double TitleStrip(const tree::Axis* axis, const PlotDirection& direction)
{
    if (!axis) return 0.0;
    const std::string title = TitleOf(*axis, direction);
    if (title.empty()) return 0.0;
    return kTitleStrip + kHeaderLine * static_cast<double>(CountLines(title) - 1);
}

double WidestLabel(const std::vector<AxisTick>& ticks)
{
    double widest = 0.0;
    for (const AxisTick& tick : ticks) {
        widest = std::max(widest, TextBlockWidth(tick.fLabel, kLabelFont));
    }
    return std::min(widest, kLabelLimit);
}

double HeaderHeight(const std::vector<PlotHeader>& headers)
{
    const std::size_t lines = headers.empty() ? 0 : headers.front().fLines.size();
    return lines == 0 ? 0.0 : kHeaderAir + kHeaderLine * static_cast<double>(lines);
}

std::optional<double> GraphEdge(const ChartContext& context, ENUM_part part)
{
    std::optional<double> edge;
    for (const tree::Location& location : context.fGraph.fLocations) {
        if (location.fPart != part) continue;
        if (location.fMethod && *location.fMethod != ENUM_method::Fixed) continue;
        if (const auto fraction = tree::Fraction(location.fValue)) {
            edge = std::clamp(*fraction, 0.0, 1.0);
        }
    }
    return edge;
}

double Size(const std::optional<double>& units, double usual)
{
    if (!units || !std::isfinite(*units) || *units <= 0.0) return usual;
    return std::clamp(*units * kUnit, 120.0, kWidest);
}

/// A label frame that is fixed near the top of the picture stands above the headers.
bool HasFrameOnTop(const ChartContext& context)
{
    const auto isOnTop = [](const tree::Location& location) {
        return location.fPart == ENUM_part::Top &&
               tree::Fraction(location.fValue).value_or(1) < 0.1;
    };
    return std::any_of(context.fTree.fLabelFrames.begin(), context.fTree.fLabelFrames.end(),
                       [&isOnTop](const tree::LabelFrame& frame) {
                           return !frame.Shown().empty() &&
                                  std::any_of(frame.fLocations.begin(), frame.fLocations.end(),
                                              isOnTop);
                       });
}

double RowGap(const PanelGrid& grid, const PanelLayout& layout, double titleStrip)
{
    if (grid.fRows == 1) return 0.0;
    if (grid.fAlternates) return kMirrorGap;
    if (!grid.fWraps) return kGridGap;
    return layout.fBottomExtent + titleStrip + HeaderHeight(layout.fHeaders) + kGridGap;
}

double ColumnGap(const PanelGrid& grid)
{
    if (grid.fColumns == 1) return 0.0;
    if (grid.fAlternates) return kMirrorGap;
    return grid.fRowFacet ? kGridGap : kPlotGap;
}

/// What a plot needs at least, whatever the picture's size: room for its categories and its header.
double LeastWidth(const PanelGrid& grid, const PlotSpace& space)
{
    double least = grid.fPanels.size() > 1 ? kNarrowestPlot : 2 * kNarrowestPlot;
    const double widest = grid.fColumns < kMany || !grid.fRowFacet ? kWidestWord : kWidestOfMany;
    const double words = std::min(WordRoom(grid.fColumnHeaders), widest);
    least = std::max(least, words + kLabelAir - ColumnGap(grid));
    if (space.fX.fKind == ScaleKind::Category && grid.fPanels.size() == 1) {
        least = std::max(least, kCategoryRoom * static_cast<double>(space.fX.fCategories.Count()));
    }
    return least;
}

/// What a plot needs at least for the turned header beside it.
double LeastHeight(const PanelGrid& grid)
{
    if (grid.fAlternates) return kLowestPlot;
    const double highest = grid.fRows < kMany ? kHighestHeader : kHighestOfMany;
    return std::clamp(WholeRoom(grid.fRowHeaders) + kLabelAir, kLowestPlot, highest);
}

bool NeedsSlant(const PanelLayout& layout)
{
    if (layout.fX.fScale.fKind != ScaleKind::Category || layout.fX.fTicks.empty()) return false;
    const double room = layout.fPlotWidth / static_cast<double>(layout.fX.fTicks.size());
    return WidestLabel(layout.fX.fTicks) + kLabelAir > room;
}

AxisSide SideOf(const PanelGrid& grid, const Panel& panel, tree::Dimension dimension)
{
    const bool isUpright = dimension == tree::Dimension::Y;
    if (!grid.fAlternates) return isUpright ? AxisSide::Left : AxisSide::Bottom;
    if (isUpright) {
        const bool isLast = grid.fColumns > 1 && panel.fColumn == grid.fColumns - 1;
        return isLast ? AxisSide::Right : AxisSide::Left;
    }
    const bool isFirst = grid.fRows > 1 && panel.fRow == 0;
    return isFirst ? AxisSide::Top : AxisSide::Bottom;
}

/// Inner plots of a row or column leave the axis to the outer ones.
bool ShowsAxis(const PanelGrid& grid, const Panel& panel, tree::Dimension dimension)
{
    if (dimension == tree::Dimension::Y) {
        const bool isLast = panel.fColumn == grid.fColumns - 1;
        return panel.fColumn == 0 || (grid.fAlternates && isLast);
    }
    if (grid.fWraps) return true;
    const bool isFirst = panel.fRow == 0;
    return panel.fRow == grid.fRows - 1 || (grid.fAlternates && isFirst);
}

/// Where titles of such a length would run into each other, one of several plots bears it.
bool BearsTitle(const PanelGrid& grid, const PanelLayout& layout, const Panel& panel,
                tree::Dimension dimension, double length)
{
    if (dimension == tree::Dimension::X) {
        const bool isLong = length > layout.fPlotWidth + layout.fColumnSpacing;
        return grid.fColumns <= 2 || panel.fColumn == 0 || !isLong;
    }
    const bool isLong = length > layout.fPlotHeight || grid.fRows >= kMany;
    return grid.fRows <= 2 || panel.fRow == grid.fRows / 2 || !isLong;
}

void AddAxis(const PanelSet& set, const PanelLayout& layout, const Panel& panel,
             tree::Dimension dimension, ResolvedPlot& plot)
{
    const PanelGrid& grid = set.fGrid;
    const tree::Axis* axis = NearAxis(set.fContext, dimension);
    if (!axis) return;
    const bool isUpright = dimension == tree::Dimension::Y;
    const bool shows = ShowsAxis(grid, panel, dimension);
    if (!shows && !axis->fGrid) return;
    ResolvedAxis resolved;
    resolved.fSide = SideOf(grid, panel, dimension);
    const bool isFar = resolved.fSide == AxisSide::Right || resolved.fSide == AxisSide::Top;
    const tree::Axis* far = FindAxis(set.fContext, dimension, tree::AxisPlace::Far);
    const tree::Axis& titled = isFar && far ? *far : *axis;
    if (shows) resolved.fTitle = TitleOf(titled, set.fSpace.Of(dimension));
    const double length = TextBlockWidth(resolved.fTitle, kHeaderFont);
    if (!BearsTitle(grid, layout, panel, dimension, length)) resolved.fTitle.clear();
    resolved.fTicks = isUpright ? layout.fY.fTicks : layout.fX.fTicks;
    resolved.fGrid = axis->fGrid;
    resolved.fLabels = shows && axis->fTicks;
    resolved.fSlanted = !isUpright && layout.fSlanted && resolved.fLabels;
    resolved.fExtent = !resolved.fLabels ? 0.0
                       : isUpright       ? layout.fLeftExtent
                                         : layout.fBottomExtent;
    plot.fAxes.push_back(std::move(resolved));
}

/// On one side of the common border the axis across it runs backwards.
void Mirror(const PanelSet& set, const Panel& panel, ResolvedPlot& plot)
{
    const PanelGrid& grid = set.fGrid;
    if (!grid.fAlternates) return;
    const bool invert = set.fContext.fGraph.fFacetLayout->fInvert;
    if (grid.fColumns > 1) plot.fX.fReversed = (panel.fColumn % 2 == 0) != invert;
    if (grid.fRows > 1) plot.fY.fReversed = (panel.fRow % 2 == 1) != invert;
}

/// Works out a layout step by step: what plots get in height settles the labels of the left axis,
/// these what is left of the width, and that whether the labels below have room to lie.
class LayoutSteps {
public:
    explicit LayoutSteps(const PanelSet& set)
        : fContext(set.fContext),
          fGrid(set.fGrid),
          fSpace(set.fSpace),
          fAxisX(NearAxis(fContext, tree::Dimension::X)),
          fAxisY(NearAxis(fContext, tree::Dimension::Y)),
          fTitleX(TitleStrip(fAxisX, fSpace.fX)),
          fTitleY(TitleStrip(fAxisY, fSpace.fY)),
          fWidth(Size(fContext.fDrawing.fWidth, kUsualWidth)),
          fHeight(Size(fContext.fDrawing.fHeight, kUsualHeight)),
          fTop(GraphEdge(fContext, ENUM_part::Top).value_or(0.0) * fHeight),
          fRows(static_cast<double>(fGrid.fRows)),
          fColumns(static_cast<double>(fGrid.fColumns))
    {
    }

    /// With headers of lines that fit into so many pixels.
    PanelLayout LayOut(double headerRoom) const
    {
        PanelLayout layout;
        layout.fHeaders = WrapHeaders(fGrid.fColumnHeaders, headerRoom, kNameLines);
        layout.fBottomExtent = fAxisX && fAxisX->fTicks ? kLabelStrip : 0.0;
        layout.fColumnSpacing = ColumnGap(fGrid);
        layout.fRowSpacing = RowGap(fGrid, layout, fTitleX);
        SettleHeight(layout);
        SettleWidth(layout);
        SlantLabels(layout);
        PlaceRows(layout);
        return layout;
    }

private:
    void SettleHeight(PanelLayout& layout) const
    {
        const auto edge = GraphEdge(fContext, ENUM_part::Bottom);
        const double bottom = edge ? *edge * fHeight : fHeight - fTitleX - layout.fBottomExtent;
        if (fGrid.fWraps) {
            const double inner = bottom - fTop - HeaderHeight(layout.fHeaders);
            layout.fPlotHeight = std::max(kLowestPlot, inner);
        } else {
            const double inner = bottom - fTop - layout.fRowSpacing * (fRows - 1.0);
            layout.fPlotHeight = std::max(LeastHeight(fGrid), inner / fRows);
        }
        layout.fY = ScaleDirection(fSpace.fY, layout.fPlotHeight, /*isUpright=*/true);
        const bool hasLabels = fAxisY && fAxisY->fTicks;
        layout.fLeftExtent = hasLabels ? kTickGap + WidestLabel(layout.fY.fTicks) : 0.0;
    }

    void SettleWidth(PanelLayout& layout) const
    {
        const double strip = fTitleY + layout.fLeftExtent;
        const double farStrip = fGrid.fAlternates && fGrid.fColumns > 1 ? strip : 0.0;
        const double edge = GraphEdge(fContext, ENUM_part::Left).value_or(0.0) * fWidth;
        const double left = std::max(edge, strip);
        const double right =
            GraphEdge(fContext, ENUM_part::Right).value_or(1.0) * fWidth - farStrip;
        const double gaps = layout.fColumnSpacing * (fColumns - 1.0);
        const double wanted = (right - left - gaps) / fColumns;
        layout.fPlotWidth = std::min(kWidest, std::max(wanted, LeastWidth(fGrid, fSpace)));
        layout.fX = ScaleDirection(fSpace.fX, layout.fPlotWidth, /*isUpright=*/false);
        layout.fArea.fLeft = left;
        layout.fArea.fRight = left + fColumns * layout.fPlotWidth + gaps;
        // Places to the right of the area are percentages of a picture that grows with it.
        const double grown = wanted > 0.0 ? fColumns * (layout.fPlotWidth - wanted) : 0.0;
        layout.fPicture = {0.0, 0.0, fWidth + std::max(0.0, grown), fHeight};
    }

    static void SlantLabels(PanelLayout& layout)
    {
        layout.fSlanted = NeedsSlant(layout);
        if (!layout.fSlanted || layout.fBottomExtent <= 0.0) return;
        layout.fBottomExtent = kTickGap + kSlantRise * WidestLabel(layout.fX.fTicks) + kTickGap;
    }

    void PlaceRows(PanelLayout& layout) const
    {
        const bool hasAxisAbove = fGrid.fAlternates && fGrid.fRows > 1;
        const double above = HeaderHeight(layout.fHeaders) +
                             (hasAxisAbove ? fTitleX + layout.fBottomExtent : 0.0) +
                             (HasFrameOnTop(fContext) ? kTitleStrip : 0.0);
        layout.fArea.fTop = std::max(fTop, above);
        layout.fArea.fBottom =
            layout.fArea.fTop + fRows * layout.fPlotHeight + (fRows - 1.0) * layout.fRowSpacing;
    }

    const ChartContext& fContext;
    const PanelGrid& fGrid;
    const PlotSpace& fSpace;
    const tree::Axis* fAxisX;  // null where nothing of it shows
    const tree::Axis* fAxisY;
    double fTitleX;  // strips that the axes' titles take
    double fTitleY;
    double fWidth;  // of the picture, before it grows
    double fHeight;
    double fTop;  // of the area by the template, without what stands above it
    double fRows;
    double fColumns;
};

}  // namespace

PanelLayout LayOutPanels(const PanelSet& set)
{
    const PanelGrid& grid = set.fGrid;
    // Headers are wrapped to the plots' width; their lines then take from the plots' height.
    const LayoutSteps steps(set);
    PanelLayout layout = steps.LayOut(2 * kLabelLimit);
    if (!grid.fColumnHeaders.empty()) {
        layout = steps.LayOut(layout.fPlotWidth + layout.fColumnSpacing - kLabelAir);
    }
    layout.fSideHeaders = WrapHeaders(
        grid.fRowHeaders, grid.fAlternates ? kSideHeaderRoom : layout.fPlotHeight - kLabelAir / 2,
        grid.fAlternates ? kNameLines : kSideNameLines);
    return layout;
}

ResolvedPlot MakePlot(const PanelSet& set, const PanelLayout& layout, const Panel& panel)
{
    const PanelGrid& grid = set.fGrid;
    ResolvedPlot plot;
    plot.fRow = panel.fRow;
    plot.fColumn = panel.fColumn;
    plot.fWidth = std::round(layout.fPlotWidth);
    plot.fHeight = std::round(layout.fPlotHeight);
    plot.fFramed = grid.fRowFacet && grid.fColumnFacet;
    plot.fX = layout.fX.fScale;
    plot.fY = layout.fY.fScale;
    Mirror(set, panel, plot);
    AddAxis(set, layout, panel, tree::Dimension::X, plot);
    AddAxis(set, layout, panel, tree::Dimension::Y, plot);
    if (const auto header = grid.HeaderOf(panel)) plot.fHeader = layout.fHeaders[*header];
    if (const auto header = grid.SideHeaderOf(panel)) {
        plot.fSideHeader = layout.fSideHeaders[*header];
    }
    plot.fSideHeaderUpright = grid.fAlternates;
    return plot;
}

}  // namespace refhost
