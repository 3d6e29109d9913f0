#include "views/related/RSMcNemarChangeTestView.h"

#include "charts/ChartWords.h"
#include "charts/NumberText.h"
#include "charts/TemplateText.h"
#include "charts/ViewSteps.h"
#include "model/RecordOf.h"
#include "views/related/FacetGrid.h"

#include "host/chart/VarDataProcessor.h"
#include "host/chart/XDocument.h"
#include "host/chart/XGraph.h"

namespace {

constexpr char kCellText[] = "CellText";
constexpr char kColumn[] = "Column";
constexpr char kRow[] = "Row";
constexpr char kCategory[] = "Category";
constexpr char kCellValue[] = "CellValue";
constexpr char kObservedTooltip[] = "ObservedTooltip";
constexpr char kHypothesizedTooltip[] = "HypothesizedTooltip";

constexpr int kObserved = 0;
constexpr int kHypothesized = 1;

}  // namespace

struct RSMcNemarChangeTestView::State {
    const NOPROutputStats* fStats;
    const NOPROutputStats::CategoryComparison* fComparison;
    const FacSTDictionary* fDictionary;
    int fRowCount = 0;

    void EditTemplate(std::string& text, const ChartString& title, const FacetFields& fields) const;
    void BindVariables(XGraph& graph, const ChartString& title, const std::string& splitText,
                       const FacetFields& fields) const;
    void BindFields(XGraph& graph, const FacetFields& fields) const;
};

RSMcNemarChangeTestView::RSMcNemarChangeTestView(
    const NOPROutputStats* stats, const NOPROutputStats::CategoryComparison* comparison,
    const FacSTDictionary* dictionary)
    : fState(std::make_unique<State>(State{stats, comparison, dictionary}))
{
}

RSMcNemarChangeTestView::~RSMcNemarChangeTestView() = default;

int RSMcNemarChangeTestView::FillChartData(VarDataProcessor& processor)
{
    processor.AddDataSource(kFacetSource, 0);
    for (const char* variable :
         {kCellText, kColumn, kRow, kCategory, kCellValue, kObservedTooltip, kHypothesizedTooltip})
        processor.AddVariable(kFacetSource, variable, nullptr);
    const auto& rows = fState->fComparison->fTable.fRows;
    for (std::size_t i = 0; i < rows.size(); ++i) {
        for (std::size_t j = 0; j < rows[i].size(); ++j) {
            const std::vector<double> values = CellValues(i, j);
            WriteCellRow(processor, i, j, values, kObserved);
            if (i != j) WriteCellRow(processor, i, j, values, kHypothesized);
        }
    }
    return fState->fRowCount;
}

std::vector<double> RSMcNemarChangeTestView::CellValues(std::size_t i, std::size_t j) const
{
    const auto& rows = fState->fComparison->fTable.fRows;
    const double observed = rows[i][j];
    if (i == j || j >= rows.size() || i >= rows[j].size()) return {observed};
    return {observed, (observed + rows[j][i]) * 0.5};
}

void RSMcNemarChangeTestView::WriteCellRow(VarDataProcessor& processor, std::size_t i,
                                           std::size_t j, const std::vector<double>& values,
                                           int category)
{
    const int row = fState->fRowCount++;
    const double observed = values.empty() ? 0.0 : values[0];
    const double hypothesized = values.size() < 2 ? 0.0 : values[1];
    const bool onDiagonal = i == j;
    processor.SetVariableValue(kFacetSource, kRow, row, static_cast<double>(i));
    processor.SetVariableValue(kFacetSource, kColumn, row, static_cast<double>(j));
    processor.SetVariableValue(kFacetSource, kCategory, row, category);
    if (onDiagonal) {
        processor.SetStringVariableValue(kFacetSource, kCellValue, row, "");
        processor.SetVariableValue(kFacetSource, kCellText, row, observed);
    } else {
        processor.SetVariableValue(kFacetSource, kCellValue, row,
                                   category == kObserved ? observed : hypothesized);
        processor.SetStringVariableValue(kFacetSource, kCellText, row, "");
    }
    processor.SetVariableValue(kFacetSource, kObservedTooltip, row, observed);
    processor.SetVariableValue(kFacetSource, kHypothesizedTooltip, row, hypothesized);
}

bool RSMcNemarChangeTestView::Render(const std::string& splitText, bool appendSplit)
try {
    const State& state = *fState;
    if (!state.fStats || !state.fComparison) return false;

    VarDataProcessor processor;
    if (FillChartData(processor) == 0) return false;

    std::string text = XDocument::fetchTemplateFile(kFacetTemplate);
    if (text.empty()) return false;
    const ChartString title = LookUpText(state.fDictionary, "Related-Samples McNemar Change Test");
    const FacetFields fields = FieldsOf(state.fStats, *state.fComparison);
    state.EditTemplate(text, title, fields);

    XDocument document(text);
    PrepareDocument(document);
    document.SetChartData(&processor);
    state.BindVariables(document.getExternalGraph(), title, splitText, fields);

    const ChartString description = Description(title, splitText, appendSplit);
    document.SetDescription(description.xc_str());
    document.applyCTemplate(false);
    return Send(document);
} catch (...) {
    return false;
}

void RSMcNemarChangeTestView::State::EditTemplate(std::string& text, const ChartString& title,
                                                  const FacetFields& fields) const
{
    NameFacets(text, title, fields);
    ChartString tooltip = LookUpText(fDictionary, "Observed");
    tooltip.append("=$[0]$ &#10;");
    tooltip.append(LookUpText(fDictionary, "Hypothesized"));
    tooltip.append("=$[1]$");
    ReplaceToken(text, "tooltipText", tooltip.toUTF8());
    if (!XDocument::useColorsOnly()) ReplaceToken(text, "<color", "<pattern");
}

/// A failure here loses the settings that follow, not the chart.
void RSMcNemarChangeTestView::State::BindVariables(XGraph& graph, const ChartString& title,
                                                   const std::string& splitText,
                                                   const FacetFields& fields) const
try {
    XVariable cellText = graph.getVariable("celltext", 0);
    cellText.SetFormatPrefix(CellPrefix(fDictionary).xc_str());
    SetTitles(graph, title, splitText);
    BindFields(graph, fields);
    XVariable category = graph.getVariable("category", 0);
    category.setLabel(LookUpText(fDictionary, "E62935").xc_str());
    category.addRelabel(kObserved, LookUpText(fDictionary, "Observed").xc_str());
    category.addRelabel(kHypothesized, LookUpText(fDictionary, "Hypothesized").xc_str());
} catch (...) {
    return;
}

/// The columns take texts only: the template's own variable keeps its format.
void RSMcNemarChangeTestView::State::BindFields(XGraph& graph, const FacetFields& fields) const
{
    const QORT_Variable* rowVariable = VariableOf(fields.fRow);
    if (!rowVariable || !VariableOf(fields.fColumn)) return;
    const NOPROutputStats::CategoryComparison& comparison = *fComparison;
    XVariable row = graph.getVariable("Row", 0);
    BindVariable(row, rowVariable);
    if (!comparison.fRowSuccessList.empty() && !comparison.fRowFailList.empty())
        RelabelCategories(row, fields.fRow, comparison.fRowSuccessList, comparison.fRowFailList,
                          comparison.fRowValsNotInCategories);
    XVariable column = graph.getVariable("Column", 0);
    if (!comparison.fColumnSuccessList.empty() && !comparison.fColumnFailList.empty())
        RelabelCategories(column, fields.fColumn, comparison.fColumnSuccessList,
                          comparison.fColumnFailList, comparison.fColumnValsNotInCategories);
}

void RSMcNemarChangeTestView::RelabelCategories(XVariable variable, const FieldInfoData* field,
                                                const std::vector<double>& first,
                                                const std::vector<double>& second,
                                                const std::vector<std::string>& texts)
{
    variable.addRelabel(0u, ChartString(CategoryText(field, first, texts)).xc_str());
    variable.addRelabel(1u, ChartString(CategoryText(field, second, texts)).xc_str());
}

std::string RSMcNemarChangeTestView::CategoryText(const FieldInfoData* field,
                                                  const std::vector<double>& list,
                                                  const std::vector<std::string>& texts)
{
    std::string result;
    if (!field) return result;
    std::size_t usedTexts = 0;
    for (std::size_t n = 0; n < list.size(); ++n) {
        if (n > 0) result += ',';
        const int value = CutToInt(list[n]);
        if (value >= 0 && static_cast<std::size_t>(value) < field->fValues.size()) {
            result += field->fValues[static_cast<std::size_t>(value)].fLabel;
            continue;
        }
        const std::string text = usedTexts < texts.size() ? texts[usedTexts] : std::string();
        result += text.empty() ? FormatValue(static_cast<double>(n), nullptr) : text;
        ++usedTexts;
    }
    return result;
}
