#include "charts/Boxplot.h"

#include <algorithm>
#include <map>
#include <utility>

#include "charts/ChartWords.h"
#include "charts/NumberText.h"
#include "charts/TemplateText.h"
#include "charts/ValueLabels.h"
#include "charts/ViewSteps.h"
#include "model/TestQueries.h"

#include "host/chart/ChartString.h"
#include "host/chart/VarDataProcessor.h"
#include "host/chart/XDocument.h"
#include "host/chart/XGraph.h"
#include "host/data/QORT_Variable.h"

namespace {

constexpr char kTemplate[] = "NPARBoxplot.viztemplate";
constexpr char kSource[] = "boxplotSource";
constexpr char kValue[] = "Value";
constexpr char kLabel[] = "Label";
constexpr char kCategory[] = "Category";
constexpr char kTooltips[] = "Tooltips";

/// What row 0 of a group's box holds, in order.
enum BoxNumber : std::size_t {
    kLowerWhisker,
    kFirstQuartile,
    kMedian,
    kThirdQuartile,
    kUpperWhisker,
    kBoxNumberCount
};

/// The values of a group's made-up rows, and the label numbers of its outliers.
struct BoxRows {
    std::vector<double> fValues;
    std::map<double, double> fLabels;
};

bool HasBox(const NOPROutputStats::BoxGroup& group)
{
    return !group.fBox.fRows.empty() && group.fBox.fRows[0].size() >= kBoxNumberCount;
}

/// One half of a box: its outliers, its whisker, and its quartile as often as all of these.
void CloseHalf(std::vector<double>& half, double whisker, double quartile)
{
    half.push_back(whisker);
    half.push_back(quartile);
    half.insert(half.end(), half.size() - 1, quartile);
}

/// Grows the shorter half by its own middle element, which leaves its quartile where it is.
void Level(std::vector<double>& lower, std::vector<double>& upper)
{
    std::vector<double>& shorter = lower.size() < upper.size() ? lower : upper;
    const std::size_t size = std::max(lower.size(), upper.size());
    while (shorter.size() < size) {
        const double middle = shorter[shorter.size() / 2];
        shorter.push_back(middle);
    }
}

/// Rows whose quartiles, whiskers and outliers come out as the document's own.
BoxRows RowsOf(const NOPROutputStats::BoxGroup& group)
{
    const std::vector<double>& box = group.fBox.fRows[0];
    const std::vector<std::vector<double>>& outliers = group.fOutliers.fRows;
    BoxRows rows;
    std::vector<double> upper;
    std::vector<double>& lower = rows.fValues;
    for (std::size_t outlier = 0; !outliers.empty() && outlier < outliers[0].size(); ++outlier) {
        const double value = outliers[0][outlier];
        if (outliers.size() > 1 && outlier < outliers[1].size())
            rows.fLabels[value] = outliers[1][outlier];
        (box[kMedian] <= value ? upper : lower).push_back(value);
    }
    CloseHalf(lower, box[kLowerWhisker], box[kFirstQuartile]);
    CloseHalf(upper, box[kUpperWhisker], box[kThirdQuartile]);
    Level(lower, upper);
    lower.push_back(box[kMedian]);
    lower.insert(lower.end(), upper.begin(), upper.end());
    return rows;
}

/// Writes the rows of a group from `row` on; the row behind them.
int WriteRows(const BoxRows& rows, const std::vector<double>& codes, int row,
              VarDataProcessor& processor)
{
    const std::string tooltip = codes.size() > 1 ? FormatFixed(codes[1], 40, 2) : std::string();
    for (const double value : rows.fValues) {
        processor.SetVariableValue(kSource, kValue, row, value);
        if (const auto label = rows.fLabels.find(value); label != rows.fLabels.end())
            processor.SetVariableValue(kSource, kLabel, row, label->second);
        if (!codes.empty()) processor.SetVariableValue(kSource, kCategory, row, codes[0]);
        if (codes.size() > 1) processor.SetStringVariableValue(kSource, kTooltips, row, tooltip);
        ++row;
    }
    return row;
}

}  // namespace

struct Boxplot::State {
    const FacSTDictionary* fDictionary;
    const NOPROutputStats* fStats;
    ChartString fTitle;
    const FieldInfoData* fGroupField = nullptr;
    const FieldInfoData* fTestField = nullptr;
    const NOPROutputStats::BoxPlotData* fBoxPlot = nullptr;
    const NOPROutputStats::ConditionData* fCondition = nullptr;
};

Boxplot::Boxplot(const FacSTDictionary* dictionary, const NOPROutputStats* stats)
    : fState(std::make_unique<State>(State{dictionary, stats, {}}))
{
}

Boxplot::~Boxplot() = default;

bool Boxplot::Render(const std::string& splitText, bool appendSplit)
try {
    if (!fState->fStats) return false;

    VarDataProcessor data;
    if (FillChartData(data) == 0) return false;

    std::string text = XDocument::fetchTemplateFile(kTemplate);
    if (text.empty()) return false;
    NameAxes(text);
    EditTemplate(text);

    XDocument document(text);
    PrepareDocument(document);
    EditDocument(document);  // before the graph is touched
    XGraph& graph = document.getExternalGraph();
    SetTitles(graph, fState->fTitle, splitText);
    BindVariables(graph);

    const ChartString description = Description(fState->fTitle, splitText, appendSplit);
    document.SetDescription(description.xc_str());
    document.SetChartData(&data);
    document.applyCTemplate(false);
    return Send(document);
} catch (...) {
    return false;
}

int Boxplot::FillChartData(VarDataProcessor& processor)
{
    if (!fState->fBoxPlot || !fState->fCondition || !fState->fStats) return 0;
    SettleFields();

    DeclareVariables(processor, kSource, {kValue, kLabel, kCategory, kTooltips});

    int row = 0;
    for (const NOPROutputStats::BoxGroup& group : fState->fBoxPlot->fGroups) {
        const std::vector<double> codes = CategoryCodes(group);  // a group without a box counts too
        if (HasBox(group)) row = WriteRows(RowsOf(group), codes, row, processor);
    }
    return row;
}

std::vector<double> Boxplot::CategoryCodes(const NOPROutputStats::BoxGroup& group)
{
    return {static_cast<double>(group.fGroupIndex)};
}

void Boxplot::EditTemplate(std::string&) {}

void Boxplot::EditDocument(XDocument&) {}

void Boxplot::SettleFields()
{
    const std::vector<double> fields = ConditionFields(*fState->fCondition);
    if (fields.size() < 2 || fState->fStats->GetFieldInfos().size() < 2) return;
    fState->fGroupField = FieldAt(fState->fStats, fields[1]);
    fState->fTestField = FieldAt(fState->fStats, fields[0]);
}

void Boxplot::NameAxes(std::string& text) const
{
    if (const QORT_Variable* variable = VariableOf(fState->fTestField))
        ReplaceToken(text, "yAxisText", PreferredLabel(variable));
    if (const QORT_Variable* variable = VariableOf(fState->fGroupField))
        ReplaceToken(text, "xAxisText", PreferredLabel(variable));
}

void Boxplot::BindVariables(XGraph& graph) const
{
    if (const QORT_Variable* variable = VariableOf(fState->fTestField))
        BindVariable(graph.getVariable(kValue, 0), variable);
    if (const QORT_Variable* variable = VariableOf(fState->fGroupField)) {
        XVariable category = graph.getVariable(kCategory, 0);
        ApplyValueLabels(fState->fGroupField, category);
        category.setQORTVariable(variable);
        category.setLabel(LookUpText(fState->fDictionary, "E62935").xc_str());
    }
}

void Boxplot::SetBoxPlot(const NOPROutputStats::BoxPlotData* boxPlot)
{
    fState->fBoxPlot = boxPlot;
}

void Boxplot::SetCondition(const NOPROutputStats::ConditionData* condition)
{
    fState->fCondition = condition;
}

void Boxplot::SetTitle(const ChartString& title) { fState->fTitle = title; }

const FacSTDictionary* Boxplot::GetDictionary() const { return fState->fDictionary; }

const NOPROutputStats::BoxPlotData* Boxplot::GetBoxPlot() const { return fState->fBoxPlot; }

const FieldInfoData* Boxplot::GetTestField() const { return fState->fTestField; }
