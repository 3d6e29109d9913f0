#include "views/pairwise/PairwiseGraph.h"

#include <algorithm>
#include <optional>
#include <unordered_map>

#include "charts/ChartWords.h"
#include "charts/NumberText.h"
#include "charts/TemplateText.h"
#include "charts/ViewSteps.h"
#include "model/NOPRTestRecords.h"
#include "model/Positions.h"

#include "host/chart/VarDataProcessor.h"
#include "host/chart/XDocument.h"
#include "host/chart/XGraph.h"
#include "host/data/QORT_Variable.h"
#include "host/framework/CFMetaData.h"

namespace {

constexpr char kNodes[] = "nodeSource_1";
constexpr char kEdges[] = "edgeSource_1";
constexpr char kNode[] = "node";
constexpr char kFrom[] = "from";
constexpr char kTo[] = "to";
constexpr char kWeight[] = "weight";
constexpr char kWeightInPopup[] = "weightInPopup";
constexpr char kType[] = "type";
constexpr char kTooltip[] = "tooltip";  // declared for the template, never written

constexpr double kSignificant = 1.0;
constexpr double kNotSignificant = 2.0;

/// No pair is told apart here, so none is drawn.
constexpr double kNoDifference = 1.0;

const std::vector<double>& RowOf(const NumericTable& table, std::size_t row)
{
    static const std::vector<double> kNone;
    return row < table.fRows.size() ? table.fRows[row] : kNone;
}

/// The more alike two samples are, the heavier the edge that holds them together.
double EdgeWeight(double significance)
{
    const double difference = 1.0 - significance;
    return 1.0 / (difference * difference);
}

}  // namespace

struct PairwiseGraph::State {
    const NOPROutputStats* fStats;
    const NOPROutputStats::PairwiseData* fPairwise;
    const FacSTDictionary* fDictionary;

    /// Sample numbers, one for each node.
    const std::vector<double>& Samples() const { return RowOf(fPairwise->fInfo, 0); }

    /// The numbers that the nodes show; none where the table has no second row.
    const std::vector<double>& ShownNumbers() const { return RowOf(fPairwise->fInfo, 1); }

    /// The host's variable whose values the samples are; null where they are fields.
    const QORT_Variable* SampleVariable() const
    {
        return fStats->GetMetaData() ? fStats->FieldVariable(fPairwise->fFieldIndex) : nullptr;
    }

    const CFField* SampleField() const
    {
        return fStats->GetMetaData()->GetField(fPairwise->fFieldIndex);
    }

    /// The samples whose numbers a column holds; without a result where one is no such number.
    std::optional<std::vector<double>> NamedSamples(const std::vector<double>& column) const;
    ChartString Title() const;
    ChartString Footnote() const;
    ChartString OfSampleField(const char* key) const;
    void EditTemplate(std::string& text, const ChartString& title) const;
    void NameValueNodes(XVariable node, const QORT_Variable* variable) const;
    void NameFieldNodes(XVariable node) const;
};

PairwiseGraph::PairwiseGraph(const NOPROutputStats* stats,
                             const NOPROutputStats::PairwiseData* pairwise,
                             const FacSTDictionary* dictionary)
    : fState(std::make_unique<State>(State{stats, pairwise, dictionary}))
{
}

PairwiseGraph::~PairwiseGraph() = default;

std::optional<std::vector<double>> PairwiseGraph::State::NamedSamples(
    const std::vector<double>& column) const
{
    std::unordered_map<int, double> samples;
    for (const double sample : Samples())
        samples.emplace(CutToInt(sample), sample);
    std::vector<double> named;
    named.reserve(column.size());
    for (const double number : column) {
        const auto sample = samples.find(CutToInt(number));
        if (sample == samples.end()) return std::nullopt;
        named.push_back(sample->second);
    }
    return named;
}

std::vector<double> PairwiseGraph::ColumnValues(const std::string& name, bool raw) const
{
    const NumericTable& content = fState->fPairwise->fContent;
    const std::size_t column = content.fColumnNames.Find(name);
    std::vector<double> values;
    if (column == content.fColumnNames.size()) return values;
    const std::vector<double>& samples = fState->Samples();
    for (const std::vector<double>& row : content.fRows) {
        const double number = column < row.size() ? row[column] : MissingValue;
        if (raw) {
            values.push_back(number);
            continue;
        }
        const double* sample = ElementAt(samples, CutToInt(number));
        values.push_back(sample ? *sample : MissingValue);
    }
    return values;
}

std::vector<double> PairwiseGraph::SignificanceTypes(const std::vector<double>& significances) const
{
    std::vector<double> types;
    types.reserve(significances.size());
    for (const double significance : significances)
        types.push_back(significance < fState->fStats->GetSigLevel() ? kSignificant
                                                                     : kNotSignificant);
    return types;
}

int PairwiseGraph::FillChartData(VarDataProcessor& processor)
{
    processor.AddDataSource(kNodes, 0);
    processor.AddDataSource(kEdges, 0);
    processor.AddVariable(kNodes, kNode, nullptr);
    for (const char* variable : {kFrom, kTo, kWeight, kWeightInPopup, kType, kTooltip})
        processor.AddVariable(kEdges, variable, nullptr);
    int node = 0;
    for (const double sample : fState->Samples())
        processor.SetVariableValue(kNodes, kNode, node++, sample);

    // Where both columns name samples, they are numbers, as the table of pairs reads them;
    // otherwise they are positions.
    const auto firstNamed = fState->NamedSamples(ColumnValues("Sample1", true));
    const auto secondNamed = fState->NamedSamples(ColumnValues("Sample2", true));
    const bool areNumbers = firstNamed && secondNamed;
    const std::vector<double> first = areNumbers ? *firstNamed : ColumnValues("Sample1", false);
    const std::vector<double> second = areNumbers ? *secondNamed : ColumnValues("Sample2", false);
    const std::vector<double> significances = ColumnValues("AdjSig", true);
    const std::vector<double> types = SignificanceTypes(significances);
    const std::size_t pairs = std::min({first.size(), second.size(), significances.size()});
    int edge = 0;
    for (std::size_t pair = 0; pair < pairs; ++pair) {
        const double significance = significances[pair];
        if (significance == kNoDifference || IsMissing(first[pair]) || IsMissing(second[pair]))
            continue;
        processor.SetVariableValue(kEdges, kFrom, edge, first[pair]);
        processor.SetVariableValue(kEdges, kTo, edge, second[pair]);
        processor.SetVariableValue(kEdges, kWeight, edge, EdgeWeight(significance));
        processor.SetVariableValue(kEdges, kWeightInPopup, edge, significance);
        processor.SetVariableValue(kEdges, kType, edge, types[pair]);
        ++edge;
    }
    return edge;
}

bool PairwiseGraph::Render(const std::string& splitText, bool appendSplit)
try {
    const State& state = *fState;
    if (!state.fStats || !state.fPairwise) return false;

    VarDataProcessor processor;
    FillChartData(processor);  // nodes without an edge are drawn too

    std::string text = XDocument::fetchTemplateFile("GLMMPairwiseContrasts.viztemplate");
    if (text.empty()) return false;
    const ChartString title = state.Title();
    state.EditTemplate(text, title);

    XDocument document(text);
    PrepareDocument(document);
    document.SetChartData(&processor);
    XGraph& graph = document.getExternalGraph();
    SetSplitSubtitle(graph, splitText);  // the title stands in the template
    XVariable node = graph.getVariable(kNode, 0);
    if (const QORT_Variable* variable = state.SampleVariable())
        state.NameValueNodes(node, variable);
    else
        state.NameFieldNodes(node);

    const ChartString description = Description(title, splitText, appendSplit);
    document.SetDescription(description.xc_str());
    document.applyCTemplate(false);
    return Send(document);
} catch (...) {
    return false;
}

/// A sentence of the dictionary about the field whose values the samples are.
ChartString PairwiseGraph::State::OfSampleField(const char* key) const
{
    const CFField* field = SampleField();
    ChartString text = LookUpText(fDictionary, key);
    FillPlace(text, field ? field->GetLabel() : std::string());
    return text;
}

ChartString PairwiseGraph::State::Title() const
{
    return SampleVariable() ? OfSampleField("Pairwise Comparisons of ^1")
                            : LookUpText(fDictionary, "Pairwise Comparisons");
}

ChartString PairwiseGraph::State::Footnote() const
{
    return SampleVariable()
               ? OfSampleField("Each node shows the sample average rank of ^1.")
               : LookUpText(fDictionary, "Each node shows the sample number of successes.");
}

void PairwiseGraph::State::EditTemplate(std::string& text, const ChartString& title) const
{
    EraseElement(text, "<faceting", "</faceting>");
    EraseElement(text, "<facetLayout", "</facetLayout>");
    EraseElement(text, "<legend", "</legend>");
    ReplaceToken(text, "TitleText", title.toUTF8());
    InsertBefore(text, "id=\"style7\"", " visible=\"false\" ");
    ReplaceToken(text, "FootnoteText", Footnote().toUTF8());
    InsertBefore(text, "</graphLayoutStatistic>", "<swap/>");
    InsertBefore(text, "$[1]$", LookUpText(fDictionary, "Adj.Sig.").toUTF8() + " = ");
}

/// Samples are values of a field: labels go by position, and a missing one leaves the number.
void PairwiseGraph::State::NameValueNodes(XVariable node, const QORT_Variable* variable) const
{
    BindVariable(node, variable);
    node.SetNumberFormat(0, false, nullptr, nullptr);
    const CFField* field = SampleField();
    if (!field) return;
    const std::vector<CFValue>& labels = field->GetValueLabels();
    const std::vector<double>& samples = Samples();
    const std::vector<double>& numbers = ShownNumbers();
    const std::size_t named = std::min({samples.size(), numbers.size(), labels.size()});
    for (std::size_t i = 0; i < named; ++i) {
        ChartString key;
        key.assignDouble(samples[i], 0);
        const ChartString text(labels[i].GetText() + "\n" + FormatFixed(numbers[i], 40, 2));
        node.addRelabel(key.xc_str(), text.xc_str());
    }
}

/// Samples are fields: one that the host doesn't know keeps its number.
void PairwiseGraph::State::NameFieldNodes(XVariable node) const
{
    const std::vector<double>& samples = Samples();
    const std::vector<double>& numbers = ShownNumbers();
    const std::size_t named = std::min(samples.size(), numbers.size());
    for (std::size_t i = 0; i < named; ++i) {
        const int sample = CutToInt(samples[i]);
        const QORT_Variable* variable = fStats->FieldVariable(sample);
        if (!variable) continue;
        const ChartString text(variable->GetPreferredLabel() + "\n" +
                               FormatFixed(numbers[i], 40, 2));
        node.addRelabel(IntegerText(sample).xc_str(), text.xc_str());
    }
}
