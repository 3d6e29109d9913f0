#include "views/related/RSPairedDifferences.h"

#include "charts/ChartWords.h"
#include "charts/NumberText.h"
#include "charts/TemplateText.h"
#include "charts/ValueLabels.h"
#include "charts/ViewSteps.h"
#include "model/Positions.h"

#include "host/chart/VarDataProcessor.h"
#include "host/chart/XDocument.h"
#include "host/chart/XGraph.h"
#include "host/data/QORT_Variable.h"
#include "host/framework/CFMetaData.h"

namespace {

constexpr char kSource[] = "graphSource";

/// The variables of the pair; each stays null where the template has no axis text to name them in,
/// the condition doesn't name both fields, or the host knows no such variable.
struct Pair {
    const QORT_Variable* fFirst = nullptr;
    const QORT_Variable* fSecond = nullptr;
};

bool HaveSameDisplayFormat(const QORT_Variable& first, const QORT_Variable& second)
{
    const QORT_Format a = first.GetFormatEx();
    const QORT_Format b = second.GetFormatEx();
    return a.fType == b.fType && a.fWidth == b.fWidth &&
           (a.fType == kStringFormat || a.fDecimals == b.fDecimals);
}

std::string FieldLabel(const CFMetaData& metaData, double field)
{
    const CFField* entry = metaData.GetField(CutToInt(field));
    return entry ? ChartString(entry->GetLabel()).toUTF8() : std::string();
}

ChartString SignText(const FacSTDictionary* dictionary, const char* key, int count)
{
    ChartString text = LookUpText(dictionary, key);
    text.append("\n(");
    text.appendInteger(count);
    text.append(")");
    return text;
}

}  // namespace

struct RSPairedDifferences::State {
    const FacSTDictionary* fDictionary;
    const NOPROutputStats* fStats;
    const NOPROutputStats::DifferenceCounts* fCounts;
    const NOPROutputStats::BaseHypothesisTest* fTest;
    TestKind fTestKind;

    std::size_t FillChartData(VarDataProcessor& processor) const;
    Pair EditTemplate(std::string& text) const;
    void BindPair(XGraph& graph, const Pair& pair) const;
};

RSPairedDifferences::RSPairedDifferences(const FacSTDictionary* dictionary,
                                         const NOPROutputStats* stats,
                                         const NOPROutputStats::DifferenceCounts* counts,
                                         const NOPROutputStats::BaseHypothesisTest* test,
                                         TestKind testKind)
    : fState(std::make_unique<State>(State{dictionary, stats, counts, test, testKind}))
{
}

RSPairedDifferences::~RSPairedDifferences() = default;

/// Number of bars. Rows of unequal length leave the chart without data.
std::size_t RSPairedDifferences::State::FillChartData(VarDataProcessor& processor) const
{
    VarDataProcessor::_varinfo count;
    VarDataProcessor::_varinfo value;
    processor.AddDataSource(kSource, 0);
    processor.AddVariable(kSource, "count", &count);
    processor.AddVariable(kSource, "value", &value);
    const auto& rows = fCounts->fTable.fRows;
    if (rows.size() < 2) return 0;
    const std::size_t bars = rows[0].size();
    if (rows[1].size() != bars) return bars;
    for (std::size_t bar = 0; bar < bars; ++bar) {
        processor.SetVariableValue(&count, static_cast<int>(bar), rows[0][bar]);
        processor.SetVariableValue(&value, static_cast<int>(bar), rows[1][bar]);
    }
    return bars;
}

bool RSPairedDifferences::Render(const std::string& splitText, bool appendSplit)
try {
    const State& state = *fState;
    if (!state.fStats || !state.fCounts || !state.fTest) return false;

    VarDataProcessor processor;
    if (state.FillChartData(processor) == 0) return false;

    std::string text = XDocument::fetchTemplateFile("NPARWilcoxonPairSignedRank.viztemplate");
    if (text.empty()) return false;
    const Pair pair = state.EditTemplate(text);

    XDocument document(text);
    PrepareDocument(document);
    const ChartString title =
        LookUpText(state.fDictionary, std::string(TestTitle(state.fTestKind)));
    const ChartString description = Description(title, splitText, appendSplit);
    document.SetDescription(description.xc_str());
    XGraph& graph = document.getExternalGraph();
    SetTitles(graph, title, splitText);
    if (pair.fFirst) state.BindPair(graph, pair);
    document.SetChartData(&processor);
    document.applyCTemplate(false);
    return Send(document);
} catch (...) {
    return false;
}

Pair RSPairedDifferences::State::EditTemplate(std::string& text) const
{
    ChartString ties = LookUpText(fDictionary, "Number of Ties = ^1");
    FillPlace(ties, IntegerText(fCounts->fTies));
    ReplaceToken(text, "LegendLabel", ties.toUTF8());

    constexpr char kAxisText[] = "XAxis Text";
    Pair pair;
    const std::optional<double> first = FirstValue(fTest->fCondition.fParameters, 0);
    const std::optional<double> second = FirstValue(fTest->fCondition.fParameters, 1);
    if (Contains(text, kAxisText) && first && second) {
        pair = {VariableOf(FieldAt(fStats, *first)), VariableOf(FieldAt(fStats, *second))};
        if (const CFMetaData* metaData = fStats->GetMetaData())
            ReplaceToken(text, kAxisText,
                         FieldLabel(*metaData, *second) + " - " + FieldLabel(*metaData, *first));
    }
    ReplaceTokenByWord(text, "YAxis Text", fDictionary, "Frequency");
    return pair;
}

void RSPairedDifferences::State::BindPair(XGraph& graph, const Pair& pair) const
{
    XVariable type = graph.getVariable("type", 0);
    type.addRelabel(
        u"0positive",
        SignText(fDictionary, "Positive Differences", fCounts->fPositiveDifferences).xc_str());
    type.addRelabel(
        u"1negative",
        SignText(fDictionary, "Negative Differences", fCounts->fNegativeDifferences).xc_str());
    XVariable value = graph.getVariable("value", 0);
    if (pair.fSecond && HaveSameDisplayFormat(*pair.fFirst, *pair.fSecond))
        BindVariable(value, pair.fFirst);
}
