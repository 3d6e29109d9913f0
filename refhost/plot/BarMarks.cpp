#include <cmath>
#include <map>
#include <optional>
#include <string_view>
#include <utility>

#include "refhost/plot/Marks.h"
#include "refhost/plot/Palette.h"
#include "refhost/plot/Popups.h"

namespace refhost {
namespace {

constexpr double kCategoryBar = 0.75;   // of a category's room
constexpr double kCategoryGroup = 0.8;  // the same for all bars of a cluster
constexpr double kNumberSize = 10.0;

struct Bar {
    double fPlace = 0.0;      ///< middle of the room that it stands in
    std::size_t fSeries = 0;  ///< of its colour; the number of series where it has none
    double fValue = 0.0;
    std::size_t fRow = 0;  ///< the first that it stands for
};

/// What an interval element takes from the tree.
class BarReader {
public:
    BarReader(const ChartContext& context, const tree::Element& element, const PlotSpace& space)
        : fElement(element),
          fStanding(space.Of(Other(element.fExtent))),
          fColor(ColorOf(context, element)),
          fColorVariable(fColor ? context.fData.Find(fColor->fVariable) : nullptr)
    {
        const auto& base = PositionOf(element, Other(element.fExtent));
        const auto& value = PositionOf(element, element.fExtent);
        if (base) fBase = context.fData.Find(base->fVariable);
        if (value) fValue = context.fData.Find(value->fVariable);
        if (value && value->fScalingFactor > 0.0) fScaling = value->fScalingFactor;
        fIsSum = fStanding.fBins || (value && value->fSummary == tree::Summary::Sum);
        if (fColorVariable) {
            fSeries = CategoryList(*fColorVariable, context.fTree.fOrders, kMostCategories);
        }
    }

    bool IsComplete() const { return fBase && fValue; }

    std::vector<Bar> Read(const Panel& panel, bool& isCut) const
    {
        isCut = false;
        std::vector<Bar> bars;
        std::map<std::pair<double, std::size_t>, std::size_t> sums;
        for (const std::size_t row : panel.fRows) {
            auto place = fStanding.Place(*fBase, row);
            const auto value = fValue->Number(row);
            if (!place || !value || !std::isfinite(*value / fScaling)) continue;
            if (fStanding.fBins) {
                const std::size_t bin = fStanding.fBins->Find(*place);
                if (bin >= fStanding.fBins->fCount) continue;
                place = (fStanding.fBins->Edge(bin) + fStanding.fBins->Edge(bin + 1)) / 2;
            }
            const Bar bar{*place, SeriesOf(row), *value / fScaling, row};
            const std::pair key(bar.fPlace, bar.fSeries);
            if (const auto at = fIsSum ? sums.find(key) : sums.end(); at != sums.end()) {
                bars[at->second].fValue += bar.fValue;
                continue;
            }
            if (bars.size() == kMostMarks) {
                isCut = true;
                continue;
            }
            if (fIsSum) sums.emplace(key, bars.size());
            bars.push_back(bar);
        }
        std::stable_sort(bars.begin(), bars.end(), [](const Bar& a, const Bar& b) {
            return std::pair(a.fPlace, a.fSeries) < std::pair(b.fPlace, b.fSeries);
        });
        return bars;
    }

    const tree::Element& fElement;
    const PlotDirection& fStanding;
    const tree::Color* fColor;
    const DataVariable* fColorVariable;
    const DataVariable* fBase = nullptr;
    const DataVariable* fValue = nullptr;
    CategoryList fSeries;
    double fScaling = 1.0;
    bool fIsSum = false;

private:
    std::size_t SeriesOf(std::size_t row) const
    {
        if (!fColorVariable) return 0;
        std::string room;
        return fSeries.Find(fColorVariable->Key(row, room)).value_or(fSeries.Count());
    }
};

/// A bar without a colour of its own: pale where something is drawn over it.
PaintedColor PlainFill(const ChartContext& context, const tree::Element& element,
                       const Panel& panel)
{
    const bool underCurve =
        std::any_of(context.fGraph.fElements.begin(), context.fGraph.fElements.end(),
                    [](const tree::Element& other) { return other.fDistribution.has_value(); });
    const char* usual = underCurve                            ? kBarsUnderCurve
                        : !context.fGraph.fLineGuides.empty() ? kPaleBars
                                                              : kFirstSeries;
    const tree::Style* style = FindStyle(context, element.fStyle);
    if (style && !style->fFill.empty()) return ColorOf(style->fFill, FixedColor(usual));
    const bool isMirrored =
        context.fGraph.fFacetLayout && context.fGraph.fFacetLayout->fAlternating;
    if (!isMirrored) return FixedColor(usual);
    return SeriesStyle(
               {}, static_cast<std::size_t>(panel.fRow) + static_cast<std::size_t>(panel.fColumn))
        .fFill;
}

MarkStyle StyleOf(const ChartContext& context, const BarReader& reader, const Bar& bar,
                  const Panel& panel)
{
    const bool isColored = reader.fColor && bar.fSeries < reader.fSeries.Count();
    MarkStyle style = isColored ? SeriesStyle(*reader.fColor, bar.fSeries) : MarkStyle();
    if (!isColored) style.fFill = PlainFill(context, reader.fElement, panel);
    const bool isUpright = reader.fElement.fExtent == tree::Dimension::Y;
    const bool touches = reader.fStanding.fKind != ScaleKind::Category;
    const bool isStacked = reader.fElement.fArrangement == tree::Arrangement::Stack;
    if (touches) (isUpright ? style.fGapX : style.fGapY) = 1.0;
    if (isStacked) (isUpright ? style.fGapY : style.fGapX) = 1.0;
    return style;
}

std::string BaseText(const BarReader& reader, const Bar& bar)
{
    if (!reader.fStanding.fBins) return reader.fStanding.PlaceText(*reader.fBase, bar.fPlace);
    const Bins& bins = *reader.fStanding.fBins;
    const double half = (bins.HoldWhole() ? bins.fWidth - 1 : bins.fWidth) / 2;
    std::string first = reader.fBase->DerivedNumberText(bar.fPlace - half);
    if (half == 0) return first;
    return first + " \xE2\x80\x93 " + reader.fBase->DerivedNumberText(bar.fPlace + half);
}

/// What the popups of all bars of a panel share.
struct PopupFrame {
    std::string fPanel;  // lines that name it
    std::string fBase;   // titles of the axes
    std::string fValue;
};

PopupFrame FrameOf(const ChartContext& context, const tree::Element& element,
                   const PlotSpace& space, const Panel& panel)
{
    PopupFrame frame;
    for (const std::string& name : panel.fName) {
        frame.fPanel.append(name, 0, name.find('\n')) += '\n';
    }
    const tree::Dimension base = Other(element.fExtent);
    frame.fBase = AxisTitle(context, base, space.Of(base));
    frame.fValue = AxisTitle(context, element.fExtent, space.Of(element.fExtent));
    return frame;
}

std::string UsualPopup(const BarReader& reader, const Bar& bar, const PopupFrame& frame,
                       std::string_view baseText, std::string_view valueText)
{
    std::string text = frame.fPanel;
    AppendNamedValue(text, frame.fBase, baseText);
    text += '\n';
    if (bar.fSeries < reader.fSeries.Count() && reader.fColorVariable != reader.fBase) {
        text.append(reader.fSeries.All()[bar.fSeries].fLabel) += '\n';
    }
    AppendNamedValue(text, frame.fValue, valueText);
    return text;
}

/// Where a bar begins and ends along the axis on which it stands.
std::pair<double, double> Footing(const BarReader& reader, const Bar& bar)
{
    const bool isCategory = reader.fStanding.fKind == ScaleKind::Category;
    const bool isCluster = reader.fElement.fArrangement == tree::Arrangement::Cluster;
    const std::size_t series = reader.fSeries.Count();
    if (!isCluster || series == 0) {
        const double half = (isCategory ? kCategoryBar : reader.fStanding.fBarWidth) / 2;
        return {bar.fPlace - half, bar.fPlace + half};
    }
    const double group = isCategory ? kCategoryGroup : reader.fStanding.fBarWidth;
    const double width = group / static_cast<double>(series);
    const double start = bar.fPlace - group / 2 + width * static_cast<double>(bar.fSeries);
    return {start, start + width};
}

ResolvedMark RectOf(const BarReader& reader, std::pair<double, double> footing, double from,
                    double to)
{
    ResolvedMark mark;
    if (reader.fElement.fExtent == tree::Dimension::Y) {
        mark.fX = footing.first, mark.fX2 = footing.second, mark.fY = from, mark.fY2 = to;
    } else {
        mark.fX = from, mark.fX2 = to, mark.fY = footing.first, mark.fY2 = footing.second;
    }
    return mark;
}

/// The text beside the end of a bar.
void AddNumber(ChartContext& context, const BarReader& reader, const Bar& bar,
               std::pair<double, double> footing, double end, std::vector<MarkLayer>& layers,
               std::size_t from)
{
    if (reader.fElement.fLabelings.empty()) return;
    const DataVariable* variable = context.fData.Find(reader.fElement.fLabelings.back().fVariable);
    if (!variable) return;
    ResolvedMark mark;
    mark.fText = variable->Text(bar.fRow);
    if (mark.fText.empty()) return;
    MarkStyle style;
    style.fFill = {Paint::Quiet, {}};
    style.fFontSize = kNumberSize;
    const double middle = (footing.first + footing.second) / 2;
    if (reader.fElement.fExtent == tree::Dimension::Y) {
        mark.fX = middle, mark.fY = end;
        style.fAlign = TextAlign::Center, style.fBaseline = TextBaseline::Bottom;
        style.fShiftY = -3.0;
    } else {
        mark.fX = end, mark.fY = middle;
        style.fBaseline = TextBaseline::Middle;
        style.fShiftX = 4.0;
    }
    MarkLayer& layer = LayerOf(layers, from, MarkKind::Text, style);
    layer.fHelper = true;
    layer.fMarks.push_back(std::move(mark));
}

}  // namespace

void AddBars(ChartContext& context, const tree::Element& element, const Panel& panel,
             PlotSpace& space, std::vector<MarkLayer>& layers, BarTotals& totals)
{
    const BarReader reader(context, element, space);
    if (!reader.IsComplete()) return;
    const tree::Popup* popup = FindPopup(context, element, {});
    PlotDirection& standing = space.Of(Other(element.fExtent));
    PlotDirection& growing = space.Of(element.fExtent);
    const std::size_t from = layers.size();
    const bool isStack = element.fArrangement == tree::Arrangement::Stack;
    double place = 0.0, stacked = 0.0;
    totals.fWidth = reader.fStanding.fBarWidth;
    bool isCut = false;
    const std::vector<Bar> bars = reader.Read(panel, isCut);
    if (isCut) NoteCutMarks(context);
    const PopupFrame frame = FrameOf(context, element, space, panel);
    std::vector<std::optional<std::size_t>> layerOfSeries(reader.fSeries.Count() + 1);
    for (const Bar& bar : bars) {
        if (bar.fPlace != place) stacked = 0.0;
        place = bar.fPlace;
        const double start = isStack ? stacked : 0.0;
        const double end = start + bar.fValue;
        if (!std::isfinite(end)) continue;
        stacked = end;
        totals.fTotal += bar.fValue;
        const auto footing = Footing(reader, bar);
        standing.fExtent.Take(footing.first);
        standing.fExtent.Take(footing.second);
        growing.fExtent.Take(start);
        growing.fExtent.Take(end);

        ResolvedMark mark = RectOf(reader, footing, start, end);
        if (standing.fKind == ScaleKind::Category) mark.fKey = reader.fBase->Key(bar.fRow);
        const bool isSeries = bar.fSeries < reader.fSeries.Count();
        if (isSeries) mark.fSeries = reader.fSeries.All()[bar.fSeries].fKey;
        std::string baseText = BaseText(reader, bar);
        std::string valueText =
            ReadableNumber(bar.fValue, bar.fValue == std::floor(bar.fValue) ? 0 : 2);
        mark.fPopup = popup ? PopupText(context, *popup, bar.fRow)
                            : UsualPopup(reader, bar, frame, baseText, valueText);
        std::optional<std::size_t>& layer = layerOfSeries[bar.fSeries];
        if (!layer) {
            layer = LayerAt(layers, from, MarkKind::Rect, StyleOf(context, reader, bar, panel));
            layers[*layer].fMarks.reserve(bars.size() / layerOfSeries.size() + 1);
        }
        layers[*layer].fMarks.push_back(std::move(mark));
        AddNumber(context, reader, bar, footing, end, layers, from);

        std::vector<std::string> cells;
        cells.reserve(panel.fName.size() + 3);
        cells.push_back(std::move(baseText));
        if (reader.fColorVariable) {
            cells.push_back(isSeries ? reader.fSeries.All()[bar.fSeries].fLabel : std::string());
        }
        cells.push_back(std::move(valueText));
        Summarize(context, panel, std::move(cells));
    }
}

}  // namespace refhost
