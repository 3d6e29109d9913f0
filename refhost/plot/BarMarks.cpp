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

/// From end to end along one axis.
struct Span {
    double fFrom = 0.0;
    double fTo = 0.0;
};

/// What an interval element takes from the tree.
class BarReader {
public:
    BarReader(const ChartContext& context, const tree::Element& element, const PlotSpace& space)
        : fElement(element),
          fStanding(space.Of(Other(element.fExtent))),
          fColor(ColorOf(context, element)),
          fColorVariable(fColor ? context.fData.Find(fColor->fVariable) : nullptr),
          fBase(VariableAt(context, PositionOf(element, Other(element.fExtent)))),
          fValue(VariableAt(context, PositionOf(element, element.fExtent)))
    {
        const auto& value = PositionOf(element, element.fExtent);
        if (value && value->fScalingFactor > 0.0) fScaling = value->fScalingFactor;
        fIsSum = fStanding.fBins || (value && value->fSummary == tree::Summary::Sum);
        if (fColorVariable) {
            fSeries = CategoryList(*fColorVariable, context.fTree.fOrders, kMostCategories);
        }
    }

    bool IsComplete() const { return fBase && fValue; }

    /// By place and series; rows of one bar are summed where the element says so.
    std::vector<Bar> Read(const Panel& panel, bool& isCut) const
    {
        isCut = false;
        std::vector<Bar> bars;
        std::map<std::pair<double, std::size_t>, std::size_t> sums;
        for (const std::size_t row : panel.fRows) {
            const auto bar = BarOf(row);
            if (!bar) continue;
            const std::pair key(bar->fPlace, bar->fSeries);
            if (const auto at = fIsSum ? sums.find(key) : sums.end(); at != sums.end()) {
                bars[at->second].fValue += bar->fValue;
                continue;
            }
            if (bars.size() == kMostMarks) {
                isCut = true;
                continue;
            }
            if (fIsSum) sums.emplace(key, bars.size());
            bars.push_back(*bar);
        }
        std::stable_sort(bars.begin(), bars.end(), [](const Bar& a, const Bar& b) {
            return std::pair(a.fPlace, a.fSeries) < std::pair(b.fPlace, b.fSeries);
        });
        return bars;
    }

    /// False for a bar without a colour of its own, or with one that there is no room for.
    bool HasSeries(const Bar& bar) const { return bar.fSeries < fSeries.Count(); }
    const CategoryLabel& SeriesOf(const Bar& bar) const { return fSeries.All()[bar.fSeries]; }

    const tree::Element& fElement;
    const PlotDirection& fStanding;
    const tree::Color* fColor;
    const DataVariable* fColorVariable;
    const DataVariable* fBase;
    const DataVariable* fValue;
    CategoryList fSeries;
    double fScaling = 1.0;
    bool fIsSum = false;

private:
    std::optional<Bar> BarOf(std::size_t row) const
    {
        auto place = fStanding.Place(*fBase, row);
        const auto value = fValue->Number(row);
        if (!place || !value || !std::isfinite(*value / fScaling)) return std::nullopt;
        if (fStanding.fBins) place = MiddleOfBin(*fStanding.fBins, *place);
        if (!place) return std::nullopt;
        return Bar{*place, SeriesAt(row), *value / fScaling, row};
    }

    static std::optional<double> MiddleOfBin(const Bins& bins, double number)
    {
        const std::size_t bin = bins.Find(number);
        if (bin >= bins.fCount) return std::nullopt;
        return (bins.Edge(bin) + bins.Edge(bin + 1)) / 2;
    }

    std::size_t SeriesAt(std::size_t row) const
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
    const bool isColored = reader.fColor && reader.HasSeries(bar);
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

/// How its place and its value are told to a reader.
struct BarTexts {
    std::string fBase;
    std::string fValue;
};

BarTexts TextsOf(const BarReader& reader, const Bar& bar)
{
    const bool isWhole = bar.fValue == std::floor(bar.fValue);
    return {BaseText(reader, bar), ReadableNumber(bar.fValue, isWhole ? 0 : 2)};
}

std::string UsualPopup(const BarReader& reader, const Bar& bar, const PopupFrame& frame,
                       const BarTexts& texts)
{
    std::string text = frame.fPanel;
    AppendNamedValue(text, frame.fBase, texts.fBase);
    text += '\n';
    if (reader.HasSeries(bar) && reader.fColorVariable != reader.fBase) {
        text.append(reader.SeriesOf(bar).fLabel) += '\n';
    }
    AppendNamedValue(text, frame.fValue, texts.fValue);
    return text;
}

/// Where a bar begins and ends along the axis on which it stands.
Span Footing(const BarReader& reader, const Bar& bar)
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

/// The heights of bars: each grows from zero, or in a stack from the end of the one before it.
class Heights {
public:
    explicit Heights(const BarReader& reader)
        : fIsStack(reader.fElement.fArrangement == tree::Arrangement::Stack)
    {
    }

    /// Nothing for a bar that would end beyond all numbers.
    std::optional<Span> Next(const Bar& bar)
    {
        if (!fIsStack || bar.fPlace != fPlace) fTop = 0.0;
        fPlace = bar.fPlace;
        const Span height{fTop, fTop + bar.fValue};
        if (!std::isfinite(height.fTo)) return std::nullopt;
        fTop = height.fTo;
        return height;
    }

private:
    bool fIsStack;
    double fPlace = 0.0;
    double fTop = 0.0;
};

void Widen(PlotSpace& space, const BarReader& reader, const Span& footing, const Span& height)
{
    const tree::Dimension growing = reader.fElement.fExtent;
    space.Of(Other(growing)).fExtent.Take(footing.fFrom);
    space.Of(Other(growing)).fExtent.Take(footing.fTo);
    space.Of(growing).fExtent.Take(height.fFrom);
    space.Of(growing).fExtent.Take(height.fTo);
}

/// Draws the bars of a panel one by one.
class BarPen {
public:
    BarPen(ChartContext& context, const BarReader& reader, const Panel& panel,
           const PlotSpace& space, std::vector<MarkLayer>& layers)
        : fContext(context),
          fReader(reader),
          fPanel(panel),
          fLayers(layers),
          fFrom(layers.size()),
          fPopup(FindPopup(context, reader.fElement, {})),
          fFrame(FrameOf(context, reader.fElement, space, panel)),
          fLayerOfSeries(reader.fSeries.Count() + 1)
    {
    }

    /// `expected` bars are to come, of all series together.
    void Expect(std::size_t expected) { fLayerRoom = expected / fLayerOfSeries.size() + 1; }

    void Draw(const Bar& bar, const Span& footing, const Span& height)
    {
        BarTexts texts = TextsOf(fReader, bar);
        AddRect(bar, footing, height, texts);
        AddNumber(bar, (footing.fFrom + footing.fTo) / 2, height.fTo);
        AddRow(bar, std::move(texts));
    }

private:
    bool IsUpright() const { return fReader.fElement.fExtent == tree::Dimension::Y; }

    void AddRect(const Bar& bar, const Span& footing, const Span& height, const BarTexts& texts)
    {
        const auto [x, y] = IsUpright() ? std::pair(footing, height) : std::pair(height, footing);
        ResolvedMark mark;
        mark.fX = x.fFrom, mark.fX2 = x.fTo, mark.fY = y.fFrom, mark.fY2 = y.fTo;
        if (fReader.fStanding.fKind == ScaleKind::Category) {
            mark.fKey = fReader.fBase->Key(bar.fRow);
        }
        if (fReader.HasSeries(bar)) mark.fSeries = fReader.SeriesOf(bar).fKey;
        mark.fPopup = fPopup ? PopupText(fContext, *fPopup, bar.fRow)
                             : UsualPopup(fReader, bar, fFrame, texts);
        RectsLike(bar).fMarks.push_back(std::move(mark));
    }

    /// The layer of the bar's look: bars of one series share theirs.
    MarkLayer& RectsLike(const Bar& bar)
    {
        std::optional<std::size_t>& layer = fLayerOfSeries[bar.fSeries];
        if (!layer) {
            const MarkStyle style = StyleOf(fContext, fReader, bar, fPanel);
            layer = LayerAt(fLayers, fFrom, MarkKind::Rect, style);
            fLayers[*layer].fMarks.reserve(fLayerRoom);
        }
        return fLayers[*layer];
    }

    /// The text beside the end of a bar.
    void AddNumber(const Bar& bar, double middle, double end)
    {
        if (fReader.fElement.fLabelings.empty()) return;
        const std::string& id = fReader.fElement.fLabelings.back().fVariable;
        const DataVariable* variable = fContext.fData.Find(id);
        if (!variable) return;
        ResolvedMark mark;
        mark.fText = variable->Text(bar.fRow);
        if (mark.fText.empty()) return;
        MarkStyle style;
        style.fFill = {Paint::Quiet, {}};
        style.fFontSize = kNumberSize;
        if (IsUpright()) {
            mark.fX = middle, mark.fY = end;
            style.fAlign = TextAlign::Center, style.fBaseline = TextBaseline::Bottom;
            style.fShiftY = -3.0;
        } else {
            mark.fX = end, mark.fY = middle;
            style.fBaseline = TextBaseline::Middle;
            style.fShiftX = 4.0;
        }
        MarkLayer& layer = LayerOf(fLayers, fFrom, MarkKind::Text, style);
        layer.fHelper = true;
        layer.fMarks.push_back(std::move(mark));
    }

    void AddRow(const Bar& bar, BarTexts&& texts)
    {
        std::vector<std::string> cells;
        cells.reserve(fPanel.fName.size() + 3);
        cells.push_back(std::move(texts.fBase));
        if (fReader.fColorVariable) {
            cells.push_back(fReader.HasSeries(bar) ? fReader.SeriesOf(bar).fLabel : std::string());
        }
        cells.push_back(std::move(texts.fValue));
        Summarize(fContext, fPanel, std::move(cells));
    }

    ChartContext& fContext;
    const BarReader& fReader;
    const Panel& fPanel;
    std::vector<MarkLayer>& fLayers;
    std::size_t fFrom;          // the first layer of the element
    const tree::Popup* fPopup;  // null where the popup is the usual one
    PopupFrame fFrame;
    std::vector<std::optional<std::size_t>> fLayerOfSeries;  // the last: of bars without a series
    std::size_t fLayerRoom = 0;
};

}  // namespace

void AddBars(ChartContext& context, const tree::Element& element, const Panel& panel,
             PlotSpace& space, std::vector<MarkLayer>& layers, BarTotals& totals)
{
    const BarReader reader(context, element, space);
    if (!reader.IsComplete()) return;
    bool isCut = false;
    const std::vector<Bar> bars = reader.Read(panel, isCut);
    if (isCut) NoteCutMarks(context);
    totals.fWidth = reader.fStanding.fBarWidth;

    Heights heights(reader);
    BarPen pen(context, reader, panel, space, layers);
    pen.Expect(bars.size());
    for (const Bar& bar : bars) {
        const auto height = heights.Next(bar);
        if (!height) continue;
        totals.fTotal += bar.fValue;
        const Span footing = Footing(reader, bar);
        Widen(space, reader, footing, *height);
        pen.Draw(bar, footing, *height);
    }
}

}  // namespace refhost
