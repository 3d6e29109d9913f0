#include <algorithm>
#include <cmath>
#include <map>
#include <optional>
#include <utility>

#include "refhost/plot/Boxes.h"
#include "refhost/plot/Marks.h"
#include "refhost/plot/Palette.h"
#include "refhost/plot/Popups.h"

namespace refhost {
namespace {

constexpr double kHalfBox = 0.25;  // of a category's room
constexpr double kHalfWhisker = 0.125;
constexpr double kCloseLabels = 0.05;   // of the range: nearer labels would touch
constexpr std::size_t kMostLabels = 4;  // of a group
constexpr const char* kMedianPart = "median";

struct BoxPart {
    std::string_view PlotWords::*fName;
    double BoxNumbers::*fNumber;
};

// clang-format off
constexpr BoxPart kBoxParts[] = {
    {&PlotWords::fUpperWhisker,  &BoxNumbers::fUpperWhisker},
    {&PlotWords::fThirdQuartile, &BoxNumbers::fThirdQuartile},
    {&PlotWords::fMedian,        &BoxNumbers::fMedian},
    {&PlotWords::fFirstQuartile, &BoxNumbers::fFirstQuartile},
    {&PlotWords::fLowerWhisker,  &BoxNumbers::fLowerWhisker},
};
// clang-format on

struct Group {
    std::vector<std::size_t> fRows;
    std::vector<double> fValues;
};

/// One box being drawn, with what all its marks need.
struct BoxDrawing {
    ChartContext& fContext;
    const tree::Element& fElement;
    const DataVariable& fX;
    const DataVariable& fY;
    const Group& fGroup;
    BoxNumbers fBox;
    double fPlace;
    std::size_t fFrom;  // first layer of the element
    std::vector<MarkLayer>& fLayers;
    const CategoryList& fSeries;  // of the colour, if there is one
    std::string fName;            // "Feed = casein"
    std::vector<std::string> fOutlierLabels;
};

std::map<double, Group> GroupRows(const Panel& panel, const PlotSpace& space, const DataVariable& x,
                                  const DataVariable& y)
{
    std::map<double, Group> groups;
    for (const std::size_t row : panel.fRows) {
        const auto place = space.fX.Place(x, row);
        const auto value = y.Number(row);
        if (!place || !value) continue;
        Group& group = groups[*place];
        group.fRows.push_back(row);
        group.fValues.push_back(*value);
    }
    return groups;
}

MarkStyle Thin()
{
    MarkStyle style;
    style.fStroke = {Paint::Outline, {}};
    return style;
}

void AddRule(BoxDrawing& box, const MarkStyle& style, double halfWidth, double from, double to,
             std::string popup)
{
    ResolvedMark mark;
    mark.fX = box.fPlace - halfWidth;
    mark.fX2 = box.fPlace + halfWidth;
    mark.fY = from;
    mark.fY2 = to;
    mark.fKey = box.fX.Key(box.fGroup.fRows.front());
    mark.fPopup = std::move(popup);
    const bool isHelper = mark.fPopup.empty();
    MarkLayer& layer = LayerOf(box.fLayers, box.fFrom, MarkKind::Rule, style);
    layer.fHelper = isHelper;
    layer.fMarks.push_back(std::move(mark));
}

void AddWhiskers(BoxDrawing& box)
{
    const BoxNumbers& numbers = box.fBox;
    AddRule(box, Thin(), 0.0, numbers.fLowerWhisker, numbers.fFirstQuartile, {});
    AddRule(box, Thin(), 0.0, numbers.fThirdQuartile, numbers.fUpperWhisker, {});
    for (const double end : {numbers.fLowerWhisker, numbers.fUpperWhisker}) {
        AddRule(box, Thin(), kHalfWhisker, end, end, {});
    }
}

std::string BoxPopup(const BoxDrawing& box)
{
    std::string text = box.fName;
    for (const BoxPart& part : kBoxParts) {
        text += '\n';
        AppendNamedValue(text, box.fContext.fWords.*part.fName,
                         box.fY.DerivedNumberText(box.fBox.*part.fNumber));
    }
    return text;
}

void AddBody(BoxDrawing& box)
{
    const tree::Color* color = ColorOf(box.fContext, box.fElement);
    const std::size_t row = box.fGroup.fRows.front();
    std::size_t category = 0;
    ResolvedMark mark;
    if (color) {
        const DataVariable& variable = *box.fContext.fData.Find(color->fVariable);
        mark.fSeries = variable.Key(row);
        category = box.fSeries.Find(mark.fSeries).value_or(0);
    }
    mark.fX = box.fPlace - kHalfBox;
    mark.fX2 = box.fPlace + kHalfBox;
    mark.fY = box.fBox.fFirstQuartile;
    mark.fY2 = box.fBox.fThirdQuartile;
    mark.fKey = box.fX.Key(row);
    const tree::Popup* popup = FindPopup(box.fContext, box.fElement, {});
    mark.fPopup = popup ? PopupText(box.fContext, *popup, row) : BoxPopup(box);
    LayerOf(box.fLayers, box.fFrom, MarkKind::Rect, BoxTint(color, category))
        .fMarks.push_back(std::move(mark));
}

void AddMedian(BoxDrawing& box)
{
    MarkStyle style;
    style.fStroke = {Paint::Ink, {}};
    style.fStrokeWidth = 2.5;
    const tree::Popup* popup = FindPopup(box.fContext, box.fElement, kMedianPart);
    const std::string text =
        popup ? PopupText(box.fContext, *popup, box.fGroup.fRows.front())
              : NamedValue(box.fContext.fWords.fMedian, box.fY.DerivedNumberText(box.fBox.fMedian));
    AddRule(box, style, kHalfBox, box.fBox.fMedian, box.fBox.fMedian, box.fName + "\n" + text);
}

/// Where a value stands among the outliers, nothing where it is none.
std::optional<std::size_t> OutlierPlace(const BoxNumbers& box, double value)
{
    const auto found = std::lower_bound(box.fOutliers.begin(), box.fOutliers.end(), value);
    if (found == box.fOutliers.end() || *found != value) return std::nullopt;
    return static_cast<std::size_t>(found - box.fOutliers.begin());
}

/// Of each outlier the label of the first row of that value that has one.
std::vector<std::string> OutlierLabels(const BoxDrawing& box)
{
    std::vector<std::string> labels(box.fBox.fOutliers.size());
    if (labels.empty() || box.fElement.fLabelings.empty()) return labels;
    const DataVariable* variable =
        box.fContext.fData.Find(box.fElement.fLabelings.back().fVariable);
    if (!variable) return labels;
    std::vector<bool> isLabelled(labels.size());
    for (std::size_t at = 0; at < box.fGroup.fRows.size(); ++at) {
        const auto place = OutlierPlace(box.fBox, box.fGroup.fValues[at]);
        const std::size_t row = box.fGroup.fRows[at];
        if (!place || isLabelled[*place] || variable->IsAbsent(row)) continue;
        isLabelled[*place] = true;
        labels[*place] = variable->Text(row);
    }
    return labels;
}

/// The outliers that are named: all of a few, else the farthest from the median.
std::vector<double> NamedOutliers(const BoxNumbers& box)
{
    std::vector<double> named = box.fOutliers;
    std::stable_sort(named.begin(), named.end(), [&box](double a, double b) {
        return std::fabs(a - box.fMedian) > std::fabs(b - box.fMedian);
    });
    if (named.size() > kMostLabels) named.resize(kMostLabels);
    std::sort(named.begin(), named.end());
    return named;
}

void AddOutlierNames(BoxDrawing& box, double range)
{
    double before = 0.0;
    bool isLeft = true;
    for (const double value : NamedOutliers(box.fBox)) {
        ResolvedMark mark;
        mark.fX = box.fPlace;
        mark.fY = value;
        if (const auto place = OutlierPlace(box.fBox, value)) {
            mark.fText = box.fOutlierLabels[*place];
        }
        if (mark.fText.empty()) continue;
        const bool isClose = value - before < range * kCloseLabels;
        isLeft = !isLeft && isClose;
        before = value;
        MarkStyle style;
        style.fFill = {Paint::Quiet, {}};
        style.fFontSize = 10.0;
        style.fBaseline = TextBaseline::Middle;
        style.fAlign = isLeft ? TextAlign::Right : TextAlign::Left;
        style.fShiftX = isLeft ? -7.0 : 7.0;
        MarkLayer& layer = LayerOf(box.fLayers, box.fFrom, MarkKind::Text, style);
        layer.fHelper = true;
        layer.fMarks.push_back(std::move(mark));
    }
}

void AddOutliers(BoxDrawing& box)
{
    MarkStyle style;
    style.fStroke = {Paint::Outline, {}};
    style.fFill = {Paint::Ground, {}};
    style.fStrokeWidth = 1.3;
    const std::vector<double>& outliers = box.fBox.fOutliers;
    if (outliers.empty()) return;
    const std::string key = box.fX.Key(box.fGroup.fRows.front());
    const std::string title = box.fY.Title();
    MarkLayer& layer = LayerOf(box.fLayers, box.fFrom, MarkKind::Point, style);
    for (std::size_t place = 0; place < outliers.size(); ++place) {
        if (layer.fMarks.size() >= kMostMarks) return NoteCutMarks(box.fContext);
        ResolvedMark& mark = layer.fMarks.emplace_back();
        mark.fX = box.fPlace;
        mark.fY = outliers[place];
        mark.fKey = key;
        mark.fPopup = box.fName + '\n';
        AppendNamedValue(mark.fPopup, title, box.fY.NumberText(mark.fY));
        const std::string& label = box.fOutlierLabels[place];
        if (!label.empty()) mark.fPopup.append("\n").append(label);
    }
}

void SummarizeBoxRow(const BoxDrawing& box, const Panel& panel, const PlotSpace& space)
{
    std::vector<std::string> cells = {space.fX.PlaceText(box.fX, box.fPlace)};
    for (const BoxPart& part : kBoxParts) {
        cells.push_back(box.fY.DerivedNumberText(box.fBox.*part.fNumber));
    }
    std::string outliers;
    for (const double value : box.fBox.fOutliers) {
        outliers += (outliers.empty() ? "" : ", ") + box.fY.NumberText(value);
    }
    cells.push_back(std::move(outliers));
    Summarize(box.fContext, panel, std::move(cells));
}

Extent RangeOf(const std::map<double, Group>& groups)
{
    Extent range;
    for (const auto& [place, group] : groups) {
        for (const double value : group.fValues) {
            range.Take(value);
        }
    }
    return range;
}

}  // namespace

void AddBoxes(ChartContext& context, const tree::Element& element, const Panel& panel,
              PlotSpace& space, std::vector<MarkLayer>& layers)
{
    const DataVariable* x = element.fX ? context.fData.Find(element.fX->fVariable) : nullptr;
    const DataVariable* y = element.fY ? context.fData.Find(element.fY->fVariable) : nullptr;
    if (!x || !y) return;
    const std::map<double, Group> groups = GroupRows(panel, space, *x, *y);
    const Extent range = RangeOf(groups);
    const std::size_t from = layers.size();
    const tree::Color* color = ColorOf(context, element);
    const CategoryList series = color ? CategoryList(*context.fData.Find(color->fVariable),
                                                     context.fTree.fOrders, kMostCategories)
                                      : CategoryList();
    const std::string title = AxisTitle(context, tree::Dimension::X, space.fX);
    std::vector<BoxDrawing> drawings;
    for (const auto& [place, group] : groups) {
        const auto box = SummarizeBox(group.fValues);
        if (!box) continue;
        drawings.push_back({context,
                            element,
                            *x,
                            *y,
                            group,
                            *box,
                            place,
                            from,
                            layers,
                            series,
                            NamedValue(title, space.fX.PlaceText(*x, place)),
                            {}});
        drawings.back().fOutlierLabels = OutlierLabels(drawings.back());
        SummarizeBoxRow(drawings.back(), panel, space);
        space.fX.fExtent.Take(place - 0.5);
        space.fX.fExtent.Take(place + 0.5);
        space.fY.fExtent.Take(box->fLowerWhisker);
        space.fY.fExtent.Take(box->fUpperWhisker);
        for (const double value : box->fOutliers) {
            space.fY.fExtent.Take(value);
        }
    }
    // One kind of mark of all boxes after the other, as layers of one look hold several boxes.
    for (const auto addMarks : {AddWhiskers, AddBody, AddMedian, AddOutliers}) {
        for (BoxDrawing& drawing : drawings) {
            addMarks(drawing);
        }
    }
    for (BoxDrawing& drawing : drawings) {
        AddOutlierNames(drawing, range.fHigh - range.fLow);
    }
    if (context.fSummary.fColumns.empty()) {
        context.fSummary.fColumns.push_back(title);
        for (const BoxPart& part : kBoxParts) {
            context.fSummary.fColumns.emplace_back(context.fWords.*part.fName);
        }
        context.fSummary.fColumns.emplace_back(context.fWords.fOutliers);
    }
}

}  // namespace refhost
