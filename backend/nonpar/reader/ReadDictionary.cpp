#include <cstdint>
#include <string>
#include <vector>

#include "reader/NOPRXMLGeneral.h"
#include "reader/ReaderState.h"
#include "reader/ReaderSteps.h"

#include "host/data/QORT_DataSource.h"
#include "host/framework/CFMetaData.h"
#include "host/framework/Conversions.h"

namespace {

constexpr CFField::RoleType kRole{7};

CFDatum DatumOf(const std::string& value, int storageType)
{
    if (storageType == storage::kString) return CFDatum(value, /*isMissing=*/false);
    if (storageType == storage::kInteger) return CFDatum(std::int64_t{String2Integer(value)});
    return CFDatum(String2Double(value));
}

CFValue ValueOf(const CFDatum& datum, std::string text)
{
    return {datum, std::move(text), CFValue::kNoFlag, CFValue::kNoPartition};
}

/// False where a value's index is not its position.
bool ReadValues(const SDOMXMLWrapper& element, int storageType, CFField& field)
{
    std::vector<CFValue> values;
    std::vector<CFValue> labels;
    const auto readValue = [&](const SDOMXMLWrapper& child) {
        if (IntegerOf(child, "index") != static_cast<int>(values.size())) return false;
        std::string value = TextOf(child, "value");
        const CFDatum datum = DatumOf(value, storageType);
        values.push_back(ValueOf(datum, std::move(value)));
        labels.push_back(ValueOf(datum, TextOf(child, "displayValue")));
        return true;
    };
    if (!ForEachChild(element, "Value", true, readValue)) return false;
    field.SetValueLabels(labels);
    field.SetValues(values);
    return true;
}

/// False where the field's index is not its position.
bool ReadField(const SDOMXMLWrapper& element, CFMetaData& dictionary)
{
    if (IntegerOf(element, "index") != dictionary.FieldCount()) return false;

    const int storageType = StorageTypeFromName(TextOf(element, "dataType"));
    CFField field(TextOf(element, "name"),
                  CFField::FieldType{FieldTypeFromName(TextOf(element, "optype"))},
                  CFField::StorageType{storageType}, kRole);
    field.SetLabel(TextOf(element, "displayName"));
    if (!ReadValues(element, storageType, field)) return false;
    dictionary.AppendField(field);
    return true;
}

/// The host's variable of a field of the dictionary; null where it has none of that name.
const QORT_Variable* FindVariable(const CFMetaData* dictionary, int index,
                                  const QORT_DataSource* dataSource)
{
    const CFField* field = dictionary ? dictionary->GetField(index) : nullptr;
    if (!field || !dataSource) return nullptr;
    const int variable = dataSource->FindVarIndex(field->GetName().c_str(), 0);
    return variable >= 0 ? dataSource->GetVariable(variable) : nullptr;
}

void FillValues(const CFField& field, FieldInfoData& info)
{
    const std::vector<CFValue>& values = field.GetValues();
    const std::vector<CFValue>& labels = field.GetValueLabels();
    info.fValues.resize(values.size());
    for (std::size_t position = 0; position < values.size(); ++position) {
        FieldValue& value = info.fValues[position];
        value.fValueIndex = static_cast<int>(position);
        value.fValue.SetCompleteValue(values[position].GetText(), *info.fVariable, 0);
        if (position < labels.size()) value.fLabel = labels[position].GetText();
    }
}

/// The last field of the dictionary has no record.
void MakeFieldRecords(const CFMetaData& dictionary, ReaderState& state)
{
    for (int index = 0; index < dictionary.FieldCount() - 1; ++index) {
        FieldInfoData& info = *state.fStats->AddFieldInfo();
        info.fFieldIndex = index;
        info.fVariable = FindVariable(&dictionary, index, state.fDataSource);
        if (info.fVariable) FillValues(*dictionary.GetField(index), info);
    }
}

}  // namespace

bool ReadDataDictionary(const SDOMXMLWrapper& root, ReaderState& state)
{
    const SDOMXMLWrapper* element = FirstElement(root, "Extension/NPAROutput/DataDictionary");
    if (!element) return true;

    CFMetaData& dictionary = *state.fStats->CreateMetaData();
    const auto readField = [&dictionary](const SDOMXMLWrapper& field) {
        return ReadField(field, dictionary);
    };
    if (!ForEachChild(*element, "DataField", true, readField)) return false;
    MakeFieldRecords(dictionary, state);
    return true;
}
