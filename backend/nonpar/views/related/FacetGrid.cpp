#include "views/related/FacetGrid.h"

#include "charts/ChartWords.h"
#include "charts/TemplateText.h"
#include "charts/ViewSteps.h"

#include "host/chart/XDocument.h"
#include "host/chart/XGraph.h"
#include "host/strings/FacSTDictionary.h"

namespace {

FacetFields FieldsOf(const FacetSource& source)
{
    return {FieldAt(source.fStats, source.fComparison->fRowField),
            FieldAt(source.fStats, source.fComparison->fColumnField)};
}

void NameFacets(std::string& text, const ChartString& title, const FacetFields& fields)
{
    ReplaceToken(text, "TitleText", title.toUTF8());
    if (VariableOf(fields.fColumn))
        ReplaceToken(text, "Facet1Text", PreferredLabel(VariableOf(fields.fColumn)));
    if (VariableOf(fields.fRow))
        ReplaceToken(text, "Facet2Text", PreferredLabel(VariableOf(fields.fRow)));
}

/// What stands before the number of a cell on the diagonal.
ChartString CellPrefix(const FacSTDictionary* dictionary)
{
    const ChartTranscoder transcoder("CP1252");
    ChartString prefix =
        transcoder.transcode(dictionary ? dictionary->LookUp("ObservedFrequency") : std::string());
    prefix.replaceSubstring(transcoder.transcode("\\n"), "\n");
    prefix.append(" ");
    return prefix;
}

void BindVariables(XGraph& graph, const FacetSource& source, const FacetRecipe& recipe,
                   const FacetFields& fields, const ChartString& title,
                   const std::string& splitText)
try {
    XVariable cellText = graph.getVariable("celltext", 0);
    cellText.SetFormatPrefix(CellPrefix(source.fDictionary).xc_str());
    SetTitles(graph, title, splitText);
    recipe.fBindVariables(graph, fields);
} catch (...) {
    return;  // the chart goes out with the settings that were made
}

}  // namespace

bool DrawFacets(const FacetSource& source, const FacetRecipe& recipe,
                const VarDataProcessor& processor, const std::string& splitText, bool appendSplit)
{
    std::string text = XDocument::fetchTemplateFile("FacetBarChart.viztemplate");
    if (text.empty()) return false;
    const ChartString title = LookUpText(source.fDictionary, recipe.fTitleKey);
    const FacetFields fields = FieldsOf(source);
    NameFacets(text, title, fields);
    recipe.fEditTemplate(text);

    XDocument document(text);
    PrepareDocument(document);
    document.SetChartData(&processor);
    BindVariables(document.getExternalGraph(), source, recipe, fields, title, splitText);

    const ChartString description = Description(title, splitText, appendSplit);
    document.SetDescription(description.xc_str());
    document.applyCTemplate(false);
    return Send(document);
}
