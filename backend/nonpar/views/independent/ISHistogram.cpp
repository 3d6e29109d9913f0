#include "views/independent/ISHistogram.h"

#include <algorithm>
#include <string_view>

#include "charts/ChartWords.h"
#include "charts/NumberText.h"
#include "charts/TemplateText.h"
#include "charts/ValueLabels.h"
#include "charts/ViewSteps.h"

#include "host/chart/VarDataProcessor.h"
#include "host/chart/XDocument.h"
#include "host/chart/XGraph.h"
#include "host/data/QORT_Variable.h"

namespace {

using SampleGroup = NOPROutputStats::SampleGroup;

constexpr char kSource[] = "graphSource";
constexpr char kCounts[] = "COUNTS";
constexpr char kMeans[] = "MEANS";
constexpr char kLabelName[] = "LABELNAME";
constexpr char kTypes[] = "TYPES";

constexpr int kTestFieldRole = 0;
constexpr int kGroupFieldRole = 1;

/// What differs between the three tests. The mirrored template is edited and bound, the upright one
/// is used as it stands.
struct TestForm {
    const char* fTemplate;
    const char* fTitle;
    bool fIsMirrored;
    bool fShowsMeanRank;
};

// clang-format off
constexpr TestForm kMannWhitneyForm = {
    "NPARRelatedSamplesHistogram.viztemplate", "Independent-Samples Mann-Whitney U Test", true, true};
constexpr TestForm kRunsForm = {
    "NPARRelatedSamplesHistogram.viztemplate", "Independent-Samples Wald-Wolfowitz Runs Test", true, false};
constexpr TestForm kKolmogorovSmirnovForm = {
    "NPARKolmogorovSmirnov.viztemplate", "Independent-Samples Kolmogorov-Smirnov Test", false, false};
// clang-format on

/// The types of dates and times whose values are shown as text on the axis of means.
bool IsShownAsText(int formatType)
{
    return (formatType >= 20 && formatType <= 30) || formatType == 38 || formatType == 39 ||
           formatType == 85 || formatType == 86;
}

/// The record of the field in a role of the condition. A role that no parameter names, or an empty
/// one does, falls to the first field.
const FieldInfoData* FieldInRole(const NOPROutputStats* stats,
                                 const NOPROutputStats::ConditionData& condition, int role)
{
    for (const auto& parameter : condition.fParameters)
        if (parameter.fIndex == role && !parameter.fValues.empty())
            return FieldAt(stats, parameter.fValues.front());
    return FieldAt(stats, 0);
}

/// The bars point up the other axis, outwards from a common middle, with room for the texts above.
void TurnTemplate(std::string& text)
{
    constexpr std::string_view kAlternating = "alternating=";
    constexpr std::size_t kToValue = kAlternating.size() + 1;  // behind the opening quote
    const std::size_t alternating = text.find(kAlternating);
    if (alternating != std::string::npos) {
        OverwriteBehind(text, kAlternating, kToValue, std::string_view("false").size(), "true");
        const std::size_t axis = text.find('x', alternating + kToValue);
        if (axis != std::string::npos) text[axis] = 'y';
    }
    constexpr std::string_view kInvert = "invert=\"";
    OverwriteBehind(text, kInvert, kInvert.size(), std::string_view("true").size(), "false");
    OverwriteBehind(text, "3%", 0, 1, "18");
}

}  // namespace

struct ISHistogram::State {
    const FacSTDictionary* fDictionary;
    const NOPROutputStats* fStats;
    const TestForm* fForm = nullptr;           ///< null without a record
    const SampleGroup* fFirstGroup = nullptr;  ///< null where there are fewer than two groups
    const SampleGroup* fSecondGroup = nullptr;
    const NOPROutputStats::ConditionData* fCondition = nullptr;

    template <class Record>
    void TakeTest(const TestForm& form, const Record* test)
    {
        if (!test) return;
        fForm = &form;
        if (test->fGroups.size() < 2) return;
        fFirstGroup = &test->fGroups[0];
        fSecondGroup = &test->fGroups[1];
        fCondition = &test->fCondition;
    }

    const FieldInfoData* TestField() const
    {
        return FieldInRole(fStats, *fCondition, kTestFieldRole);
    }
    const FieldInfoData* GroupField() const
    {
        return FieldInRole(fStats, *fCondition, kGroupFieldRole);
    }
    std::string GroupText(const SampleGroup& group) const
    {
        return ValueText(GroupField(), group.fGroupIndex);
    }

    int FillGroupRows(VarDataProcessor& processor, const SampleGroup& group, int row) const;
    void EditTemplate(std::string& text) const;
    void RelabelGroup(XGraph& graph, const SampleGroup& group) const;
    void BindFields(XGraph& graph) const;
};

ISHistogram::ISHistogram(const FacSTDictionary* dictionary, const NOPROutputStats* stats)
    : fState(std::make_unique<State>())
{
    fState->fDictionary = dictionary;
    fState->fStats = stats;
}

ISHistogram::ISHistogram(const FacSTDictionary* dictionary, const NOPROutputStats* stats,
                         const NOPROutputStats::HTIMannWhitneyU* test)
    : ISHistogram(dictionary, stats)
{
    fState->TakeTest(kMannWhitneyForm, test);
}

ISHistogram::ISHistogram(const FacSTDictionary* dictionary, const NOPROutputStats* stats,
                         const NOPROutputStats::HTIWaldWolfowitzRuns* test)
    : ISHistogram(dictionary, stats)
{
    fState->TakeTest(kRunsForm, test);
}

ISHistogram::ISHistogram(const FacSTDictionary* dictionary, const NOPROutputStats* stats,
                         const NOPROutputStats::HTIKolmogorovSmirnov* test)
    : ISHistogram(dictionary, stats)
{
    fState->TakeTest(kKolmogorovSmirnovForm, test);
}

ISHistogram::~ISHistogram() = default;

int ISHistogram::FillChartData(VarDataProcessor& processor) const
{
    const State& state = *fState;
    if (!state.fStats || !state.fFirstGroup) return 0;
    DeclareVariables(processor, kSource, {kCounts, kMeans, kLabelName, kTypes});
    const int row = state.FillGroupRows(processor, *state.fFirstGroup, 0);
    return state.FillGroupRows(processor, *state.fSecondGroup, row);
}

int ISHistogram::State::FillGroupRows(VarDataProcessor& processor, const SampleGroup& group,
                                      int row) const
{
    const auto& rows = group.fTable.fRows;
    if (rows.size() < 2) return row;
    const std::string text = GroupText(group);
    const QORT_Variable* variable = VariableOf(TestField());
    const bool asText = variable && IsShownAsText(variable->GetFormatEx().fType);
    const std::size_t bars = std::min(rows[0].size(), rows[1].size());
    for (std::size_t bar = 0; bar < bars; ++bar, ++row) {
        processor.SetVariableValue(kSource, kCounts, row, rows[0][bar]);
        if (asText)
            processor.SetStringVariableValue(kSource, kMeans, row,
                                             FormatForVariable(rows[1][bar], *variable));
        else
            processor.SetVariableValue(kSource, kMeans, row, rows[1][bar]);
        processor.SetStringVariableValue(kSource, kLabelName, row, text);
        processor.SetStringVariableValue(kSource, kTypes, row, text);
    }
    return row;
}

bool ISHistogram::Render(const std::string& splitText, bool appendSplit)
try {
    const State& state = *fState;
    if (!state.fStats || !state.fForm) return false;
    const TestForm& form = *state.fForm;

    VarDataProcessor processor;
    if (FillChartData(processor) == 0) return false;

    std::string text = XDocument::fetchTemplateFile(form.fTemplate);
    if (text.empty()) return false;
    state.EditTemplate(text);

    XDocument document(text);
    PrepareDocument(document);
    XGraph& graph = document.getExternalGraph();
    const ChartString title = LookUpText(state.fDictionary, form.fTitle);
    SetTitles(graph, title, splitText);
    state.RelabelGroup(graph, *state.fFirstGroup);
    state.RelabelGroup(graph, *state.fSecondGroup);
    if (form.fIsMirrored) state.BindFields(graph);

    const ChartString description = Description(title, splitText, appendSplit);
    document.SetDescription(description.xc_str());
    document.SetChartData(&processor);
    document.applyCTemplate(false);
    return Send(document);
} catch (...) {
    return false;
}

void ISHistogram::State::EditTemplate(std::string& text) const
{
    ReplaceTokenByWord(text, "xTitle", fDictionary, "Frequency");
    if (const QORT_Variable* variable = VariableOf(GroupField()))
        ReplaceToken(text, "subTitle", PreferredLabel(variable));
    if (const QORT_Variable* variable = VariableOf(TestField())) {
        const std::string label = PreferredLabel(variable);
        ReplaceToken(text, "yTitle0", label);
        ReplaceToken(text, "yTitle1", label);
    }
    if (fForm->fIsMirrored) TurnTemplate(text);
}

/// The group's size, and its mean rank where the test has one, under the group's text.
void ISHistogram::State::RelabelGroup(XGraph& graph, const SampleGroup& group) const
{
    ChartString label = NamedNumber(fDictionary, "N", FormatFixed(group.fN, 40, 0));
    if (fForm->fShowsMeanRank) {
        label.append("\n");
        label.append(NamedNumber(fDictionary, "Mean Rank", FormatFixed(group.fMeanOfRank, 40, 2)));
    }
    graph.getVariable("labelname", 0)
        .addRelabel(ChartString(GroupText(group)).xc_str(), label.xc_str());
}

void ISHistogram::State::BindFields(XGraph& graph) const
{
    const FieldInfoData* groupField = GroupField();
    if (VariableOf(groupField)) ApplyValueLabels(groupField, graph.getVariable("types", 0));
    if (const QORT_Variable* variable = VariableOf(TestField()))
        graph.getVariable("means", 0).setFormatBasedOnQORTVariable(variable);
}
