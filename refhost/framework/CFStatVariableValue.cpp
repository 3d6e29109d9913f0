#include "host/framework/CFStatVariableValue.h"

#include "refhost/data/ValueText.h"

#include "host/data/QORT_Variable.h"
#include "host/framework/Conversions.h"

bool CFStatVariableValue::SetCompleteValue(const std::string& text, const QORT_Variable& variable,
                                           int)
{
    fText = text;
    if (variable.GetType() == 0)
        fObs.emplace(String2Double(text));
    else
        fObs.emplace(refhost::PaddedText(text, variable.GetFormat()));
    return true;
}

const OBS* CFStatVariableValue::GetObsValue() const { return fObs ? &*fObs : nullptr; }

const std::string& CFStatVariableValue::GetStringValue() const { return fText; }
