#include "views/related/RSCochransQ.h"

#include <algorithm>
#include <charconv>
#include <string_view>

#include "charts/NumberText.h"
#include "charts/TemplateText.h"
#include "charts/ValueLabels.h"
#include "charts/ViewSteps.h"
#include "model/Positions.h"

#include "host/chart/ChartString.h"
#include "host/data/OBS.h"
#include "host/data/QORT_Format.h"
#include "host/data/QORT_Variable.h"

namespace {

/// The number at the start of a name, as C's `atoi` reads it: 0 where there is none. A number
/// beyond the range names nothing, so it counts as -1.
int LeadingInteger(std::string_view name)
{
    name.remove_prefix(std::min(name.find_first_not_of(" \t\n\v\f\r"), name.size()));
    if (name.starts_with('+') && !name.starts_with("+-")) name.remove_prefix(1);
    int number = 0;
    const auto [end, error] = std::from_chars(name.data(), name.data() + name.size(), number);
    return error == std::errc::result_out_of_range ? -1 : number;
}

}  // namespace

RSCochransQ::RSCochransQ(const FacSTDictionary* dictionary, const NOPROutputStats* stats,
                         const NOPROutputStats::HTRCochransQ* test)
    : NOPRStackedChart(dictionary, stats), fTest(test)
{
    SetTitleKey("Related-Samples Cochran's Q Test");
}

std::string RSCochransQ::SeriesLabel(const std::string& rowName)
{
    const QORT_Variable* variable = VariableOf(FieldAt(GetStats(), LeadingInteger(rowName)));
    return variable ? variable->GetPreferredLabel() : rowName;
}

std::string RSCochransQ::CategoryLabel(const std::string& rowName, const std::string& columnName,
                                       bool /*escaped*/)
try {
    const FieldInfoData* field = FieldAt(GetStats(), LeadingInteger(rowName));
    if (!field || !field->fIsCategorical) return columnName;
    const QORT_Format format =
        field->fVariable ? field->fVariable->GetFormat() : PlainFormat(/*decimals=*/0);
    const FieldValue* value = ElementAt(field->fValues, LeadingInteger(columnName));
    const OBS* obs = value ? value->fValue.GetObsValue() : nullptr;
    if (!obs) return columnName;
    const ChartString text = ValueKey(*obs, format);
    if (value->fLabel.empty()) return text.toUTF8();
    const ChartString label = value->fLabel;
    return text.equals(label) ? columnName : label.toUTF8();
} catch (...) {
    return columnName;
}

const std::vector<NOPROutputStats::ConditionParameter>& RSCochransQ::ParameterTable()
{
    return ParametersOf(fTest);
}

const NumericTable* RSCochransQ::ChartTable() { return fTest ? &fTest->fTable : nullptr; }

void RSCochransQ::EditTemplate(std::string& text) { ReplaceToken(text, "LegendLabel", ""); }
