#include "refhost/plot/ResolveChart.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "refhost/document/OutputNode.h"
#include "refhost/plot/Curves.h"
#include "refhost/plot/Guides.h"
#include "refhost/plot/Legends.h"
#include "refhost/plot/Lettering.h"
#include "refhost/plot/Marks.h"
#include "refhost/plot/NetworkPlot.h"
#include "refhost/plot/PanelLayout.h"
#include "refhost/plot/Panels.h"
#include "refhost/plot/TextWidth.h"
#include "refhost/template/ChartDrawing.h"

namespace refhost {
namespace {

constexpr double kNetworkWidth = 490.0;
constexpr double kNetworkHeight = 360.0;
constexpr double kCaptionFont = 12.0;
constexpr double kCaptionAir = 8.0;
constexpr std::size_t kManyPlots = 25;   // from which captions are bare numbers
constexpr double kFarthestStart = 20.0;  // of a distribution: ranges of the data below them
constexpr double kLegendWidth = 40.0;    // of the symbol and the gaps around it

/// What an element draws in a panel before the scales are known.
struct PanelMarks {
    std::vector<MarkLayer> fLayers;
    BarTotals fBars;
    std::string fCaption;
};

bool IsCurve(const tree::Element& element)
{
    return element.fKind == tree::ElementKind::Line && element.fDistribution.has_value();
}

PanelMarks DrawElements(ChartContext& context, const Panel& panel, PlotSpace& space)
{
    PanelMarks marks;
    for (const tree::Element& element : context.fGraph.fElements) {
        if (!IsVisible(context, element.fStyle) || IsCurve(element)) continue;
        switch (element.fKind) {
            case tree::ElementKind::Interval:
                AddBars(context, element, panel, space, marks.fLayers, marks.fBars);
                break;
            case tree::ElementKind::Schema:
                AddBoxes(context, element, panel, space, marks.fLayers);
                break;
            case tree::ElementKind::Line:
            case tree::ElementKind::Point:
                AddPoints(context, element, panel, space, marks.fLayers);
                break;
            case tree::ElementKind::Caption:
                AddTexts(context, element, panel, space, marks.fLayers, marks.fCaption);
                break;
            case tree::ElementKind::Edge:
            case tree::ElementKind::Node:
                break;
        }
    }
    return marks;
}

/// Bins and explicit ranges settle how far a curve goes; they are no news to the extent.
void TakeRanges(PlotSpace& space)
{
    for (PlotDirection* direction : {&space.fX, &space.fY}) {
        if (direction->fBins && direction->fBins->fCount > 0) {
            direction->fExtent.Take(direction->fBins->Edge(0));
            direction->fExtent.Take(direction->fBins->Edge(direction->fBins->fCount));
        }
        if (direction->fMin) direction->fExtent.Take(*direction->fMin);
        if (direction->fMax) direction->fExtent.Take(*direction->fMax);
    }
}

/// The axis reaches to where the distribution begins, unless nothing would be left of the bars.
void TakeCurveStart(PlotSpace& space, const tree::DistributionStatistic& distribution)
{
    if (space.fX.fKind != ScaleKind::Linear || space.fX.fMin) return;
    Extent& extent = space.fX.fExtent;
    const auto shape = ShapeOf(distribution, /*onTimeAxis=*/false);
    const auto start = shape ? StartOf(*shape) : std::nullopt;
    if (start && extent.fLow - *start < kFarthestStart * (extent.fHigh - extent.fLow)) {
        extent.Take(*start);
    }
}

/// A curve without data has a range of its own: six spreads around the middle.
void TakeCurveRange(PlotSpace& space, const tree::Element& element)
{
    if (!space.fX.fExtent.IsEmpty()) return TakeCurveStart(space, *element.fDistribution);
    if (!element.fDistribution->fParameter) return;
    const double middle = element.fDistribution->fParameter->fValue;
    const auto& secondary = element.fDistribution->fSecondary;
    const double spread = secondary ? std::fabs(secondary->fValue) : std::fabs(middle);
    space.fX.fExtent.Take(middle - 3.0 * spread);
    space.fX.fExtent.Take(middle + 3.0 * spread);
}

void DrawCurves(ChartContext& context, PlotSpace& space, PanelMarks& marks)
{
    for (const tree::Element& element : context.fGraph.fElements) {
        if (!IsCurve(element) || !IsVisible(context, element.fStyle)) continue;
        TakeCurveRange(space, element);
        const double low = space.fX.fMin.value_or(space.fX.fExtent.fLow);
        const double high = space.fX.fMax.value_or(space.fX.fExtent.fHigh);
        AddCurve(context, element, marks.fBars, low, high, space, marks.fLayers);
        space.fX.fTight = true;
        space.fY.fCounts = true;
    }
}

/// The caption in the middle of a plot; one that doesn't fit, and each
/// of many, is cut to its last word, the number.
void AddCaption(const std::string& caption, bool isCrowded, ResolvedPlot& plot)
{
    if (caption.empty()) return;
    MarkLayer layer;
    layer.fKind = MarkKind::Text;
    layer.fInPixels = true;
    layer.fStyle.fFill = {Paint::Ink, {}};
    layer.fStyle.fFontSize = kCaptionFont;
    layer.fStyle.fBold = true;
    layer.fStyle.fHalo = true;
    layer.fStyle.fAlign = TextAlign::Center;
    layer.fStyle.fBaseline = TextBaseline::Middle;
    ResolvedMark mark;
    mark.fText = caption;
    const double width = TextBlockWidth(caption, kCaptionFont) * kBoldness;
    if (isCrowded || width > plot.fWidth - kCaptionAir) {
        const std::size_t cut = caption.find_last_of("\n ");
        if (cut != std::string::npos) mark.fText = caption.substr(cut + 1);
    }
    const auto lines = static_cast<double>(CountLines(mark.fText));
    mark.fX = plot.fWidth / 2;
    mark.fY = plot.fHeight / 2 - (lines - 1.0) * kCaptionFont * 0.7;
    layer.fMarks.push_back(std::move(mark));
    plot.fLayers.push_back(std::move(layer));
}

void NameColumns(ChartContext& context, const PanelGrid& grid, const PlotSpace& space)
{
    std::vector<std::string>& columns = context.fSummary.fColumns;
    if (columns.empty()) {
        for (const tree::Element& element : context.fGraph.fElements) {
            if (element.fKind == tree::ElementKind::Edge) continue;
            const bool isBar = element.fKind == tree::ElementKind::Interval;
            const tree::Dimension base = isBar ? Other(element.fExtent) : tree::Dimension::X;
            columns.push_back(AxisTitle(context, base, space.Of(base)));
            const tree::Color* color = ColorOf(context, element);
            if (color && isBar) columns.push_back(context.fData.Find(color->fVariable)->Title());
            columns.push_back(AxisTitle(context, Other(base), space.Of(Other(base))));
            break;
        }
    }
    columns.insert(columns.begin(), grid.fNames.begin(), grid.fNames.end());
    for (std::vector<std::string>& row : context.fSummary.fRows) {
        row.resize(columns.size());
    }
}

std::string FacetTitle(const tree::Facet* facet)
{
    return facet && facet->fLabel ? facet->fLabel->Shown() : std::string();
}

bool HasMarks(const ResolvedChart& chart)
{
    return std::any_of(chart.fPlots.begin(), chart.fPlots.end(), [](const ResolvedPlot& plot) {
        return std::any_of(plot.fLayers.begin(), plot.fLayers.end(),
                           [](const MarkLayer& layer) { return !layer.fMarks.empty(); });
    });
}

bool ResolvePanels(ChartContext& context, ResolvedChart& chart)
{
    PlotSpace space = MakePlotSpace(context);
    const PanelGrid grid = MakePanels(context);
    std::vector<PanelMarks> drawn;
    for (const Panel& panel : grid.fPanels) {
        drawn.push_back(DrawElements(context, panel, space));
    }
    TakeRanges(space);
    const std::vector<PlacedGuide> guides = PlaceGuides(context, space);
    for (PanelMarks& marks : drawn) {
        DrawCurves(context, space, marks);
    }
    const bool isEmpty = std::all_of(drawn.begin(), drawn.end(), [](const PanelMarks& marks) {
        return marks.fLayers.empty() && marks.fCaption.empty();
    });
    if (isEmpty) return false;

    const PanelSet set{context, grid, space};
    const PanelLayout layout = LayOutPanels(set);
    for (std::size_t place = 0; place < grid.fPanels.size(); ++place) {
        ResolvedPlot plot = MakePlot(set, layout, grid.fPanels[place]);
        plot.fLayers = std::move(drawn[place].fLayers);
        AddGuides(context, guides, plot);
        AddCaption(drawn[place].fCaption, grid.fPanels.size() >= kManyPlots, plot);
        chart.fPlots.push_back(std::move(plot));
    }
    AddLabelFrames(context, guides, layout.fPicture, layout.fArea, chart.fPlots.front());
    chart.fColumns = grid.fColumns;
    chart.fRowSpacing = layout.fRowSpacing;
    chart.fColumnSpacing = layout.fColumnSpacing;
    chart.fColumnTitle = FacetTitle(grid.fColumnFacet);
    chart.fRowTitle = FacetTitle(grid.fRowFacet);
    chart.fWidth = std::max(layout.fPicture.fRight, layout.fArea.fRight);
    chart.fHeight = std::max(layout.fPicture.fBottom, layout.fArea.fBottom + layout.fBottomExtent);
    NameColumns(context, grid, space);
    return true;
}

bool ResolveNetwork(ChartContext& context, ResolvedChart& chart)
{
    auto plot = MakeNetworkPlot(context, kNetworkWidth, kNetworkHeight);
    if (!plot) return false;
    chart.fWidth = plot->fWidth;
    chart.fHeight = plot->fHeight;
    AddLabelFrames(context, {}, {0.0, 0.0, plot->fWidth, plot->fHeight},
                   {0.0, 0.0, plot->fWidth, plot->fHeight}, *plot);
    chart.fPlots.push_back(std::move(*plot));
    return true;
}

double LegendWidth(const std::vector<ResolvedLegend>& legends)
{
    double width = 0.0;
    for (const ResolvedLegend& legend : legends) {
        for (const LegendEntry& entry : legend.fEntries) {
            width = std::max(width, kLegendWidth + TextBlockWidth(entry.fLabel, kLabelFont));
        }
    }
    return width;
}

}  // namespace

std::unique_ptr<ResolvedChart> ResolveChart(const ChartNode& node, const PlotWords& words)
{
    if (!node.fDrawing || node.fDrawing->fTree.fGraphs.empty()) return nullptr;
    const ChartDrawing& drawing = *node.fDrawing;
    const tree::Graph& graph = drawing.fTree.fGraphs.front();
    ChartContext context{drawing, drawing.fTree, graph, words, ChartData(node, drawing)};
    auto chart = std::make_unique<ResolvedChart>();
    chart->fTitle = node.fTitle;
    chart->fSubtitle = node.fSubtitle;
    chart->fFootnote = node.fFootnote;
    chart->fDescription = node.fDescription.empty() ? node.fTitle : node.fDescription;
    const bool isDrawn = FindNodes(context.fGraph) ? ResolveNetwork(context, *chart)
                                                   : ResolvePanels(context, *chart);
    if (!isDrawn || !HasMarks(*chart)) return nullptr;
    chart->fLegends = MakeLegends(context);
    chart->fWidth += LegendWidth(chart->fLegends);
    chart->fNotes = std::move(context.fNotes);
    chart->fData = std::move(context.fSummary);
    return chart;
}

}  // namespace refhost
