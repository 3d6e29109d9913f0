#include <algorithm>
#include <limits>

#include "output/ConditionKeys.h"
#include "output/NOPROutput.h"
#include "output/TableParts.h"

#include "model/Positions.h"
#include "model/TestQueries.h"

#include "host/data/QORT_DataSource.h"
#include "host/data/QORT_Variable.h"
#include "host/framework/Assertion.h"
#include "host/framework/Conversions.h"
#include "host/pivot/BpPivotTable.h"
#include "host/pivot/BpProcedure.h"

namespace {

using Parameter = NOPROutputStats::ConditionParameter;

constexpr std::size_t kTestField = 0;  // the parameter that names the field of a condition
constexpr int kNumeric = 0;
constexpr int kMissingEntry = std::numeric_limits<int>::min();
constexpr bool kSingly = false;
constexpr double kSecondsOfDay = 86400.0;

constexpr char kIncorrectParameter[] = "Incorrect Parameter Index";
constexpr char kUnknownVariable[] = "Unknown Variable";
constexpr char kBlank[] = " ";

/// Formats whose standard deviation the document gives in days.
constexpr std::uint8_t kDayFormats[] = {20, 23, 24, 28, 29, 30, 38, 39};

// clang-format off
constexpr const char* kParameterCounts[] = {
    "data.fParameters.size() == 0",
    "data.fParameters.size() == 1",
    "data.fParameters.size() == 2",
    "data.fParameters.size() == 3",
    "data.fParameters.size() == 4",
    "data.fParameters.size() == 5",
};
// clang-format on
static_assert(std::size(kParameterCounts) == ConditionKey::kMostPlaces + 1);

/// Brackets what a scope adds, so that it fills one place.
class SublistScope {
public:
    SublistScope(BpComposite& sentence, bool sublist) : fSentence(sublist ? &sentence : nullptr)
    {
        if (fSentence) fSentence->Sublist();
    }
    ~SublistScope()
    {
        if (fSentence) fSentence->EndSublist();
    }
    SublistScope(const SublistScope&) = delete;
    SublistScope& operator=(const SublistScope&) = delete;

private:
    BpComposite* fSentence;
};

/// What stands behind a list: a blank for one without entries, a word where its walk stopped.
void CloseList(BpComposite& sentence, bool isEmpty, bool stopped)
{
    if (isEmpty) sentence.Add(Literal(kBlank));
    if (stopped) sentence.Add(Literal(kUnknownVariable));
}

bool IsNumeric(const QORT_Variable* variable)
{
    return variable && variable->GetType() == kNumeric;
}

BpDataValue MissingDataValue(const QORT_Variable& variable, double missingValue)
{
    if (IsNumeric(&variable)) return {&variable, missingValue, Preference::Preferred};
    return {&variable, std::string(kBlank), Preference::Preferred};
}

/// Adds the value of an entry, or the next text for an entry that is none of the field's values;
/// false where no text remains.
bool AddValueOrText(BpComposite& sentence, const FieldInfoData& field, int entry,
                    const std::vector<std::string>& texts, std::size_t& usedTexts)
{
    if (const FieldValue* value = ElementAt(field.fValues, entry)) {
        sentence.Add(
            BpDataValue(field.fVariable, value->fValue.GetObsValue(), Preference::Preferred));
        return true;
    }
    if (usedTexts == texts.size()) return false;
    sentence.Add(Literal(texts[usedTexts++]));
    return true;
}

}  // namespace

void NOPROutput::NullHypothesisCell(BpCategory category, const Test& test) const
{
    const Condition& condition = test.fCondition;
    BpComposite sentence(condition.fConditionKey, kLookup);
    const QORT_Variable* testVariable = TestVariable(test);
    const ConditionKey* key = FindConditionKey(test.fTestKind, condition.fConditionKey);
    if (!key) {
        category.Cell(Literal("Unknown Condition Key: " + condition.fConditionKey));
        return;
    }

    const auto places = key->Places();
    CFAssert(condition.fParameters.size() == places.size(), kParameterCounts[places.size()]);
    for (const HypothesisPlace& place : places)
        FillPlace(sentence, test, testVariable, place);
    sentence.Finish();
    category.Cell(sentence);
}

/// The variable in whose format the numbers of a one-sample hypothesis show; null for none.
const QORT_Variable* NOPROutput::TestVariable(const Test& test) const
{
    if (test.fSampleKind != sample::kOne) return nullptr;
    std::vector<int> fields;
    TestFields(test, fields);
    return fields.empty() ? nullptr : fStats->FieldVariable(fields.front());
}

void NOPROutput::FillPlace(BpComposite& sentence, const Test& test,
                           const QORT_Variable* testVariable, const HypothesisPlace& place) const
{
    const Condition& condition = test.fCondition;
    const std::size_t p = place.fParameter;
    switch (place.fFiller) {
        case HypothesisFiller::None:
            break;
        case HypothesisFiller::Fields:
            AddFieldList(sentence, condition, p, place.fSublist);
            break;
        case HypothesisFiller::Values:
            AddValues(sentence, condition, p, testVariable, place.fSublist);
            break;
        case HypothesisFiller::Numbers:
            AddValues(sentence, condition, p, nullptr, place.fSublist);
            break;
        case HypothesisFiller::ValueIndices:
            AddValueIndices(sentence, condition, kTestField, p, place.fSublist);
            break;
        case HypothesisFiller::ValueTexts:
            AddValueIndicesAndTexts(sentence, condition, kTestField, p, test.fValsNotInCategories,
                                    place.fSublist);
            break;
        case HypothesisFiller::StandardDeviation:
            AddStandardDeviation(sentence, condition, p, testVariable);
            break;
    }
}

void NOPROutput::AddFieldList(BpComposite& sentence, const Condition& condition, std::size_t p,
                              bool sublist) const
{
    if (p >= condition.fParameters.size()) {
        sentence.Add(Literal(kIncorrectParameter));
        return;
    }

    const std::vector<double>& fields = condition.fParameters[p].fValues;
    const SublistScope scope(sentence, sublist);
    bool stopped = false;
    for (const double value : fields) {
        const int curIndex = CutToInt(value);
        const FieldInfoData* data = fStats->GetFieldInfo(static_cast<unsigned>(curIndex));
        if (data) CFAssert(curIndex == data->fFieldIndex, "curIndex == data->fFieldIndex");
        stopped = !data || !data->fVariable;
        if (stopped) break;
        sentence.Add(BpVariable(data->fVariable, Show::Preferred));
    }
    CloseList(sentence, fields.empty(), stopped);
}

void NOPROutput::AddValues(BpComposite& sentence, const Condition& condition, std::size_t p,
                           const QORT_Variable* variable, bool sublist) const
{
    if (p >= condition.fParameters.size()) {
        sentence.Add(Literal(kIncorrectParameter));
        return;
    }

    const std::vector<double>& values = condition.fParameters[p].fValues;
    const SublistScope scope(sentence, sublist);
    for (const double value : values) {
        if (IsNumeric(variable)) {
            const double hostValue = NumericFormatCFToStat(value, variable->GetFormat().fType);
            sentence.Add(BpDataValue(variable, hostValue, Preference::Preferred));
        } else {
            sentence.Add(BpNumber(value, BpProcedure::Significance()));
        }
    }
    CloseList(sentence, values.empty(), /*stopped=*/false);
}

void NOPROutput::AddValueIndices(BpComposite& sentence, const Condition& condition, std::size_t p,
                                 std::size_t q, bool sublist) const
{
    AddValueIndicesAndTexts(sentence, condition, p, q, {}, sublist);
}

void NOPROutput::AddValueIndicesAndTexts(BpComposite& sentence, const Condition& condition,
                                         std::size_t p, std::size_t q,
                                         const std::vector<std::string>& texts, bool sublist) const
{
    const std::vector<Parameter>& parameters = condition.fParameters;
    const bool valid = p < parameters.size() && parameters[p].fValues.size() == 1 &&
                       CutToInt(parameters[p].fValues.front()) >= 0 && q < parameters.size();
    if (!valid) {
        sentence.Add(Literal(kIncorrectParameter));
        return;
    }

    const SublistScope scope(sentence, sublist);
    const int fIndex = CutToInt(parameters[p].fValues.front());
    const FieldInfoData* data = fStats->GetFieldInfo(static_cast<unsigned>(fIndex));
    if (data) CFAssert(fIndex == data->fFieldIndex, "fIndex == data->fFieldIndex");
    if (!data || !data->fVariable) {
        sentence.Add(Literal(kUnknownVariable));
        return;
    }

    const std::vector<double>& entries = parameters[q].fValues;
    std::size_t usedTexts = 0;
    bool stopped = false;
    for (const double value : entries) {
        const int entry = IsMissing(value) ? kMissingEntry : CutToInt(value);
        if (entry == kMissingEntry) {
            sentence.Add(MissingDataValue(*data->fVariable, fMissingValue));
            continue;
        }
        stopped = !AddValueOrText(sentence, *data, entry, texts, usedTexts);
        if (stopped) break;
    }
    CloseList(sentence, entries.empty(), stopped);
}

void NOPROutput::AddStandardDeviation(BpComposite& sentence, const Condition& condition,
                                      std::size_t p, const QORT_Variable* variable) const
{
    const bool hasValue =
        p < condition.fParameters.size() && !condition.fParameters[p].fValues.empty();
    if (!fProcedure || !fDataSource || !variable || !hasValue) {
        AddValues(sentence, condition, p, nullptr, kSingly);
        return;
    }

    double value = condition.fParameters[p].fValues.front();
    const std::uint8_t type = variable->GetFormat().fType;
    if (std::ranges::count(kDayFormats, type) > 0 && !IsMissing(value)) value *= kSecondsOfDay;
    const int index = fDataSource->FindVarIndex(variable->GetName().c_str(), 0);
    sentence.Add(BpNumber(value, BpProcedure::StdDev(index)));
}
