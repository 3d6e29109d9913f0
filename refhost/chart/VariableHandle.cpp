#include "refhost/chart/VariableHandle.h"

#include "refhost/chart/CallRecorder.h"
#include "refhost/chart/Transcoding.h"
#include "refhost/data/DateFormats.h"
#include "refhost/data/ValueText.h"

#include "host/data/OBS.h"
#include "host/data/QORT_Variable.h"

using refhost::ToUtf8;

namespace {

/// A host's value as its variable shows it; values come in the unit of result documents.
std::string ShownText(const OBS& value, const std::optional<refhost::HostFormat>& format)
{
    QORT_Format shown;
    if (format) {
        shown.fType = static_cast<std::uint8_t>(format->fType);
        shown.fWidth = static_cast<std::uint16_t>(format->fWidth);
        shown.fDecimals = static_cast<std::uint8_t>(format->fDecimals);
    } else if (value.IsString()) {
        shown = {static_cast<std::uint16_t>(std::min<std::size_t>(value.Text().size(), 0xFFFF)), 1,
                 0};
    }
    if (value.IsString()) return refhost::ValueText(value, shown);
    return refhost::ValueText(OBS(refhost::HostNumber(value.Number(), shown.fType)), shown);
}

refhost::HostFormat FormatOf(const QORT_Variable& variable)
{
    const QORT_Format format = variable.GetFormat();
    return {format.fType, format.fWidth, format.fDecimals};
}

}  // namespace

void XVariable::setQORTVariable(const QORT_Variable* variable)
{
    fImpl->fRecorder.Record("XVariable.setQORTVariable", fImpl->fName, variable);
    if (!fImpl->fSettings || !variable) return;
    fImpl->fSettings->fHostLabel = variable->GetPreferredLabel();
    fImpl->fSettings->fBoundFormat = FormatOf(*variable);
}

void XVariable::setFormatBasedOnQORTVariable(const QORT_Variable* variable)
{
    fImpl->fRecorder.Record("XVariable.setFormatBasedOnQORTVariable", fImpl->fName, variable);
    if (fImpl->fSettings && variable) fImpl->fSettings->fHostFormat = FormatOf(*variable);
}

void XVariable::setLabel(const char16_t* label)
{
    fImpl->fRecorder.Record("XVariable.setLabel", fImpl->fName, label);
    if (fImpl->fSettings && label) fImpl->fSettings->fLabel = ToUtf8(label);
}

void XVariable::setCategorical(bool categorical)
{
    fImpl->fRecorder.Record("XVariable.setCategorical", fImpl->fName, categorical);
    if (fImpl->fSettings) fImpl->fSettings->fCategorical = categorical;
}

void XVariable::SetNumberFormat(int decimals, bool grouping, const char16_t* prefix,
                                const char16_t* suffix)
{
    fImpl->fRecorder.Record("XVariable.SetNumberFormat", fImpl->fName, decimals, grouping, prefix,
                            suffix);
    if (!fImpl->fSettings) return;
    fImpl->fSettings->fNumberFormat = {decimals, grouping, ToUtf8(prefix), ToUtf8(suffix)};
}

void XVariable::SetFormatPrefix(const char16_t* prefix)
{
    fImpl->fRecorder.Record("XVariable.SetFormatPrefix", fImpl->fName, prefix);
    if (fImpl->fSettings && prefix) fImpl->fSettings->fPrefix = ToUtf8(prefix);
}

void XVariable::addRelabel(const char16_t* key, const char16_t* text)
{
    fImpl->fRecorder.Record("XVariable.addRelabel", fImpl->fName, key, text);
    if (fImpl->fSettings && key && text) fImpl->fSettings->fRelabels[ToUtf8(key)] = ToUtf8(text);
}

void XVariable::addRelabel(unsigned key, const char16_t* text)
{
    fImpl->fRecorder.Record("XVariable.addRelabel", fImpl->fName, key, text);
    if (fImpl->fSettings && text) fImpl->fSettings->fRelabels[std::to_string(key)] = ToUtf8(text);
}

void XVariable::addRelabel(const char16_t* key, const OBS* value)
{
    fImpl->fRecorder.Record("XVariable.addRelabel", fImpl->fName, key, value);
    if (!fImpl->fSettings || !key || !value) return;
    fImpl->fSettings->fRelabels[ToUtf8(key)] = ShownText(*value, fImpl->fSettings->fBoundFormat);
}
