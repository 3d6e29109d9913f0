#include "views/related/RSMcNemarChangeTestView.h"

#include "charts/ChartWords.h"
#include "charts/NumberText.h"
#include "charts/TemplateText.h"
#include "charts/ViewSteps.h"
#include "model/Positions.h"
#include "views/related/FacetGrid.h"

#include "host/chart/VarDataProcessor.h"
#include "host/chart/XDocument.h"
#include "host/chart/XGraph.h"

namespace {

using namespace facet;

constexpr char kHypothesizedTooltip[] = "HypothesizedTooltip";

constexpr int kObserved = 0;
constexpr int kHypothesized = 1;

}  // namespace

struct RSMcNemarChangeTestView::State {
    FacetSource fSource;
    int fRowCount = 0;

    void EditTemplate(std::string& text) const;
    void BindVariables(XGraph& graph, const FacetFields& fields) const;
    void BindFields(XGraph& graph, const FacetFields& fields) const;
};

RSMcNemarChangeTestView::RSMcNemarChangeTestView(
    const NOPROutputStats* stats, const NOPROutputStats::CategoryComparison* comparison,
    const FacSTDictionary* dictionary)
    : fState(std::make_unique<State>(State{{stats, comparison, dictionary}}))
{
}

RSMcNemarChangeTestView::~RSMcNemarChangeTestView() = default;

int RSMcNemarChangeTestView::FillChartData(VarDataProcessor& processor)
{
    DeclareVariables(
        processor, kSource,
        {kCellText, kColumn, kRow, kCategory, kCellValue, kObservedTooltip, kHypothesizedTooltip});
    const auto& rows = fState->fSource.fComparison->fTable.fRows;
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
    const auto& rows = fState->fSource.fComparison->fTable.fRows;
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
    processor.SetVariableValue(kSource, kRow, row, static_cast<double>(i));
    processor.SetVariableValue(kSource, kColumn, row, static_cast<double>(j));
    processor.SetVariableValue(kSource, kCategory, row, category);
    if (onDiagonal) {
        processor.SetStringVariableValue(kSource, kCellValue, row, "");
        processor.SetVariableValue(kSource, kCellText, row, observed);
    } else {
        processor.SetVariableValue(kSource, kCellValue, row,
                                   category == kObserved ? observed : hypothesized);
        processor.SetStringVariableValue(kSource, kCellText, row, "");
    }
    processor.SetVariableValue(kSource, kObservedTooltip, row, observed);
    processor.SetVariableValue(kSource, kHypothesizedTooltip, row, hypothesized);
}

bool RSMcNemarChangeTestView::Render(const std::string& splitText, bool appendSplit)
try {
    const State& state = *fState;
    if (!state.fSource.IsComplete()) return false;
    VarDataProcessor processor;
    if (FillChartData(processor) == 0) return false;

    const FacetRecipe recipe = {
        "Related-Samples McNemar Change Test",
        [&state](std::string& text) { state.EditTemplate(text); },
        [&state](XGraph& graph, const FacetFields& fields) { state.BindVariables(graph, fields); }};
    return DrawFacets(state.fSource, recipe, processor, splitText, appendSplit);
} catch (...) {
    return false;
}

void RSMcNemarChangeTestView::State::EditTemplate(std::string& text) const
{
    ChartString tooltip = LookUpText(fSource.fDictionary, "Observed");
    tooltip.append("=$[0]$ &#10;");
    tooltip.append(LookUpText(fSource.fDictionary, "Hypothesized"));
    tooltip.append("=$[1]$");
    ReplaceToken(text, "tooltipText", tooltip.toUTF8());
    if (!XDocument::useColorsOnly()) ReplaceToken(text, "<color", "<pattern");
}

void RSMcNemarChangeTestView::State::BindVariables(XGraph& graph, const FacetFields& fields) const
{
    BindFields(graph, fields);
    const FacSTDictionary* dictionary = fSource.fDictionary;
    XVariable category = graph.getVariable("category", 0);
    category.setLabel(LookUpText(dictionary, "E62935").xc_str());
    category.addRelabel(kObserved, LookUpText(dictionary, "Observed").xc_str());
    category.addRelabel(kHypothesized, LookUpText(dictionary, "Hypothesized").xc_str());
}

/// The columns take texts only: the template's own variable keeps its format.
void RSMcNemarChangeTestView::State::BindFields(XGraph& graph, const FacetFields& fields) const
{
    const QORT_Variable* rowVariable = VariableOf(fields.fRow);
    if (!rowVariable || !VariableOf(fields.fColumn)) return;
    const NOPROutputStats::CategoryComparison& comparison = *fSource.fComparison;
    XVariable row = graph.getVariable(kRow, 0);
    BindVariable(row, rowVariable);
    if (!comparison.fRowSuccessList.empty() && !comparison.fRowFailList.empty())
        RelabelCategories(row, fields.fRow, comparison.fRowSuccessList, comparison.fRowFailList,
                          comparison.fRowValsNotInCategories);
    XVariable column = graph.getVariable(kColumn, 0);
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
        if (const FieldValue* value = ElementAt(field->fValues, CutToInt(list[n]))) {
            result += value->fLabel;
            continue;
        }
        const std::string text = usedTexts < texts.size() ? texts[usedTexts] : std::string();
        result += text.empty() ? FormatValue(static_cast<double>(n), nullptr) : text;
        ++usedTexts;
    }
    return result;
}
