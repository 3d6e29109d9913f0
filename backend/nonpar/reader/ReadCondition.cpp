#include "reader/NOPRXMLGeneral.h"
#include "reader/Numbers.h"
#include "reader/ReaderState.h"
#include "reader/ReaderSteps.h"

#include "model/NOPRTestRecords.h"

#include "host/framework/Conversions.h"

namespace {

using Stats = NOPROutputStats;

constexpr char kParameterMark = '%';
constexpr char kLowerBoundMark = '>';

/// A text without a number leaves the list that is there, whose fields are marked already.
void ReadOrdinalFields(const std::string& text, std::vector<int>& fields, Stats& stats)
{
    std::vector<int> read;
    ParseIntegers(text, read);
    if (read.empty()) return;
    for (const int index : read)
        if (FieldInfoData* field = stats.GetFieldInfo(static_cast<unsigned>(index)))
            field->fOrdinalAsContinuous = true;
    fields = std::move(read);
}

/// A number of the test itself; a mark before it makes it a lower bound.
Stats::NamedValue OwnNumber(XMLAttribute& attribute, bool& hasLowerBoundSig)
{
    if (!attribute.fValue.starts_with(kLowerBoundMark))
        return {std::move(attribute.fName), String2Double(attribute.fValue)};
    hasLowerBoundSig = true;
    return {std::move(attribute.fName), String2Double(attribute.fValue.substr(1))};
}

Stats::StatisticResult BlockOf(StructuredTableData& table)
{
    Stats::StatisticResult block{std::move(table.fName), {}};
    block.fValues.reserve(table.fAttributes.size());
    for (XMLAttribute& attribute : table.fAttributes)
        block.fValues.push_back({std::move(attribute.fName), String2Double(attribute.fValue)});
    return block;
}

}  // namespace

bool AppendParameter(const XMLAttribute& attribute,
                     std::vector<NOPROutputStats::ConditionParameter>& parameters)
{
    if (!attribute.fName.starts_with(kParameterMark)) return false;
    auto& parameter = parameters.emplace_back();
    parameter.fIndex = String2Integer(attribute.fName.substr(1));
    ParseNumbers(attribute.fValue, parameter.fValues);
    return true;
}

bool ReadCondition(const SDOMXMLWrapper& element, ReaderState& state,
                   NOPROutputStats::ConditionData& condition)
{
    state.fIsUseSample = false;
    StructuredTableData data;
    const bool isRead = ReadStructuredTable(element, data);  // what came before a fault counts
    for (XMLAttribute& attribute : data.fAttributes) {
        if (attribute.fName == "ConditionKey") {
            condition.fConditionKey = std::move(attribute.fValue);
        } else if (attribute.fName == "isUseSample") {
            state.fIsUseSample = attribute.fValue == "true";
        } else if (attribute.fName == "OrdinalTreatedAsCont") {
            ReadOrdinalFields(attribute.fValue, condition.fOrdinalFields, *state.fStats);
        } else {
            AppendParameter(attribute, condition.fParameters);
        }
    }
    return isRead;
}

bool ReadStatistics(const SDOMXMLWrapper& element, ReaderState& state,
                    std::vector<NOPROutputStats::StatisticResult>& statistics)
{
    state.fHasLowerBoundSig = false;
    StructuredTableData data;
    const bool isRead = ReadStructuredTable(element, data);
    bool inRun = false;
    for (const ChildRef& child : data.fChildOrder) {
        const auto position = static_cast<std::size_t>(child.fPosition);
        if (child.fKind == ChildRef::kAttribute) {
            if (!inRun) statistics.emplace_back();
            inRun = true;
            statistics.back().fValues.push_back(
                OwnNumber(data.fAttributes[position], state.fHasLowerBoundSig));
        } else if (child.fKind == ChildRef::kStructuredTable) {
            inRun = false;
            statistics.push_back(BlockOf(data.fStrucTables[position]));
        }
    }
    return isRead;
}

bool ReadValsNotInCategories(const SDOMXMLWrapper& element, std::vector<std::string>& values)
{
    return ForEachChild(element, "Attribute", false, [&values](const SDOMXMLWrapper& attribute) {
        attribute.GetAttribute("value", values.emplace_back());
        return true;
    });
}
