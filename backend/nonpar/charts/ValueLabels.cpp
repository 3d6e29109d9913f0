#include "charts/ValueLabels.h"

#include <algorithm>

#include "charts/NumberText.h"
#include "model/NOPROutputStats.h"
#include "model/Positions.h"

#include "host/data/OBS.h"
#include "host/data/QORT_Format.h"

namespace {

/// The reader numbers a field's values in ascending order.
const FieldValue* FindValue(const FieldInfoData& field, int valueIndex)
{
    const auto found =
        std::ranges::lower_bound(field.fValues, valueIndex, {}, &FieldValue::fValueIndex);
    const bool isThere = found != field.fValues.end() && found->fValueIndex == valueIndex;
    return isThere ? &*found : nullptr;
}

}  // namespace

std::string ValueText(const FieldInfoData* field, int valueIndex)
{
    const FieldValue* value = field ? FindValue(*field, valueIndex) : nullptr;
    if (!value) return FormatValue(valueIndex, nullptr);
    return value->fLabel.empty() ? value->fValue.GetStringValue() : value->fLabel;
}

void ApplyValueLabels(const FieldInfoData* field, XVariable variable)
{
    if (!field) return;
    if (field->fVariable) variable.setQORTVariable(field->fVariable);

    int position = 0;
    for (const FieldValue& value : field->fValues) {
        const ChartString key = IntegerText(position++);
        if (value.fLabel.empty())
            variable.addRelabel(key.xc_str(), value.fValue.GetObsValue());
        else
            variable.addRelabel(key.xc_str(), ChartString(value.fLabel).xc_str());
    }
}

const OBS* ValueAtPosition(const FieldInfoData* field, double position)
{
    const FieldValue* value = field ? ElementAt(field->fValues, CutToInt(position)) : nullptr;
    return value ? value->fValue.GetObsValue() : nullptr;
}

std::string StringValue(const OBS& value, const QORT_Format& format)
{
    if (!value.IsString()) return {};
    std::string text(format.fWidth, ' ');
    ToString(value, format, text.data());  // cuts no character in two
    text.erase(text.find_last_not_of(' ') + 1);
    return text;
}

ChartString ValueKey(const OBS& value, const QORT_Format& format)
{
    if (format.fType != kStringFormat) return ExactText(value.Number());
    return XUtility::ChartStringFromLocalCodePage(StringValue(value, format));
}
