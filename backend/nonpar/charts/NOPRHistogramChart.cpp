#include "charts/NOPRHistogramChart.h"

#include "charts/ChartWords.h"
#include "charts/Dates.h"
#include "charts/NumberText.h"
#include "charts/TemplateText.h"
#include "charts/ValueLabels.h"
#include "charts/ViewSteps.h"
#include "model/NOPROutputStats.h"

#include "host/chart/VarDataProcessor.h"
#include "host/chart/XDocument.h"
#include "host/chart/XGraph.h"
#include "host/data/OBS.h"
#include "host/data/QORT_Variable.h"

namespace {

constexpr char kTemplate[] = "NPARHistogram.viztemplate";
constexpr char kSource[] = "graphSource";
constexpr char kValue[] = "value";
constexpr char kCount[] = "count";

constexpr std::size_t kCountRow = 0;
constexpr std::size_t kValueRow = 1;

bool IsFrequencyTable(const NumericTable& table)
{
    return table.fRows.size() == 2 &&
           table.fRows[kCountRow].size() == table.fRows[kValueRow].size();
}

/// The table numbers a field's categories by position; they are drawn at their true values. What
/// is no such position is drawn as it stands.
void SetValue(VarDataProcessor& processor, int row, double tableValue, const OBS* category,
              const QORT_Format& format)
{
    if (category && format.fType == kStringFormat) {
        processor.SetStringVariableValue(kSource, kValue, row, StringValue(*category, format));
        return;
    }
    const double value = category ? category->Number() : tableValue;
    processor.SetVariableValue(kSource, kValue, row,
                               IsDateOnAxis(format.fType) ? HostSecondsFromDays(value) : value);
}

}  // namespace

struct NOPRHistogramChart::State {
    const FacSTDictionary* fDictionary;
    const NOPROutputStats* fStats;
    ChartString fTitle;
    const FieldInfoData* fField = nullptr;
};

NOPRHistogramChart::NOPRHistogramChart(const FacSTDictionary* dictionary,
                                       const NOPROutputStats* stats)
    : fState(std::make_unique<State>(State{dictionary, stats, {}}))
{
}

NOPRHistogramChart::~NOPRHistogramChart() = default;

void NOPRHistogramChart::SelectField(unsigned index)
{
    if (!fState->fStats) return;
    if (const FieldInfoData* field = fState->fStats->GetFieldInfo(index)) fState->fField = field;
}

void NOPRHistogramChart::SetTitle(const ChartString& title) { fState->fTitle = title; }

bool NOPRHistogramChart::Render(const std::string& splitText, bool appendSplit)
try {
    if (!fState->fStats || !fState->fField) return false;

    VarDataProcessor data;
    if (FillChartData(data) == 0) return false;

    std::string text = XDocument::fetchTemplateFile(kTemplate);
    if (text.empty()) return false;
    EditTemplate(text);

    XDocument document(text);
    PrepareDocument(document);
    SetTitles(document.getExternalGraph(), fState->fTitle, splitText);
    EditDocument(document);

    const ChartString description = Description(fState->fTitle, splitText, appendSplit);
    document.SetDescription(description.xc_str());
    document.SetChartData(&data);
    document.applyCTemplate(false);
    return Send(document);
} catch (...) {
    return false;
}

const NumericTable* NOPRHistogramChart::HistogramTable()
{
    const FieldInfoData* field = fState->fField;
    if (!field || (field->fIsCategorical && !field->fOrdinalAsContinuous)) return nullptr;
    return &field->fDistribution;
}

int NOPRHistogramChart::FillChartData(VarDataProcessor& processor)
{
    const NumericTable* table = HistogramTable();
    if (!table || !IsFrequencyTable(*table)) return 0;

    DeclareVariables(processor, kSource, {kValue, kCount});

    const auto fieldIndex = static_cast<unsigned>(fState->fField->fFieldIndex);
    const FieldInfoData* valuesField = fState->fStats->GetFieldInfo(fieldIndex);
    const QORT_Format format = DisplayFormat(GetVariable(), 0);
    const std::vector<double>& counts = table->fRows[kCountRow];
    const std::vector<double>& values = table->fRows[kValueRow];
    int row = 0;
    for (std::size_t column = 0; column < counts.size(); ++column, ++row) {
        processor.SetVariableValue(kSource, kCount, row, counts[column]);
        SetValue(processor, row, values[column], ValueAtPosition(valuesField, values[column]),
                 format);
    }
    return row;
}

void NOPRHistogramChart::EditTemplate(std::string&) {}

void NOPRHistogramChart::EditDocument(XDocument&) {}

const FacSTDictionary* NOPRHistogramChart::GetDictionary() const { return fState->fDictionary; }

const FieldInfoData* NOPRHistogramChart::GetField() const { return fState->fField; }

const QORT_Variable* NOPRHistogramChart::GetVariable() const { return VariableOf(fState->fField); }

void NOPRHistogramChart::NameAxes(std::string& text) const
{
    ReplaceToken(text, "xAxisLabel", PreferredLabel(GetVariable()));
    ReplaceTokenByWord(text, "yAxisLabel", fState->fDictionary, "Frequency");
}

void NOPRHistogramChart::BindValues(XDocument& document) const
{
    if (const QORT_Variable* variable = GetVariable())
        BindVariable(document.getExternalGraph().getVariable(kValue, 0), variable);
}
