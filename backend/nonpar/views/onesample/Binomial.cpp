#include "views/onesample/Binomial.h"

#include "charts/ChartWords.h"
#include "charts/NumberText.h"
#include "charts/TemplateText.h"
#include "charts/ViewSteps.h"
#include "model/Positions.h"

#include "host/data/QORT_Variable.h"
#include "host/framework/CFMetaData.h"

namespace {

constexpr char kTitle[] = "One-Sample Binomial Test";
constexpr char kObserved[] = "E60564";
constexpr char kHypothesized[] = "Hypothesized";
constexpr char kLegendToken[] = "LegendLabel";
constexpr char kOrderToken[] = "CategoryOrderText";

constexpr std::string_view kBinaryField = "ABinaryTestVariableIsSpecified_O_Binomial_5";
constexpr std::string_view kCutPoint = "ACutPointIsSpecified_O_Binomial_4";

constexpr std::string_view kFirstColumn = "0";
constexpr std::string_view kSecondColumn = "1";

/// Positions of the record's parameters.
enum Role : std::size_t { kTestField, kFirstCategory, kSecondCategory };

const CFField* DictionaryField(const NOPROutputStats* stats, const FieldInfoData* field)
{
    if (!stats || !stats->GetMetaData() || !field) return nullptr;
    return stats->GetMetaData()->GetField(field->fFieldIndex);
}

/// Null where the list does not reach that far.
const std::string* LabelAt(const CFField& field, double number)
{
    const CFValue* label = ElementAt(field.GetValueLabels(), CutToInt(number));
    return label ? &label->GetText() : nullptr;
}

}  // namespace

Binomial::Binomial(const FacSTDictionary* dictionary, const NOPROutputStats* stats,
                   const NOPROutputStats::HTOBinomial* test)
    : NOPRStackedChart(dictionary, stats), fTest(test)
{
    SetTitleKey(kTitle);
}

std::string Binomial::SeriesLabel(const std::string& rowName)
{
    return LookUpText(GetDictionary(), rowName == kHypothesized ? kHypothesized : kObserved)
        .toUTF8();
}

std::string Binomial::CategoryLabel(const std::string&, const std::string& columnName, bool escaped)
{
    if (!fTest) return columnName;
    const std::string& key = fTest->fCondition.fConditionKey;
    if (key == kBinaryField) return ValueLabel(columnName);
    if (key == kCutPoint) return CutPointLabel(columnName, escaped);
    return columnName;
}

const std::vector<NOPROutputStats::ConditionParameter>& Binomial::ParameterTable()
{
    return ParametersOf(fTest);
}

const NumericTable* Binomial::ChartTable() { return fTest ? &fTest->fTable : nullptr; }

void Binomial::EditTemplate(std::string& text)
{
    const bool isNamed =
        FirstValue(ParameterTable(), kTestField) && FirstValue(ParameterTable(), kFirstCategory);
    const QORT_Variable* variable = isNamed ? VariableOf(TestField()) : nullptr;
    const std::string label = variable ? variable->GetPreferredLabel() : std::string();
    ReplaceToken(text, kLegendToken, XUtility::ChartStringFromLocalCodePage(label).toUTF8());

    ChartString order = CategoryLabel("", std::string(kFirstColumn), /*escaped=*/true);
    order.append(";");
    order.append(CategoryLabel("", std::string(kSecondColumn), /*escaped=*/true));
    ReplaceToken(text, kOrderToken, order.toUTF8());
}

const FieldInfoData* Binomial::TestField()
{
    const auto index = FirstValue(ParameterTable(), kTestField);
    return index ? FieldAt(GetStats(), *index) : nullptr;
}

double Binomial::Parameter(std::size_t position)
{
    return FirstValue(ParameterTable(), position).value_or(0.0);
}

std::string Binomial::ValueLabel(const std::string& columnName)
{
    const CFField* field = DictionaryField(GetStats(), TestField());
    if (!field) return columnName;
    if (columnName == kFirstColumn)
        if (const std::string* label = LabelAt(*field, Parameter(kFirstCategory))) return *label;
    const std::string* label = LabelAt(*field, Parameter(kSecondCategory));
    return label ? *label : columnName;
}

std::string Binomial::CutPointLabel(const std::string& columnName, bool escaped)
{
    const double cutPoint = Parameter(kFirstCategory);
    const QORT_Variable* variable = VariableOf(TestField());
    const std::string number =
        variable ? FormatForVariable(cutPoint, *variable) : FormatValue(cutPoint, nullptr);
    if (columnName == kFirstColumn) return (escaped ? " &lt;= " : " <= ") + number;
    return (escaped ? " &gt; " : " > ") + number;
}
