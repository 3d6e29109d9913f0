#include "views/field/FieldInformation.h"

#include "charts/ChartWords.h"
#include "charts/Dates.h"
#include "charts/NumberText.h"
#include "charts/TemplateText.h"
#include "charts/ValueLabels.h"
#include "charts/ViewSteps.h"
#include "model/NOPROutputStats.h"

#include "host/chart/XDocument.h"
#include "host/chart/XGraph.h"
#include "host/data/QORT_Variable.h"

namespace {

constexpr char kTableName[] = "Interval";
constexpr char kValue[] = "value";
constexpr char kLabelToken[] = "labelText";

constexpr char kCategoricalTitle[] = "Categorical Field Information";
constexpr char kContinuousTitle[] = "Continuous Field Information";
constexpr char kCategoricalAxis[] = "E60352";
constexpr char kContinuousAxis[] = "Frequency";

/// What bins the values of a continuous field; categories stand as they are.
constexpr std::string_view kBinning[] = {"<binStatistic/>", "<summaryStatistic method=\"sum\"/>"};

constexpr std::string_view kLineBreak = "\\n";  // as the dictionary has it
constexpr std::string_view kTemplateLineBreak = "&#10;";

/// Lines break where the dictionary's texts say so; there is none before the first.
std::string BrokenIntoLines(std::string_view text)
{
    if (text.starts_with(kLineBreak)) text.remove_prefix(kLineBreak.size());
    std::string lines;
    for (auto end = text.find(kLineBreak); end != std::string_view::npos;
         end = text.find(kLineBreak)) {
        lines.append(text.substr(0, end)).append(kTemplateLineBreak);
        text.remove_prefix(end + kLineBreak.size());
    }
    return lines.append(text);
}

ChartString CategoricalStatistics(const FacSTDictionary* dictionary, const FieldInfoData& field)
{
    ChartString text = LookUpText(dictionary, "TotalN");
    text.append(" =  ");
    text.appendInteger(field.fTotalN);
    return text;
}

std::string SpreadText(double spread, const QORT_Format& format)
{
    if (IsSpreadOfDates(format.fType)) return DurationText(spread, kReadableDuration);
    QORT_Format finer = WithMoreDecimals(format, 2);
    return FormatValue(spread, &finer);
}

ChartString ContinuousStatistics(const FacSTDictionary* dictionary, const FieldInfoData& field)
{
    QORT_Format format = DisplayFormat(field.fVariable, 3);
    QORT_Format finer = WithMoreDecimals(format, 1);
    ChartString text;
    const auto add = [&](const char* key, const std::string& number) {
        text.append(LookUpText(dictionary, key));
        text.append(" " + number);
    };
    add("histoN", IntegerText(field.fTotalN).toUTF8());
    add("histoMin", FormatValue(field.fMin, &format));
    add("histoMax", FormatValue(field.fMax, &format));
    add("histoMean", FormatValue(field.fMean, &finer));
    add("histoStdDev", SpreadText(field.fStdDev, format));
    return text;
}

void SetFootnote(XGraph& graph, const FacSTDictionary* dictionary, const QORT_Variable& variable)
{
    ChartString footnote = LookUpText(dictionary, "ORDINAL_AS_CON");
    FillPlace(footnote, variable.GetPreferredLabel());
    graph.setFootnote(footnote.xc_str());
}

/// A category shows its label where that says more than the value itself.
void RelabelCategories(const FieldInfoData& field, XVariable variable)
{
    const QORT_Format format = DisplayFormat(field.fVariable, 0);
    for (const FieldValue& value : field.fValues) {
        const OBS* obs = value.fValue.GetObsValue();
        if (!obs || value.fLabel.empty()) continue;
        const ChartString key = ValueKey(*obs, format);
        const ChartString label = value.fLabel;
        if (!key.equals(label)) variable.addRelabel(key.xc_str(), label.xc_str());
    }
}

}  // namespace

FieldInformation::FieldInformation(const FacSTDictionary* dictionary, const NOPROutputStats* stats,
                                   bool categorical)
    : NOPRHistogramChart(dictionary, stats), fCategorical(categorical)
{
}

const NumericTable* FieldInformation::HistogramTable()
{
    const FieldInfoData* field = GetField();
    if (!field || field->fDistribution.fName != kTableName) return nullptr;
    if (field->fIsCategorical != fCategorical) return nullptr;

    ChartString title =
        LookUpText(GetDictionary(), fCategorical ? kCategoricalTitle : kContinuousTitle);
    if (field->fVariable) title.append(" " + field->fVariable->GetPreferredLabel());
    SetTitle(title);
    return &field->fDistribution;
}

void FieldInformation::EditTemplate(std::string& text)
{
    const FieldInfoData* field = GetField();
    if (!field) return;
    const FacSTDictionary* dictionary = GetDictionary();
    ReplaceToken(text, "xAxisLabel", PreferredLabel(field->fVariable));
    if (fCategorical)
        for (const std::string_view statistic : kBinning)
            ReplaceToken(text, statistic, "");
    ReplaceTokenByWord(text, "yAxisLabel", dictionary,
                       fCategorical ? kCategoricalAxis : kContinuousAxis);
    if (!Contains(text, kLabelToken)) return;
    const ChartString statistics = fCategorical ? CategoricalStatistics(dictionary, *field)
                                                : ContinuousStatistics(dictionary, *field);
    ReplaceToken(text, kLabelToken, BrokenIntoLines(statistics.toUTF8()));
}

void FieldInformation::EditDocument(XDocument& document)
{
    XGraph& graph = document.getExternalGraph();
    XVariable value = graph.getVariable(kValue, 0);
    if (const QORT_Variable* variable = GetVariable()) BindVariable(value, variable);
    if (!fCategorical) return;

    value.setCategorical(true);
    const FieldInfoData* field = GetField();
    if (!field) return;
    if (field->fVariable && field->fOrdinalAsContinuous)
        SetFootnote(graph, GetDictionary(), *field->fVariable);
    if (field->fIsCategorical) RelabelCategories(*field, value);
}
