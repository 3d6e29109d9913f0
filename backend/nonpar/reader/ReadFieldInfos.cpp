#include "reader/AttributeBinding.h"
#include "reader/ReaderState.h"
#include "reader/ReaderSteps.h"

namespace {

// clang-format off
constexpr AttributeBinding<FieldInfoData> kFieldAttributes[] = {
    {"TotalN", &FieldInfoData::fTotalN},
    {"Min",    &FieldInfoData::fMin},
    {"Max",    &FieldInfoData::fMax},
    {"Mean",   &FieldInfoData::fMean},
    {"StdDev", &FieldInfoData::fStdDev},
};
// clang-format on

/// A field without a record is passed over.
bool ReadFieldInfo(const SDOMXMLWrapper& element, NOPROutputStats& stats)
{
    int index = -1;
    element.GetAttribute("varIndex", index);
    FieldInfoData* field = stats.GetFieldInfo(static_cast<unsigned>(index));
    if (!field) return true;

    const SDOMXMLWrapper* distribution = FirstElement(element, "StructuredTable");
    StructuredTableData data;
    if (!distribution || !ReadStructuredTable(*distribution, data)) return false;

    field->fIsCategorical = data.fName == "CategoricalDistribution";
    for (const XMLAttribute& attribute : data.fAttributes)
        SetField<FieldInfoData>(*field, kFieldAttributes, attribute);
    if (data.fSimpleTables.size() != 1) return false;
    if (!ToNumericTable(data.fSimpleTables.front(), field->fDistribution)) return false;
    field->fIsRead = true;
    return true;
}

}  // namespace

bool ReadFieldInfos(const SDOMXMLWrapper& root, ReaderState& state)
{
    const SDOMXMLWrapper* infos = FirstElement(root, "Extension/NPAROutput/FieldInfos");
    if (!infos) return false;
    return ForEachChild(*infos, "FieldInfo", true, [&state](const SDOMXMLWrapper& info) {
        return ReadFieldInfo(info, *state.fStats);
    });
}
