#include "refhost/plot/Marks.h"
#include "refhost/plot/Palette.h"
#include "refhost/plot/Popups.h"

namespace refhost {
namespace {

constexpr double kPointSize = 40.0;

std::optional<ResolvedMark> MarkAt(const tree::Element& element, const DataVariable& x,
                                   const DataVariable& y, std::size_t row, PlotSpace& space)
{
    const auto placeX = space.fX.Place(x, row);
    auto placeY = space.fY.Place(y, row);
    if (!placeX || !placeY) return std::nullopt;
    if (element.fY->fScalingFactor > 0.0) *placeY /= element.fY->fScalingFactor;
    ResolvedMark mark;
    mark.fX = *placeX;
    mark.fY = *placeY;
    space.fX.fExtent.Take(*placeX);
    space.fY.fExtent.Take(*placeY);
    return mark;
}

}  // namespace

void AddPoints(ChartContext& context, const tree::Element& element, const Panel& panel,
               PlotSpace& space, std::vector<MarkLayer>& layers)
{
    const DataVariable* x = VariableAt(context, element.fX);
    const DataVariable* y = VariableAt(context, element.fY);
    if (!x || !y) return;
    const tree::Popup* popup = FindPopup(context, element, {});
    MarkLayer layer;
    layer.fKind = element.fKind == tree::ElementKind::Line ? MarkKind::Line : MarkKind::Point;
    MarkStyle usual;
    usual.fStroke = FixedColor(kFirstSeries);
    usual.fStrokeWidth = 2.0;
    usual.fSize = kPointSize;
    layer.fStyle = LineStyle(FindStyle(context, element.fStyle), usual);
    if (layer.fKind == MarkKind::Point) layer.fStyle.fFill = layer.fStyle.fStroke;
    for (const std::size_t row : panel.fRows) {
        auto mark = MarkAt(element, *x, *y, row, space);
        if (!mark) continue;
        if (layer.fMarks.size() == kMostMarks) {
            NoteCutMarks(context);
            break;
        }
        mark->fPopup = popup ? PopupText(context, *popup, row)
                             : NamedValue(x->Title(), x->Text(row)) + "\n" +
                                   NamedValue(y->Title(), y->Text(row));
        Summarize(context, panel, {x->Text(row), y->Text(row)});
        layer.fMarks.push_back(std::move(*mark));
    }
    if (!layer.fMarks.empty()) layers.push_back(std::move(layer));
}

void AddTexts(ChartContext& context, const tree::Element& element, const Panel& panel,
              PlotSpace& space, std::vector<MarkLayer>& layers, std::string& caption)
{
    const DataVariable* variable = context.fData.Find(element.fVariable);
    if (!variable) return;
    const DataVariable* x = VariableAt(context, element.fX);
    const DataVariable* y = VariableAt(context, element.fY);
    MarkLayer layer;
    layer.fKind = MarkKind::Text;
    layer.fStyle = TextStyle(FindStyle(context, element.fStyle));
    layer.fStyle.fAlign = TextAlign::Center;
    layer.fStyle.fBaseline = TextBaseline::Middle;
    for (const std::size_t row : panel.fRows) {
        if (!variable->Number(row) && variable->Key(row).empty()) continue;
        const std::string text = variable->Text(row);
        if (!x || !y) {
            Summarize(context, panel, {std::string(), variable->Key(row)});
            caption += (caption.empty() ? "" : "\n") + text;
            continue;
        }
        auto mark = MarkAt(element, *x, *y, row, space);
        if (!mark) continue;
        if (layer.fMarks.size() == kMostMarks) {
            NoteCutMarks(context);
            break;
        }
        mark->fText = text;
        layer.fMarks.push_back(std::move(*mark));
    }
    if (!layer.fMarks.empty()) layers.push_back(std::move(layer));
}

}  // namespace refhost
