#include "views/onesample/ChiSquare.h"

#include <algorithm>

#include "charts/ChartWords.h"
#include "charts/NumberText.h"
#include "charts/TemplateText.h"
#include "charts/ValueLabels.h"
#include "charts/ViewSteps.h"
#include "model/NOPRTestRecords.h"
#include "model/TestQueries.h"

#include "host/chart/VarDataProcessor.h"
#include "host/chart/XDocument.h"
#include "host/chart/XGraph.h"
#include "host/framework/Conversions.h"

namespace {

constexpr char kTitle[] = "One-Sample Chi-Square Test";
constexpr char kTemplate[] = "NPARChiSquareTest.viztemplate";
constexpr char kSource[] = "graphSource";
constexpr char kCategory[] = "Category";
constexpr char kFrequency[] = "Frequency";
constexpr char kObserved[] = "Observed";
constexpr char kHypothesized[] = "Hypothesized";
constexpr char kType[] = "Type";
constexpr char kResidual[] = "Residual";

constexpr char kObservedType[] = "a";
constexpr char kHypothesizedType[] = "b";

constexpr std::string_view kPopup = "<popup";
constexpr std::size_t kPopupAttributes = kPopup.size() + 1;  // behind one blank

constexpr char kTableName[] = "Content";
constexpr char kNoValue[] = "-1";  // the row of a category without a value
constexpr char kResidualWord[] = "E61605";

/// The words of the chart that stand in more than one place.
struct Words {
    std::string fTestField;
    ChartString fFrequency;
    ChartString fObserved;
    ChartString fHypothesized;
};

Words WordsOf(const FacSTDictionary* dictionary, const FieldInfoData* field)
{
    return {PreferredLabel(VariableOf(field)), LookUpText(dictionary, "Frequency"),
            LookUpText(dictionary, "Observed"), LookUpText(dictionary, "Hypothesized")};
}

std::string PopupText(const Words& words, const ChartString& residual)
{
    return "tokenTemplate=\"" + words.fTestField + "=$[category]$\n" + words.fObserved.toUTF8() +
           "=$[observed]$\n" + words.fHypothesized.toUTF8() + "=$[hypothesized]$\n" +
           residual.toUTF8() + "=$[residual]$\" ";
}

void EditTemplate(std::string& text, const ChartString& title, const Words& words,
                  const FacSTDictionary* dictionary)
{
    ReplaceToken(text, "titleText", title.toUTF8());
    ReplaceToken(text, "xAxisText", words.fTestField);
    ReplaceToken(text, "yAxisText", words.fFrequency.toUTF8());
    ReplaceToken(text, "legendTitle", words.fFrequency.toUTF8());
    InsertAt(text, kPopup, kPopupAttributes,
             PopupText(words, LookUpText(dictionary, kResidualWord)));
}

/// A category is two rows of the chart: its observed frequency, and the hypothesized one.
void WriteCategory(VarDataProcessor& processor, int row, const std::string& category,
                   double observed, double hypothesized)
{
    const auto setNumbers = [&](const char* variable, double first, double second) {
        processor.SetVariableValue(kSource, variable, row, first);
        processor.SetVariableValue(kSource, variable, row + 1, second);
    };
    const auto setTexts = [&](const char* variable, const std::string& first,
                              const std::string& second) {
        processor.SetStringVariableValue(kSource, variable, row, first);
        processor.SetStringVariableValue(kSource, variable, row + 1, second);
    };
    const std::string residual = FormatFixed(observed - hypothesized, 40, 2);
    setTexts(kCategory, category, category);
    setNumbers(kFrequency, observed, hypothesized);
    setNumbers(kObserved, observed, observed);
    setNumbers(kHypothesized, hypothesized, hypothesized);
    setTexts(kType, kObservedType, kHypothesizedType);
    setTexts(kResidual, residual, residual);
}

}  // namespace

struct ChiSquare::State {
    const FacSTDictionary* fDictionary;
    const NOPROutputStats* fStats;
    const NOPROutputStats::HTOChiSquare* fTest;
    const FieldInfoData* fField = nullptr;
};

ChiSquare::ChiSquare(const FacSTDictionary* dictionary, const NOPROutputStats* stats,
                     const NOPROutputStats::HTOChiSquare* test)
    : fState(std::make_unique<State>(State{dictionary, stats, test}))
{
    if (!test || !stats) return;
    const std::vector<double> fields = ConditionFields(test->fCondition);
    if (!fields.empty()) fState->fField = FieldAt(stats, fields[0]);
}

ChiSquare::~ChiSquare() = default;

bool ChiSquare::Render(const std::string& splitText, bool appendSplit)
try {
    if (!fState->fStats || !fState->fTest) return false;

    VarDataProcessor data;
    if (FillChartData(data) == 0) return false;

    std::string text = XDocument::fetchTemplateFile(kTemplate);
    if (text.empty()) return false;
    const FacSTDictionary* dictionary = fState->fDictionary;
    const ChartString title = LookUpText(dictionary, kTitle);
    const Words words = WordsOf(dictionary, fState->fField);
    EditTemplate(text, title, words, dictionary);

    XDocument document(text);
    PrepareDocument(document);
    XGraph& graph = document.getExternalGraph();  // its title lives in the template
    const ChartString description = Description(title, splitText, appendSplit);
    document.SetDescription(description.xc_str());
    document.SetChartData(&data);

    XVariable type = graph.getVariable(kType, 0);
    type.addRelabel(ChartString(kObservedType).xc_str(), words.fObserved.xc_str());
    type.addRelabel(ChartString(kHypothesizedType).xc_str(), words.fHypothesized.xc_str());
    SetSplitSubtitle(graph, splitText);

    document.applyCTemplate(false);
    return Send(document);
} catch (...) {
    return false;
}

int ChiSquare::FillChartData(VarDataProcessor& processor) const
{
    if (!VariableOf(fState->fField)) return 0;

    DeclareVariables(processor, kSource,
                     {kCategory, kFrequency, kObserved, kHypothesized, kType, kResidual});

    const NumericTable& table = fState->fTest->fTable;
    if (table.fName != kTableName) return 0;
    int row = 0;
    const std::size_t categoryCount = std::min(table.fRowNames.size(), table.fRows.size());
    for (std::size_t category = 0; category < categoryCount; ++category) {
        const std::string name(table.fRowNames[category]);
        const std::vector<double>& frequencies = table.fRows[category];
        if (frequencies.size() < 2) continue;
        const std::string text =
            name == kNoValue ? std::string() : ValueText(fState->fField, String2Integer(name));
        WriteCategory(processor, row, text, frequencies[0], frequencies[1]);
        row += 2;
    }
    return row;
}
