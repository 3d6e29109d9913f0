#include "output/NOPROutput.h"

#include <cstdlib>
#include <memory>
#include <string_view>

#include "output/TableParts.h"

#include "model/TestQueries.h"
#include "views/field/FieldInformation.h"
#include "views/independent/IndependentSamples.h"
#include "views/onesample/OneSample.h"
#include "views/related/RelatedSamples.h"

#include "host/pivot/BpHeading.h"
#include "host/strings/FacSTDictionary.h"
#include "host/strings/PathFactory.h"

namespace {

constexpr int kStringTables = 3;  // of the kinds of files that the host's paths know
constexpr bool kCategorical = true;
constexpr bool kContinuous = false;

/// The host's setting of the process: later changes of the environment don't count.
const char* ViewSwitch()
{
    static const char* const value = std::getenv("DEBUG_MODEL_VIEWER");
    return value;
}

/// The variables that fields show by; a field without one counts as none.
std::vector<const QORT_Variable*> VariablesOf(const NOPROutputStats& stats,
                                              const std::vector<int>& fields)
{
    std::vector<const QORT_Variable*> variables;
    for (const int field : fields) {
        if (const QORT_Variable* variable = stats.FieldVariable(field))
            variables.push_back(variable);
    }
    return variables;
}

BpComposite FieldsHeading(const std::vector<const QORT_Variable*>& variables)
{
    BpComposite text("[%1:, ^1]1", kLookup);
    text.Sublist();
    for (const QORT_Variable* variable : variables)
        text.Add(BpVariable(variable, Show::Preferred));
    text.EndSublist();
    text.Finish();
    return text;
}

BpComposite AcrossHeading(const QORT_Variable* testField, const QORT_Variable* groupField)
{
    BpComposite text("^1 across ^2", kLookup);
    text.Add(BpVariable(testField, Show::Preferred));
    text.Add(BpVariable(groupField, Show::Preferred));
    text.Finish();
    return text;
}

}  // namespace

bool ViewsAreBuilt(const char* debugModelViewer)
{
    return !debugModelViewer || std::string_view(debugModelViewer) != "2";
}

NOPROutput::NOPROutput(BpProcedure* procedure, BpHeading* heading,
                       const QORT_DataSource* dataSource, const NOPROutputStats* stats)
    : fMissingValue(MissingValue),
      fProcedure(procedure),
      fHeading(heading),
      fDataSource(dataSource),
      fStats(stats)
{
}

void NOPROutput::Run()
{
    if (!fStats) return;

    const auto dictionary =
        std::make_unique<FacSTDictionary>(PathFactory::getPathInstance(kStringTables)->GetPath());
    dictionary->SetProcedure("Nonparametric Tests");
    const bool buildViews = ViewsAreBuilt(ViewSwitch());

    HypothesisTestSummary();
    ConfidenceIntervalSummary();
    const auto testCount = static_cast<unsigned>(fStats->GetTests().size());
    for (unsigned index = 0; index < testCount; ++index) {
        if (const Test* test = fStats->GetTest(index)) WriteTest(*test, *dictionary, buildViews);
    }
    if (buildViews) DrawFieldViews(*dictionary);
}

void NOPROutput::WriteTest(const Test& test, const FacSTDictionary& dictionary, bool buildViews)
{
    BpHeading testHeading = fHeading->Heading(Lookup(TestHeadingTitle(test)));
    if (FindBlockingMessage(test)) return;  // the summary has said why

    std::optional<BpHeading> fieldHeading;
    if (const auto text = TestSubHeading(test)) fieldHeading = testHeading.Heading(*text);
    BpHeading& target = fieldHeading ? *fieldHeading : testHeading;

    TestDetailTable(target, test);
    if (buildViews) DrawTestViews(test, dictionary);
    PostHocTable(target, test, &dictionary);
}  // the field heading ends before the test heading

void NOPROutput::DrawTestViews(const Test& test, const FacSTDictionary& dictionary) const
{
    bool appendSplit = false;
    const std::string splitText = fStats->SplitText(appendSplit);
    std::vector<int> fields;
    TestFields(test, fields);
    const auto field = fields.empty() ? 0U : static_cast<unsigned>(fields.front());

    // Each gets every test and draws those of its own family.
    OneSample oneSample(&dictionary, fStats);
    oneSample.DrawTest(&test, field, splitText, appendSplit);
    IndependentSamples independentSamples(&dictionary, fStats);
    independentSamples.DrawTest(&test, splitText, appendSplit);
    RelatedSamples relatedSamples(&dictionary, fStats);
    relatedSamples.DrawTest(&test, splitText, appendSplit);
}

void NOPROutput::DrawFieldViews(const FacSTDictionary& dictionary) const
{
    bool appendSplit = false;
    const std::string splitText = fStats->SplitText(appendSplit);
    const auto fieldCount = static_cast<unsigned>(fStats->GetFieldInfos().size());
    for (unsigned index = 0; index < fieldCount; ++index) {
        FieldInformation categorical(&dictionary, fStats, kCategorical);
        categorical.SelectField(index);
        categorical.Render(splitText, appendSplit);
        FieldInformation continuous(&dictionary, fStats, kContinuous);
        continuous.SelectField(index);
        continuous.Render(splitText, appendSplit);
    }
}

std::optional<BpCellText> NOPROutput::TestSubHeading(const Test& test) const
{
    std::vector<int> fields;
    TestFields(test, fields);
    const auto variables = VariablesOf(*fStats, fields);
    switch (test.fSampleKind) {
        case sample::kOne:
            if (variables.size() == 1) return BpVariable(variables[0], Show::Preferred);
            break;
        case sample::kRelated:
            if (fields.size() >= 2) return FieldsHeading(variables);
            break;
        case sample::kIndependent:
            if (variables.size() == 2) return AcrossHeading(variables[0], variables[1]);
            break;
        default:
            break;
    }
    return std::nullopt;
}
