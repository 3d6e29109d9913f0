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

using namespace facet;

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
    FacetSource fSource;

    void EditTemplate(std::string& text) const;
};

MarginalHomogeneity::MarginalHomogeneity(const NOPROutputStats* stats,
                                         const NOPROutputStats::CategoryComparison* comparison,
                                         const FacSTDictionary* dictionary)
    : fState(std::make_unique<State>(State{{stats, comparison, dictionary}}))
{
}

MarginalHomogeneity::~MarginalHomogeneity() = default;

int MarginalHomogeneity::FillChartData(VarDataProcessor& processor) const
{
    DeclareVariables(processor, kSource,
                     {kCellText, kColumn, kRow, kCategory, kCellValue, kObservedTooltip});
    int row = 0;
    const auto& rows = fState->fSource.fComparison->fTable.fRows;
    for (std::size_t i = 0; i < rows.size(); ++i) {
        for (std::size_t j = 0; j < rows[i].size(); ++j, ++row) {
            const double count = rows[i][j];
            processor.SetVariableValue(kSource, kRow, row, static_cast<double>(i));
            processor.SetVariableValue(kSource, kColumn, row, static_cast<double>(j));
            processor.SetVariableValue(kSource, kCategory, row, 0);
            processor.SetVariableValue(kSource, i == j ? kCellText : kCellValue, row, count);
            processor.SetVariableValue(kSource, kObservedTooltip, row, count);
        }
    }
    return row;
}

bool MarginalHomogeneity::Render(const std::string& splitText, bool appendSplit)
try {
    const State& state = *fState;
    if (!state.fSource.IsComplete()) return false;
    VarDataProcessor processor;
    if (FillChartData(processor) == 0) return false;

    const FacetRecipe recipe = {"Related-Samples Marginal Homogeneity Test",
                                [&state](std::string& text) { state.EditTemplate(text); },
                                [](XGraph& graph, const FacetFields& fields) {
                                    BindField(graph, kRow, fields.fRow);
                                    BindField(graph, kColumn, fields.fColumn);
                                }};
    return DrawFacets(state.fSource, recipe, processor, splitText, appendSplit);
} catch (...) {
    return false;
}

void MarginalHomogeneity::State::EditTemplate(std::string& text) const
{
    ReplaceToken(text, "tooltipText",
                 LookUpText(fSource.fDictionary, "Observed").toUTF8() + "=$[0]$");
    EraseElement(text, "<legend", "</legend>");
    EraseSecondTokenMapping(text);
}
