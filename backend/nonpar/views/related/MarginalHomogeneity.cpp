#include "views/related/MarginalHomogeneity.h"

#include "charts/ChartWords.h"
#include "charts/NumberText.h"
#include "charts/TemplateText.h"
#include "charts/ViewSteps.h"
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

/// The popup names one token only, so the mapping of the second goes.
void EraseSecondTokenMapping(std::string& text)
{
    constexpr std::string_view kMapping = "<tokenMapping";
    constexpr std::string_view kEnd = "/>";
    const std::size_t first = text.find(kMapping);
    if (first == std::string::npos) return;
    const std::size_t second = text.find(kMapping, first + kMapping.size());
    if (second == std::string::npos) return;
    const std::size_t end = text.find(kEnd, second);
    if (end == std::string::npos) return;
    text.erase(second, end + kEnd.size() - second);
}

/// Binds a variable of the grid to a field and names its positions by the field's values.
void BindField(XGraph& graph, const char* name, const FieldInfoData* field)
{
    const QORT_Variable* hostVariable = VariableOf(field);
    if (!hostVariable) return;
    XVariable variable = graph.getVariable(name, 0);
    BindVariable(variable, hostVariable);
    for (const FieldValue& value : field->fValues) {
        const ChartString key = IntegerText(value.fValueIndex);
        const OBS* obs = value.fValue.GetObsValue();
        if (value.fLabel.empty() && obs)
            variable.addRelabel(key.xc_str(), obs);
        else
            variable.addRelabel(key.xc_str(), ChartString(value.fLabel).xc_str());
    }
}

}  // namespace

struct MarginalHomogeneity::State {
    const NOPROutputStats* fStats;
    const NOPROutputStats::CategoryComparison* fComparison;
    const FacSTDictionary* fDictionary;

    void EditTemplate(std::string& text, const ChartString& title, const FacetFields& fields) const;
    void BindVariables(XGraph& graph, const ChartString& title, const std::string& splitText,
                       const FacetFields& fields) const;
};

MarginalHomogeneity::MarginalHomogeneity(const NOPROutputStats* stats,
                                         const NOPROutputStats::CategoryComparison* comparison,
                                         const FacSTDictionary* dictionary)
    : fState(std::make_unique<State>(State{stats, comparison, dictionary}))
{
}

MarginalHomogeneity::~MarginalHomogeneity() = default;

int MarginalHomogeneity::FillChartData(VarDataProcessor& processor) const
{
    processor.AddDataSource(kFacetSource, 0);
    for (const char* variable : {kCellText, kColumn, kRow, kCategory, kCellValue, kObservedTooltip})
        processor.AddVariable(kFacetSource, variable, nullptr);
    int row = 0;
    const auto& rows = fState->fComparison->fTable.fRows;
    for (std::size_t i = 0; i < rows.size(); ++i) {
        for (std::size_t j = 0; j < rows[i].size(); ++j, ++row) {
            const double count = rows[i][j];
            processor.SetVariableValue(kFacetSource, kRow, row, static_cast<double>(i));
            processor.SetVariableValue(kFacetSource, kColumn, row, static_cast<double>(j));
            processor.SetVariableValue(kFacetSource, kCategory, row, 0);
            processor.SetVariableValue(kFacetSource, i == j ? kCellText : kCellValue, row, count);
            processor.SetVariableValue(kFacetSource, kObservedTooltip, row, count);
        }
    }
    return row;
}

bool MarginalHomogeneity::Render(const std::string& splitText, bool appendSplit)
try {
    const State& state = *fState;
    if (!state.fStats || !state.fComparison) return false;

    VarDataProcessor processor;
    if (FillChartData(processor) == 0) return false;

    std::string text = XDocument::fetchTemplateFile(kFacetTemplate);
    if (text.empty()) return false;
    const ChartString title =
        LookUpText(state.fDictionary, "Related-Samples Marginal Homogeneity Test");
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

void MarginalHomogeneity::State::EditTemplate(std::string& text, const ChartString& title,
                                              const FacetFields& fields) const
{
    NameFacets(text, title, fields);
    ReplaceToken(text, "tooltipText", LookUpText(fDictionary, "Observed").toUTF8() + "=$[0]$");
    EraseElement(text, "<legend", "</legend>");
    EraseSecondTokenMapping(text);
}

/// A failure here loses the settings that follow, not the chart.
void MarginalHomogeneity::State::BindVariables(XGraph& graph, const ChartString& title,
                                               const std::string& splitText,
                                               const FacetFields& fields) const
try {
    XVariable cellText = graph.getVariable("celltext", 0);
    cellText.SetFormatPrefix(CellPrefix(fDictionary).xc_str());
    SetTitles(graph, title, splitText);
    BindField(graph, "Row", fields.fRow);
    BindField(graph, "Column", fields.fColumn);
} catch (...) {
    return;
}
