#include "views/related/RSHistogram.h"

#include <algorithm>
#include <set>
#include <vector>

#include "charts/ChartWords.h"
#include "charts/NumberText.h"
#include "charts/TemplateText.h"
#include "charts/ViewSteps.h"

#include "host/chart/VarDataProcessor.h"
#include "host/chart/XDocument.h"
#include "host/chart/XGraph.h"
#include "host/data/QORT_Variable.h"

namespace {

constexpr char kSource[] = "graphSource";
constexpr char kCounts[] = "COUNTS";
constexpr char kMeans[] = "MEANS";
constexpr char kLabelName[] = "LABELNAME";
constexpr char kTypes[] = "TYPES";

constexpr std::size_t kFieldsInTemplateFrame = 3;
constexpr double kWidthPerField = 0.5;
constexpr double kGreatestWidth = 3.0;
constexpr double kHeight = 1.2;

/// The fields in the order in which the condition lists them.
void SetCategoryOrder(std::string& text, const NOPROutputStats::ConditionData& condition)
{
    if (condition.fParameters.empty() || condition.fParameters.front().fIndex != 0) return;
    std::string order;
    for (const double field : condition.fParameters.front().fValues) {
        if (!order.empty()) order += ';';
        order += FormatValue(field, nullptr);
    }
    ReplaceToken(text, "categoryOrder1", order);
}

}  // namespace

struct RSHistogram::State {
    const FacSTDictionary* fDictionary;
    const NOPROutputStats* fStats;
    const char* fTitleKey = nullptr;
    const std::vector<NOPROutputStats::RankGroup>* fGroups = nullptr;  ///< null without a record
    const NOPROutputStats::ConditionData* fCondition = nullptr;
    std::set<int> fFieldSet;
    std::vector<double> fMeanRanks;

    template <class Record>
    void TakeTest(const char* titleKey, const Record* test)
    {
        if (!test) return;
        fTitleKey = titleKey;
        fGroups = &test->fGroups;
        fCondition = &test->fCondition;
    }

    void EditTemplate(std::string& text) const;
    void SetFrame(XGraph& graph) const;
    void NameFields(XGraph& graph) const;
    void NameMeanRanks(XGraph& graph) const;
};

RSHistogram::RSHistogram(const FacSTDictionary* dictionary, const NOPROutputStats* stats)
    : fState(std::make_unique<State>())
{
    fState->fDictionary = dictionary;
    fState->fStats = stats;
}

RSHistogram::RSHistogram(const FacSTDictionary* dictionary, const NOPROutputStats* stats,
                         const NOPROutputStats::HTRKendallsCoefficient* test)
    : RSHistogram(dictionary, stats)
{
    fState->TakeTest("Related-Samples Kendall's Coefficient of Concordance", test);
}

RSHistogram::RSHistogram(const FacSTDictionary* dictionary, const NOPROutputStats* stats,
                         const NOPROutputStats::HTRFriedmansTwoWayByRanks* test)
    : RSHistogram(dictionary, stats)
{
    fState->TakeTest("Related-Samples Friedman's Two-Way Analysis of Variance by Ranks", test);
}

RSHistogram::~RSHistogram() = default;

int RSHistogram::FillChartData(VarDataProcessor& processor)
{
    State& state = *fState;
    DeclareVariables(processor, kSource, {kCounts, kMeans, kLabelName, kTypes});
    int row = 0;
    for (const NOPROutputStats::RankGroup& group : *state.fGroups) {
        state.fFieldSet.insert(group.fGroupIndex);
        state.fMeanRanks.push_back(group.fMeanOfRank);
        const auto& rows = group.fTable.fRows;
        if (rows.size() != 2) continue;
        const std::size_t bars = std::min(rows[0].size(), rows[1].size());
        for (std::size_t bar = 0; bar < bars; ++bar, ++row) {
            processor.SetVariableValue(kSource, kCounts, row, rows[0][bar]);
            processor.SetVariableValue(kSource, kMeans, row, rows[1][bar]);
            processor.SetVariableValue(kSource, kLabelName, row, group.fMeanOfRank);
            processor.SetVariableValue(kSource, kTypes, row, group.fGroupIndex);
        }
    }
    return row;
}

bool RSHistogram::Render(const std::string& splitText, bool appendSplit)
try {
    const State& state = *fState;
    if (!state.fStats || !state.fGroups) return false;

    VarDataProcessor processor;
    if (FillChartData(processor) == 0) return false;

    std::string text = XDocument::fetchTemplateFile("NPARRelatedSamplesHistogram.viztemplate");
    if (text.empty()) return false;
    state.EditTemplate(text);

    XDocument document(text);
    PrepareDocument(document);
    XGraph& graph = document.getExternalGraph();
    const ChartString title = LookUpText(state.fDictionary, state.fTitleKey);
    SetTitles(graph, title, splitText);
    state.SetFrame(graph);
    const ChartString description = Description(title, splitText, appendSplit);
    document.SetDescription(description.xc_str());
    document.SetChartData(&processor);
    state.NameFields(graph);
    state.NameMeanRanks(graph);
    document.applyCTemplate(false);
    return Send(document);
} catch (...) {
    return false;
}

void RSHistogram::State::EditTemplate(std::string& text) const
{
    ReplaceTokenByWord(text, "xTitle", fDictionary, "Frequency");
    ReplaceTokenByWord(text, "yTitle0", fDictionary, "Rank");
    ReplaceTokenByWord(text, "yTitle1", fDictionary, "Rank");
    EraseElement(text, "<label id=\"subLabel\">", "</label>");
    SetCategoryOrder(text, *fCondition);
}

/// Up to three fields fit the template's own frame.
void RSHistogram::State::SetFrame(XGraph& graph) const
{
    if (fFieldSet.size() <= kFieldsInTemplateFrame) return;
    const double width = kWidthPerField * static_cast<double>(fFieldSet.size());
    graph.setOuterFrameWidth(std::min(width, kGreatestWidth));
    graph.setOuterFrameHeight(kHeight);
}

void RSHistogram::State::NameFields(XGraph& graph) const
{
    XVariable types = graph.getVariable("types", 0);
    for (const int field : fFieldSet) {
        const QORT_Variable* variable = VariableOf(FieldAt(fStats, field));
        if (!variable) continue;
        types.addRelabel(IntegerText(field).xc_str(),
                         ChartString(variable->GetPreferredLabel()).xc_str());
    }
}

void RSHistogram::State::NameMeanRanks(XGraph& graph) const
{
    XVariable names = graph.getVariable("labelname", 0);
    for (const double meanRank : fMeanRanks) {
        const ChartString text =
            NamedNumber(fDictionary, "Mean Rank", FormatFixed(meanRank, 40, 2));
        names.addRelabel(ExactText(meanRank).xc_str(), text.xc_str());
    }
}
