#include "views/related/FacetGrid.h"

#include "charts/ChartWords.h"
#include "charts/TemplateText.h"
#include "charts/ViewSteps.h"

#include "host/strings/FacSTDictionary.h"

FacetFields FieldsOf(const NOPROutputStats* stats,
                     const NOPROutputStats::CategoryComparison& comparison)
{
    return {FieldAt(stats, comparison.fRowField), FieldAt(stats, comparison.fColumnField)};
}

void NameFacets(std::string& text, const ChartString& title, const FacetFields& fields)
{
    ReplaceToken(text, "TitleText", title.toUTF8());
    if (VariableOf(fields.fColumn))
        ReplaceToken(text, "Facet1Text", PreferredLabel(VariableOf(fields.fColumn)));
    if (VariableOf(fields.fRow))
        ReplaceToken(text, "Facet2Text", PreferredLabel(VariableOf(fields.fRow)));
}

ChartString CellPrefix(const FacSTDictionary* dictionary)
{
    const ChartTranscoder transcoder("CP1252");
    ChartString prefix =
        transcoder.transcode(dictionary ? dictionary->LookUp("ObservedFrequency") : std::string());
    prefix.replaceSubstring(transcoder.transcode("\\n"), "\n");
    prefix.append(" ");
    return prefix;
}
