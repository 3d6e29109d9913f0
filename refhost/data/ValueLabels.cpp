#include "refhost/data/ValueLabels.h"

#include "host/data/OBS.h"
#include "host/data/QORT_ValueLabelMap.h"

namespace {

std::string WithoutEndBlanks(const std::string& text)
{
    return text.substr(0, text.find_last_not_of(' ') + 1);
}

}  // namespace

QORT_ValueLabels::QORT_ValueLabels(const std::vector<refhost::ValueLabel>& labels)
{
    for (const refhost::ValueLabel& label : labels) {
        const OBS& value = label.fValue;
        if (value.IsString())
            fOfStrings.emplace(WithoutEndBlanks(value.Text()), label.fLabel);
        else
            fOfNumbers.emplace(value.Number(), label.fLabel);
    }
}

const std::string* QORT_ValueLabels::Find(const OBS& value) const
{
    if (value.IsString()) {
        const auto found = fOfStrings.find(WithoutEndBlanks(value.Text()));
        return found == fOfStrings.end() ? nullptr : &found->second;
    }
    const auto found = fOfNumbers.find(value.Number());
    return found == fOfNumbers.end() ? nullptr : &found->second;
}

const char* QORT_ValueLabelMap::GetLabel(const OBS& value) const
{
    const std::string* label = fLabels ? fLabels->Find(value) : nullptr;
    return label ? label->c_str() : nullptr;
}
