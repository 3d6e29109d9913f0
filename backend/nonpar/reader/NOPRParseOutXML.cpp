#include "reader/NOPRParseOutXML.h"

#include <string_view>

#include "reader/NOPRXMLGeneral.h"
#include "reader/ReaderState.h"
#include "reader/ReaderSteps.h"

#include "model/NOPRTestRecords.h"

#include "host/framework/SDOMXMLWrapper.h"
#include "host/pivot/BpError.h"

namespace {

using Test = NOPROutputStats::BaseHypothesisTest;

bool CheckRoot(const SDOMXMLWrapper& root, ReaderState&)
{
    if (root.GetName() != "StatXML") return false;
    const SDOMXMLWrapper* model = FirstElement(root, "PMMLModel");
    std::string modelType;
    return model && model->GetAttribute("modelType", modelType) &&
           modelType == "NonParametricTests";
}

double NumberOf(const SDOMXMLWrapper& element, const char* attribute)
{
    double value = MissingValue;
    element.GetAttribute(attribute, value);
    return value;
}

bool ReadCounts(const SDOMXMLWrapper& root, ReaderState& state)
{
    const SDOMXMLWrapper* counts = FirstElement(root, "DescriptiveModel/DescriptiveSummary/Counts");
    if (!counts) return false;
    state.fStats->SetTotalFreq(IntegerOf(*counts, "totalFreq"));
    state.fStats->SetTotalCount(IntegerOf(*counts, "totalCount"));
    state.fStats->SetDroppedCount(IntegerOf(*counts, "droppedCount"));
    state.fStats->SetBadWeightCount(IntegerOf(*counts, "badWeightCount"));
    state.fStats->SetDroppedFreq(IntegerOf(*counts, "droppedFreq"));
    return true;
}

/// The tables that tests of all kinds may have.
struct CommonTable {
    std::string_view fName;
    bool (*fRead)(const SDOMXMLWrapper& element, ReaderState& state, Test& test);
};

// clang-format off
constexpr CommonTable kCommonTables[] = {
    {"Condition", [](const SDOMXMLWrapper& element, ReaderState& state, Test& test) {
        return ReadCondition(element, state, test.fCondition); }},
    {"WarningMessages", [](const SDOMXMLWrapper& element, ReaderState&, Test& test) {
        return ReadMessages(element, test.fMessages); }},
    {"StatisticsResult", [](const SDOMXMLWrapper& element, ReaderState& state, Test& test) {
        return ReadStatistics(element, state, test.fStatistics); }},
    {"ValsNotInTheCategoreis", [](const SDOMXMLWrapper& element, ReaderState&, Test& test) {
        return ReadValsNotInCategories(element, test.fValsNotInCategories); }},
};
// clang-format on

bool ReadTable(const SDOMXMLWrapper& element, ReaderState& state, Test& test)
{
    const std::string name = TextOf(element, "name");
    for (const CommonTable& table : kCommonTables)
        if (table.fName == name) return table.fRead(element, state, test);
    return ReadTestTable(element, test);
}

bool ReadAlgorithm(const SDOMXMLWrapper& element, ReaderState& state)
{
    Test* test = state.fStats->CreateTest(SampleKindFromName(TextOf(element, "classification")),
                                          TestKindFromName(TextOf(element, "name")),
                                          DecisionFromName(TextOf(element, "decision")));
    if (!test) return true;

    const auto readTable = [&](const SDOMXMLWrapper& table) {
        return ReadTable(table, state, *test);
    };
    if (!ForEachChild(element, "StructuredTable", false, readTable)) return false;
    FinishTest(state, *test);
    return true;
}

bool ReadTests(const SDOMXMLWrapper& root, ReaderState& state)
{
    const SDOMXMLWrapper* tests = FirstElement(root, "Extension/NPAROutput/NonParametricTests");
    if (!tests) return false;
    state.fStats->SetTestCount(IntegerOf(*tests, "number"));
    state.fStats->SetSigLevel(NumberOf(*tests, "sigLevel"));
    state.fStats->SetConfidenceLevel(NumberOf(*tests, "confidenceLevel"));
    state.fStats->SetListwise(TextOf(*tests, "missingTreatment") == "listwise");
    return ForEachChild(*tests, "Algorithm", false, [&](const SDOMXMLWrapper& algorithm) {
        return ReadAlgorithm(algorithm, state);
    });
}

/// In the order that later steps rely on: tests mark the field records of the dictionary.
constexpr bool (*kSteps[])(const SDOMXMLWrapper& root, ReaderState& state) = {
    &CheckRoot, &ReadCounts, &ReadDataDictionary, &ReadTests, &ReadFieldInfos};

bool ReadDocument(ReaderState& state)
{
    if (!state.fStats || !state.fDocument || state.fDocument->empty()) return false;

    SDOMXMLWrapper root;
    if (!root.LoadFromString(*state.fDocument)) return false;
    for (const auto step : kSteps)
        if (!step(root, state)) return false;
    return true;
}

}  // namespace

NOPRParseOutXML::NOPRParseOutXML(const QORT_DataSource* dataSource, NOPROutputStats* stats,
                                 const std::string* document)
    : fState(std::make_unique<ReaderState>())
{
    fState->fDataSource = dataSource;
    fState->fStats = stats;
    fState->fDocument = document;
}

NOPRParseOutXML::~NOPRParseOutXML() = default;

bool NOPRParseOutXML::Read()
try {
    if (!fState->fParsed) fState->fParsed = ReadDocument(*fState);
    return fState->fParsed;
} catch (...) {
    return false;  // whatever the XML layer throws, the document is not usable
}

void ReportNotParsed(const std::string& name)
{
    BpError("Not parse element: " + name, BpErrorShow::Output, BpErrorLevel::Warning);
}
