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

struct Box {
    const Group& fGroup;
    BoxNumbers fNumbers;
    double fPlace;
    std::string fPlaceText;
    std::string fName;                        // "Feed = casein"
    std::vector<std::string> fOutlierLabels;  // empty for an outlier without one

    std::size_t FirstRow() const { return fGroup.fRows.front(); }
};

MarkStyle Thin()
{
    MarkStyle style;
    style.fStroke = {Paint::Outline, {}};
    return style;
}

/// Where a value stands among the outliers, nothing where it is none.
std::optional<std::size_t> OutlierPlace(const BoxNumbers& numbers, double value)
{
    const auto found = std::lower_bound(numbers.fOutliers.begin(), numbers.fOutliers.end(), value);
    if (found == numbers.fOutliers.end() || *found != value) return std::nullopt;
    return static_cast<std::size_t>(found - numbers.fOutliers.begin());
}

/// The outliers that are named: all of a few, else the farthest from the median.
std::vector<double> NamedOutliers(const BoxNumbers& numbers)
{
    std::vector<double> named = numbers.fOutliers;
    std::stable_sort(named.begin(), named.end(), [&numbers](double a, double b) {
        return std::fabs(a - numbers.fMedian) > std::fabs(b - numbers.fMedian);
    });
    if (named.size() > kMostLabels) named.resize(kMostLabels);
    std::sort(named.begin(), named.end());
    return named;
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

/// Draws the boxes of an element in a panel.
class BoxPen {
public:
    BoxPen(ChartContext& context, const tree::Element& element, const PlotSpace& space,
           std::vector<MarkLayer>& layers);

    bool IsComplete() const { return fX && fY; }

    std::map<double, Group> GroupRows(const Panel& panel) const;
    std::vector<Box> BoxesOf(const std::map<double, Group>& groups) const;
    void Draw(const std::vector<Box>& boxes, double range);

    /// The boxes in the data's table.
    void AddRow(const Panel& panel, const Box& box);
    void NameColumns();

private:
    std::vector<std::string> OutlierLabels(const Group& group, const BoxNumbers& numbers) const;
    std::string PopupOf(const Box& box) const;
    void AddRule(const Box& box, const MarkStyle& style, double halfWidth, double from, double to,
                 std::string popup);
    void AddWhiskers(const Box& box);
    void AddBody(const Box& box);
    void AddMedian(const Box& box);
    void AddOutliers(const Box& box);
    void AddOutlierNames(const Box& box, double range);

    ChartContext& fContext;
    const tree::Element& fElement;
    const PlotDirection& fAlong;  // on which the boxes stand
    const DataVariable* fX;
    const DataVariable* fY;
    const tree::Color* fColor;
    CategoryList fSeries;  // of the colour, if there is one
    std::string fTitle;    // of the axis on which the boxes stand
    std::vector<MarkLayer>& fLayers;
    std::size_t fFrom;  // the first layer of the element
};

BoxPen::BoxPen(ChartContext& context, const tree::Element& element, const PlotSpace& space,
               std::vector<MarkLayer>& layers)
    : fContext(context),
      fElement(element),
      fAlong(space.fX),
      fX(VariableAt(context, element.fX)),
      fY(VariableAt(context, element.fY)),
      fColor(ColorOf(context, element)),
      fTitle(AxisTitle(context, tree::Dimension::X, space.fX)),
      fLayers(layers),
      fFrom(layers.size())
{
    if (!fColor) return;
    fSeries = CategoryList(*context.fData.Find(fColor->fVariable), context.fTree.fOrders,
                           kMostCategories);
}

std::map<double, Group> BoxPen::GroupRows(const Panel& panel) const
{
    std::map<double, Group> groups;
    std::optional<double> place;
    std::optional<std::size_t> before;  // the row whose place it is
    for (const std::size_t row : panel.fRows) {
        const bool isSame = before && *before + 1 == row && fX->Repeats(row);
        if (!isSame) place = fAlong.Place(*fX, row);
        before = row;
        const auto value = fY->Number(row);
        if (!place || !value) continue;
        Group& group = groups[*place];
        group.fRows.push_back(row);
        group.fValues.push_back(*value);
    }
    return groups;
}

std::vector<Box> BoxPen::BoxesOf(const std::map<double, Group>& groups) const
{
    std::vector<Box> boxes;
    for (const auto& [place, group] : groups) {
        auto numbers = SummarizeBox(group.fValues);
        if (!numbers) continue;
        auto labels = OutlierLabels(group, *numbers);
        const std::string placeText = fAlong.PlaceText(*fX, place);
        boxes.push_back({group, *std::move(numbers), place, placeText,
                         NamedValue(fTitle, placeText), std::move(labels)});
    }
    return boxes;
}

/// Of each outlier the label of the first row of that value that has one.
std::vector<std::string> BoxPen::OutlierLabels(const Group& group, const BoxNumbers& numbers) const
{
    std::vector<std::string> labels(numbers.fOutliers.size());
    if (labels.empty() || fElement.fLabelings.empty()) return labels;
    const DataVariable* variable = fContext.fData.Find(fElement.fLabelings.back().fVariable);
    if (!variable) return labels;
    std::vector<bool> isLabelled(labels.size());
    for (std::size_t at = 0; at < group.fRows.size(); ++at) {
        const auto place = OutlierPlace(numbers, group.fValues[at]);
        const std::size_t row = group.fRows[at];
        if (!place || isLabelled[*place] || variable->IsAbsent(row)) continue;
        isLabelled[*place] = true;
        labels[*place] = variable->Text(row);
    }
    return labels;
}

/// One kind of mark of all boxes after the other, as layers of one look hold several boxes.
void BoxPen::Draw(const std::vector<Box>& boxes, double range)
{
    using Step = void (BoxPen::*)(const Box&);
    for (const Step addMarks :
         {&BoxPen::AddWhiskers, &BoxPen::AddBody, &BoxPen::AddMedian, &BoxPen::AddOutliers}) {
        for (const Box& box : boxes) {
            (this->*addMarks)(box);
        }
    }
    for (const Box& box : boxes) {
        AddOutlierNames(box, range);
    }
}

void BoxPen::AddWhiskers(const Box& box)
{
    const BoxNumbers& numbers = box.fNumbers;
    AddRule(box, Thin(), 0.0, numbers.fLowerWhisker, numbers.fFirstQuartile, {});
    AddRule(box, Thin(), 0.0, numbers.fThirdQuartile, numbers.fUpperWhisker, {});
    for (const double end : {numbers.fLowerWhisker, numbers.fUpperWhisker}) {
        AddRule(box, Thin(), kHalfWhisker, end, end, {});
    }
}

void BoxPen::AddRule(const Box& box, const MarkStyle& style, double halfWidth, double from,
                     double to, std::string popup)
{
    ResolvedMark mark;
    mark.fX = box.fPlace - halfWidth;
    mark.fX2 = box.fPlace + halfWidth;
    mark.fY = from;
    mark.fY2 = to;
    mark.fKey = fX->Key(box.FirstRow());
    mark.fPopup = std::move(popup);
    const bool isHelper = mark.fPopup.empty();
    MarkLayer& layer = LayerOf(fLayers, fFrom, MarkKind::Rule, style);
    layer.fHelper = isHelper;
    layer.fMarks.push_back(std::move(mark));
}

void BoxPen::AddBody(const Box& box)
{
    std::size_t category = 0;
    ResolvedMark mark;
    if (fColor) {
        mark.fSeries = fContext.fData.Find(fColor->fVariable)->Key(box.FirstRow());
        category = fSeries.Find(mark.fSeries).value_or(0);
    }
    mark.fX = box.fPlace - kHalfBox;
    mark.fX2 = box.fPlace + kHalfBox;
    mark.fY = box.fNumbers.fFirstQuartile;
    mark.fY2 = box.fNumbers.fThirdQuartile;
    mark.fKey = fX->Key(box.FirstRow());
    const tree::Popup* popup = FindPopup(fContext, fElement, {});
    mark.fPopup = popup ? PopupText(fContext, *popup, box.FirstRow()) : PopupOf(box);
    LayerOf(fLayers, fFrom, MarkKind::Rect, BoxTint(fColor, category))
        .fMarks.push_back(std::move(mark));
}

std::string BoxPen::PopupOf(const Box& box) const
{
    std::string text = box.fName;
    for (const BoxPart& part : kBoxParts) {
        text += '\n';
        AppendNamedValue(text, fContext.fWords.*part.fName,
                         fY->DerivedNumberText(box.fNumbers.*part.fNumber));
    }
    return text;
}

void BoxPen::AddMedian(const Box& box)
{
    MarkStyle style;
    style.fStroke = {Paint::Ink, {}};
    style.fStrokeWidth = 2.5;
    const tree::Popup* popup = FindPopup(fContext, fElement, kMedianPart);
    const std::string text =
        popup ? PopupText(fContext, *popup, box.FirstRow())
              : NamedValue(fContext.fWords.fMedian, fY->DerivedNumberText(box.fNumbers.fMedian));
    AddRule(box, style, kHalfBox, box.fNumbers.fMedian, box.fNumbers.fMedian,
            box.fName + "\n" + text);
}

void BoxPen::AddOutliers(const Box& box)
{
    MarkStyle style;
    style.fStroke = {Paint::Outline, {}};
    style.fFill = {Paint::Ground, {}};
    style.fStrokeWidth = 1.3;
    const std::vector<double>& outliers = box.fNumbers.fOutliers;
    if (outliers.empty()) return;
    const std::string key = fX->Key(box.FirstRow());
    const std::string title = fY->Title();
    MarkLayer& layer = LayerOf(fLayers, fFrom, MarkKind::Point, style);
    for (std::size_t place = 0; place < outliers.size(); ++place) {
        if (layer.fMarks.size() >= kMostMarks) return NoteCutMarks(fContext);
        ResolvedMark& mark = layer.fMarks.emplace_back();
        mark.fX = box.fPlace;
        mark.fY = outliers[place];
        mark.fKey = key;
        mark.fPopup = box.fName + '\n';
        AppendNamedValue(mark.fPopup, title, fY->NumberText(mark.fY));
        const std::string& label = box.fOutlierLabels[place];
        if (!label.empty()) mark.fPopup.append("\n").append(label);
    }
}

void BoxPen::AddOutlierNames(const Box& box, double range)
{
    double before = 0.0;
    bool isLeft = true;
    for (const double value : NamedOutliers(box.fNumbers)) {
        ResolvedMark mark;
        mark.fX = box.fPlace;
        mark.fY = value;
        if (const auto place = OutlierPlace(box.fNumbers, value)) {
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
        MarkLayer& layer = LayerOf(fLayers, fFrom, MarkKind::Text, style);
        layer.fHelper = true;
        layer.fMarks.push_back(std::move(mark));
    }
}

void BoxPen::AddRow(const Panel& panel, const Box& box)
{
    std::vector<std::string> cells = {box.fPlaceText};
    for (const BoxPart& part : kBoxParts) {
        cells.push_back(fY->DerivedNumberText(box.fNumbers.*part.fNumber));
    }
    std::string outliers;
    for (const double value : box.fNumbers.fOutliers) {
        outliers += (outliers.empty() ? "" : ", ") + fY->NumberText(value);
    }
    cells.push_back(std::move(outliers));
    Summarize(fContext, panel, std::move(cells));
}

void BoxPen::NameColumns()
{
    std::vector<std::string>& columns = fContext.fSummary.fColumns;
    if (!columns.empty()) return;
    columns.push_back(fTitle);
    for (const BoxPart& part : kBoxParts) {
        columns.emplace_back(fContext.fWords.*part.fName);
    }
    columns.emplace_back(fContext.fWords.fOutliers);
}

void Widen(PlotSpace& space, const Box& box)
{
    space.fX.fExtent.Take(box.fPlace - 0.5);
    space.fX.fExtent.Take(box.fPlace + 0.5);
    space.fY.fExtent.Take(box.fNumbers.fLowerWhisker);
    space.fY.fExtent.Take(box.fNumbers.fUpperWhisker);
    for (const double value : box.fNumbers.fOutliers) {
        space.fY.fExtent.Take(value);
    }
}

}  // namespace

void AddBoxes(ChartContext& context, const tree::Element& element, const Panel& panel,
              PlotSpace& space, std::vector<MarkLayer>& layers)
{
    BoxPen pen(context, element, space, layers);
    if (!pen.IsComplete()) return;
    const std::map<double, Group> groups = pen.GroupRows(panel);
    const std::vector<Box> boxes = pen.BoxesOf(groups);
    for (const Box& box : boxes) {
        pen.AddRow(panel, box);
        Widen(space, box);
    }
    const Extent range = RangeOf(groups);
    pen.Draw(boxes, range.fHigh - range.fLow);
    pen.NameColumns();
}

}  // namespace refhost
