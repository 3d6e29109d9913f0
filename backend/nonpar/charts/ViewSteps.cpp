#include "charts/ViewSteps.h"

#include "model/NOPRTestRecords.h"
#include "model/Positions.h"

#include "host/chart/VarDataProcessor.h"
#include "host/chart/XDocument.h"
#include "host/chart/XGraph.h"

namespace {

constexpr int kChartEditor = 2;

}  // namespace

void DeclareVariables(VarDataProcessor& processor, const char* source,
                      std::initializer_list<const char*> variables)
{
    processor.AddDataSource(source, 0);
    for (const char* variable : variables)
        processor.AddVariable(source, variable, nullptr);
}

void PrepareDocument(XDocument& document)
{
    document.setEditor(kChartEditor);
    document.setLanguage();
}

void SetSplitSubtitle(XGraph& graph, const std::string& splitText)
{
    if (!splitText.empty()) graph.setSubtitle(ChartString(splitText).xc_str());
}

void SetTitles(XGraph& graph, const ChartString& title, const std::string& splitText)
{
    graph.setTitle(title.xc_str());
    SetSplitSubtitle(graph, splitText);
}

void BindVariable(XVariable variable, const QORT_Variable* hostVariable)
{
    variable.setQORTVariable(hostVariable);
    variable.setFormatBasedOnQORTVariable(hostVariable);
}

ChartString Description(const ChartString& title, const std::string& splitText, bool appendSplit)
{
    ChartString description = title;
    if (appendSplit) description.append("; " + splitText);
    return description;
}

bool Send(XDocument& document)
{
    try {
        document.SendChart(/*visible=*/true, /*replace=*/false, /*silent=*/false);
    } catch (...) {  // the host has the chart; what it makes of it is not the view's
    }
    return true;
}

const QORT_Variable* VariableOf(const FieldInfoData* field)
{
    return field ? field->fVariable : nullptr;
}

const FieldInfoData* FieldAt(const NOPROutputStats* stats, double index)
{
    return stats ? stats->GetFieldInfo(static_cast<unsigned>(CutToInt(index))) : nullptr;
}

const std::vector<NOPROutputStats::ConditionParameter>& ParametersOf(
    const NOPROutputStats::BaseHypothesisTest* test)
{
    static const std::vector<NOPROutputStats::ConditionParameter> kNone;
    return test ? test->fCondition.fParameters : kNone;
}

std::optional<double> FirstValue(const std::vector<NOPROutputStats::ConditionParameter>& parameters,
                                 std::size_t position)
{
    if (position >= parameters.size() || parameters[position].fValues.empty()) return {};
    return parameters[position].fValues.front();
}
