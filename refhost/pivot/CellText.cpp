#include "refhost/pivot/CellText.h"

#include <algorithm>

#include "refhost/pivot/CompositeTemplate.h"
#include "refhost/pivot/NumberFormats.h"
#include "refhost/pivot/PivotProcedure.h"

#include "refhost/data/DateFormats.h"
#include "refhost/data/MissingValue.h"
#include "refhost/data/NumberText.h"
#include "refhost/data/ValueText.h"
#include "refhost/strings/TextTable.h"

#include "host/data/OBS.h"
#include "host/data/QORT_ValueLabelMap.h"
#include "host/data/QORT_Variable.h"
#include "host/pivot/BpProcedure.h"

using refhost::Text;
using refhost::TextComposite;
using refhost::TextNumber;
using refhost::TextRef;
using refhost::TextString;
using refhost::TextSublist;
using refhost::TextValue;
using refhost::TextVariable;

namespace {

constexpr std::string_view kMissingText = ".";
constexpr int kAllDigits = 17;  // enough to read any double back

std::shared_ptr<BpCellText::Impl> MakeText(Text text)
{
    return std::make_shared<BpCellText::Impl>(std::move(text));
}

std::string_view WithoutBlanksAtEnd(std::string_view text)
{
    const std::size_t last = text.find_last_not_of(' ');
    return last == std::string_view::npos ? std::string_view() : text.substr(0, last + 1);
}

/// The text of a key. Those of the text table stand in many cells; each is made once.
std::shared_ptr<BpCellText::Impl> KeyText(const std::string& key)
{
    refhost::KeptTexts* const kept = refhost::TextsOfRun();
    if (kept) {
        const auto known = kept->find(key);
        if (known != kept->end()) return known->second;
    }
    auto text = MakeText({TextString{key, true}, refhost::TableText(key, true)});
    if (kept && refhost::TextTable::Active().Find(refhost::TextTable::Section::Pivot, key))
        kept->emplace(key, text);
    return text;
}

Text NumberText(double number, const BpFormatSpec& format)
{
    TextNumber passed;
    passed.fNumber = number;
    passed.fFormat = refhost::FormatName(format);
    passed.fDecimals = refhost::FormatDecimals(format, number);
    return {passed, refhost::FormattedNumber(passed)};
}

/// A value that bears no label. A string shows whole, also where it is wider than its format.
std::string BareText(const QORT_Variable* variable, const OBS& value)
{
    if (value.IsString()) return std::string(WithoutBlanksAtEnd(value.Text()));
    if (refhost::IsUntold(value.Number())) return std::string(kMissingText);
    if (!variable || variable->GetType() != 0)
        return refhost::ShortText(value.Number(), kAllDigits);
    return refhost::ValueText(value, variable->GetFormat());
}

/// A value in the unit in which it was passed, in that of result documents, which its label has,
/// and in the host's own.
Text ValueText(const QORT_Variable* variable, const OBS& passed, const OBS& document,
               const OBS& host)
{
    TextValue value;
    if (passed.IsString()) {
        value.fValue = passed.Text();
    } else {
        value.fValue = passed.Number();
    }
    std::string shown;
    if (variable) {
        value.fOf = variable->GetName();
        const char* label = QORT_ValueLabelMap(variable->GetValueLabels()).GetLabel(document);
        value.fLabelled = label != nullptr;
        if (label) shown = label;
    }
    if (!value.fLabelled) shown = BareText(variable, host);
    return {std::move(value), std::move(shown)};
}

Text PlainValueText(const QORT_Variable* variable, const OBS& value)
{
    if (!variable || value.IsString()) return ValueText(variable, value, value, value);
    const OBS document(refhost::DocumentNumber(value.Number(), variable->GetFormat().fType));
    return ValueText(variable, value, document, value);
}

/// Numbers of date formats are in the unit of the result document here.
Text DocumentValueText(const QORT_Variable* variable, const OBS* value)
{
    if (!value) return PlainValueText(variable, OBS(refhost::kMissingValue));
    if (!variable || value->IsString()) return PlainValueText(variable, *value);
    const double number = refhost::HostNumber(value->Number(), variable->GetFormat().fType);
    return ValueText(variable, *value, *value, OBS(number));
}

Text VariableText(const QORT_Variable* variable)
{
    if (!variable) return {TextVariable{}, ""};
    return {TextVariable{variable->GetName()}, variable->GetPreferredLabel()};
}

}  // namespace

namespace refhost {

TextRef Snapshot(const BpCellText& text) { return text.GetImpl()->Snapshot(); }

std::string TableText(std::string_view string, bool lookup)
{
    if (!lookup) return std::string(string);
    return TextTable::Active().LookUp(TextTable::Section::Pivot, string);
}

}  // namespace refhost

BpCellText::Impl::Impl(Text text)
    : fText(std::make_shared<Text>(std::move(text))),
      fStale(std::holds_alternative<TextComposite>(fText->fPassed))
{
}

TextRef BpCellText::Impl::Snapshot()
{
    const auto* composite = std::get_if<TextComposite>(&fText->fPassed);
    if (fStale && composite) {
        const std::string text = refhost::TableText(composite->fString, composite->fLookup);
        fText->fShown = refhost::FillTemplate(text, composite->fParts);
        fStale = false;
    }
    fIsShared = true;
    return fText;
}

std::shared_ptr<BpCellText::Impl> BpCellText::Impl::Copy()
{
    Snapshot();
    return std::make_shared<Impl>(*this);
}

void BpCellText::Impl::Add(TextRef part)
{
    TextComposite* composite = Edit();
    if (!composite) return;
    if (fSublistOpen) {
        std::get<TextSublist>(composite->fParts.back()).fItems.push_back(std::move(part));
    } else {
        composite->fParts.emplace_back(std::move(part));
    }
}

void BpCellText::Impl::Sublist()
{
    TextComposite* composite = Edit();
    if (!composite) return;
    composite->fParts.emplace_back(TextSublist{});
    fSublistOpen = true;
}

void BpCellText::Impl::EndSublist() { fSublistOpen = false; }

void BpCellText::Impl::Finish()
{
    fSublistOpen = false;
    fFinished = true;
}

TextComposite* BpCellText::Impl::Edit()
{
    if (fFinished) return nullptr;
    if (fIsShared) fText = std::make_shared<Text>(*fText);
    fIsShared = false;
    fStale = true;
    return std::get_if<TextComposite>(&fText->fPassed);
}

BpCellText BpCellText::Replicate() const { return BpCellText(fImpl->Copy()); }

BpString::BpString(const std::string& string, bool lookup)
    : BpCellText(lookup ? KeyText(string) : MakeText({TextString{string, false}, string}))
{
}

BpNumber::BpNumber(double number, const BpFormatSpec& format)
    : BpCellText(MakeText(NumberText(number, format)))
{
}

BpVariable::BpVariable(const QORT_Variable* variable, Show)
    : BpCellText(MakeText(VariableText(variable)))
{
}

BpDataValue::BpDataValue(const QORT_Variable* variable, double value, Preference)
    : BpCellText(MakeText(PlainValueText(variable, OBS(value))))
{
}

BpDataValue::BpDataValue(const QORT_Variable* variable, const std::string& value, Preference)
    : BpCellText(MakeText(PlainValueText(variable, OBS(value))))
{
}

BpDataValue::BpDataValue(const QORT_Variable* variable, const OBS* value, Preference)
    : BpCellText(MakeText(DocumentValueText(variable, value)))
{
}

BpComposite::BpComposite(const std::string& string, bool lookup)
    : BpCellText(MakeText({TextComposite{string, lookup, {}}, ""}))
{
}

void BpComposite::Add(const BpCellText& text) { fImpl->Add(text.GetImpl()->Snapshot()); }

void BpComposite::Sublist() { fImpl->Sublist(); }

void BpComposite::EndSublist() { fImpl->EndSublist(); }

void BpComposite::Finish() { fImpl->Finish(); }
