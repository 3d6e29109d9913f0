#include "charts/ChartWords.h"

#include "charts/TemplateText.h"

#include "host/data/QORT_Variable.h"
#include "host/strings/FacSTDictionary.h"

ChartString LookUpText(const FacSTDictionary* dictionary, const std::string& key)
{
    return XUtility::ChartStringFromOLANG(dictionary ? dictionary->LookUp(key) : key);
}

void ReplaceTokenByWord(std::string& text, std::string_view token,
                        const FacSTDictionary* dictionary, const std::string& key)
{
    ReplaceToken(text, token, LookUpText(dictionary, key).toUTF8());
}

ChartString NamedNumber(const FacSTDictionary* dictionary, const std::string& key,
                        const std::string& number)
{
    ChartString text = LookUpText(dictionary, key);
    text.append(" = " + number);
    return text;
}

void FillPlace(ChartString& sentence, const ChartString& text)
{
    sentence.replaceSubstring("^1", text);
}

void BreakLines(ChartString& text) { text.replaceSubstring("\\n", "\n"); }

std::string PreferredLabel(const QORT_Variable* variable)
{
    return variable ? ChartString(variable->GetPreferredLabel()).toUTF8() : std::string();
}
