#include "charts/NOPRStackedChart.h"

#include <algorithm>

#include "charts/ChartWords.h"
#include "charts/NumberText.h"
#include "charts/TemplateText.h"
#include "charts/ViewSteps.h"

#include "host/chart/VarDataProcessor.h"
#include "host/chart/XDocument.h"
#include "host/chart/XGraph.h"

namespace {

constexpr char kTemplate[] = "NPARStackedBar.viztemplate";
constexpr char kSource[] = "graphSource";
constexpr char kBar[] = "categories";
constexpr char kSegment[] = "type";
constexpr char kPercentage[] = "value";
constexpr char kTooltip[] = "tooltip";

constexpr std::string_view kScaling = "scalingFactor=";
constexpr std::size_t kScalingOffset = kScaling.size() + 1;  // behind the opening quote
constexpr std::size_t kScalingLength = 1;

/// A percentage divided by this is a count of cases.
double ScalingFactor(const NOPROutputStats* stats)
{
    const int total = stats ? stats->GetTotalFreq() : 0;
    return 100.0 / static_cast<unsigned>(total);
}

}  // namespace

struct NOPRStackedChart::State {
    const FacSTDictionary* fDictionary;
    const NOPROutputStats* fStats;
    std::string fTitleKey;
};

NOPRStackedChart::NOPRStackedChart(const FacSTDictionary* dictionary, const NOPROutputStats* stats)
    : fState(std::make_unique<State>(State{dictionary, stats, {}}))
{
}

NOPRStackedChart::~NOPRStackedChart() = default;

void NOPRStackedChart::SetTitleKey(const std::string& key) { fState->fTitleKey = key; }

void NOPRStackedChart::EditTemplate(std::string&) {}

void NOPRStackedChart::EditDocument(XDocument&) {}

bool NOPRStackedChart::Render(const std::string& splitText, bool appendSplit)
try {
    const NumericTable* table = ChartTable();
    if (!table) return false;

    VarDataProcessor data;
    if (FillChartData(*table, data) == 0) return false;

    std::string text = XDocument::fetchTemplateFile(kTemplate);
    if (text.empty()) return false;
    OverwriteBehind(text, kScaling, kScalingOffset, kScalingLength,
                    ExactText(ScalingFactor(fState->fStats)).toUTF8());
    ReplaceTokenByWord(text, "yAxisLabel", fState->fDictionary, "Frequency");
    EditTemplate(text);

    XDocument document(text);
    PrepareDocument(document);
    const ChartString title = LookUpText(fState->fDictionary, fState->fTitleKey);
    SetTitles(document.getExternalGraph(), title, splitText);

    const ChartString description = Description(title, splitText, appendSplit);
    document.SetDescription(description.xc_str());
    document.SetChartData(&data);
    EditDocument(document);  // in the place where other charts apply the host's template
    return Send(document);
} catch (...) {
    return false;
}

int NOPRStackedChart::FillChartData(const NumericTable& table, VarDataProcessor& processor)
{
    DeclareVariables(processor, kSource, {kBar, kSegment, kPercentage, kTooltip});

    const std::size_t barCount = std::min(table.fRowNames.size(), table.fRows.size());
    int row = 0;
    for (std::size_t bar = 0; bar < barCount; ++bar)
        row = FillBar(table, bar, row, processor);
    return row;
}

int NOPRStackedChart::FillBar(const NumericTable& table, std::size_t bar, int row,
                              VarDataProcessor& processor)
{
    const std::string rowName(table.fRowNames[bar]);
    const std::vector<double>& percentages = table.fRows[bar];
    const std::size_t segmentCount = std::min(table.fColumnNames.size(), percentages.size());
    const std::string barText = SeriesLabel(rowName);

    QORT_Format format = PlainFormat(0);
    std::vector<std::string> segmentTexts;
    std::string wholeBar;
    for (std::size_t segment = 0; segment < segmentCount; ++segment) {
        const std::string columnName(table.fColumnNames[segment]);
        segmentTexts.push_back(CategoryLabel(rowName, columnName, false));
        wholeBar += segmentTexts.back() + " " + FormatValue(percentages[segment], &format) + "%\n";
    }

    for (std::size_t segment = 0; segment < segmentCount; ++segment, ++row) {
        processor.SetStringVariableValue(kSource, kBar, row, barText);
        processor.SetStringVariableValue(kSource, kSegment, row, segmentTexts[segment]);
        processor.SetVariableValue(kSource, kPercentage, row, percentages[segment]);
        processor.SetStringVariableValue(kSource, kTooltip, row, wholeBar);
    }
    return row;
}

const FacSTDictionary* NOPRStackedChart::GetDictionary() const { return fState->fDictionary; }

const NOPROutputStats* NOPRStackedChart::GetStats() const { return fState->fStats; }
