#include "views/onesample/KolmogorovSmirnov.h"

#include "charts/ChartWords.h"
#include "charts/Dates.h"
#include "charts/NumberText.h"
#include "charts/TemplateText.h"
#include "charts/ViewSteps.h"
#include "model/NOPRTestRecords.h"
#include "model/TestQueries.h"

namespace {

constexpr char kTableName[] = "Interval";
constexpr char kLabelToken[] = "labelText";
constexpr char kGraphEnd[] = "</graph>";
constexpr char kLineBreak[] = "&#10;";

/// Positions of the record's parameters; the tested field is the first.
constexpr std::size_t kFirstParameter = 1;
constexpr std::size_t kSecondParameter = 2;

/// How a parameter is told in the label: as a value of the field, more finely, or as a spread.
enum class Telling { None, AsValue, AsMean, AsSpread };

struct LabelLine {
    const char* fWord;
    Telling fTelling;
};

/// A distribution's curve, and how the label tells its parameters.
struct Distribution {
    std::string_view fConditionKey;
    const char* fAttribute;
    bool fTakesRate;  ///< the curve's own parameter is the rate, the record's is the mean
    const char* fHeading;
    LabelLine fFirst;
    LabelLine fSecond;
};

constexpr bool kAsItStands = false;
constexpr bool kAsRate = true;
constexpr LabelLine kNoLine = {nullptr, Telling::None};

// clang-format off
constexpr Distribution kDistributions[] = {
    {distribution::kNormal, "normal", kAsItStands, "Normal Parameters",
     {"Mean", Telling::AsMean}, {"Std. Deviation", Telling::AsSpread}},
    {distribution::kUniform, "uniform", kAsItStands, "Uniform Parameters",
     {"Minimum", Telling::AsValue}, {"Maximum", Telling::AsValue}},
    {distribution::kPoisson, "poisson", kAsItStands, "Poisson Parameter",
     {"Mean", Telling::AsMean}, kNoLine},
    {distribution::kExponential, "exponential", kAsRate, "Exponential Parameter",
     {"Mean", Telling::AsMean}, kNoLine},
};
// clang-format on

/// Null for another key, and without a record.
const Distribution* DistributionOf(const NOPROutputStats::BaseHypothesisTest* test)
{
    if (!test) return nullptr;
    for (const Distribution& distribution : kDistributions)
        if (distribution.fConditionKey == test->fCondition.fConditionKey) return &distribution;
    return nullptr;
}

bool HasSecond(const Distribution& distribution)
{
    return distribution.fSecond.fTelling != Telling::None;
}

std::string DateAttribute(double days)
{
    return formatter::formattedDate(HostSecondsFromDays(days)).toUTF8();
}

/// A parameter as an attribute of the curve, in the units of its axis.
std::string AttributeText(double parameter, Telling telling, bool isDate)
{
    if (!isDate) return FormatValue(parameter, nullptr);
    if (telling == Telling::AsSpread) return DurationText(parameter, kAttributeDuration);
    return DateAttribute(parameter);
}

/// A parameter as a reader sees it.
std::string ShownText(double parameter, Telling telling, const QORT_Format& format)
{
    if (telling == Telling::AsSpread && IsSpreadOfDates(format.fType))
        return DurationText(parameter, kReadableDuration);
    const int moreDecimals = telling == Telling::AsMean ? 1 : telling == Telling::AsSpread ? 2 : 0;
    QORT_Format finer = WithMoreDecimals(format, moreDecimals);
    return FormatValue(parameter, &finer);
}

std::string ViewTitle(const NOPROutputStats::BaseHypothesisTest* test)
{
    if (test) return TestHeadingTitle(*test);
    return std::string(TestTitle(kind::kOneSampleKolmogorovSmirnov));
}

}  // namespace

KolmogorovSmirnov::KolmogorovSmirnov(const FacSTDictionary* dictionary,
                                     const NOPROutputStats* stats,
                                     const NOPROutputStats::BaseHypothesisTest* test)
    : NOPRHistogramChart(dictionary, stats), fTest(test)
{
    SetTitle(LookUpText(dictionary, ViewTitle(test)));
}

const NumericTable* KolmogorovSmirnov::HistogramTable()
{
    const NumericTable* table = NOPRHistogramChart::HistogramTable();
    return table && table->fName == kTableName ? table : nullptr;
}

void KolmogorovSmirnov::EditTemplate(std::string& text)
{
    InsertCurve(text);
    NameAxes(text);
    FillLabel(text);
}

void KolmogorovSmirnov::EditDocument(XDocument& document) { BindValues(document); }

void KolmogorovSmirnov::InsertCurve(std::string& text) const
{
    const Distribution* distribution = DistributionOf(fTest);
    if (!distribution) return;
    const auto& parameters = fTest->fCondition.fParameters;
    if (HasSecond(*distribution) && parameters.size() <= kSecondParameter) return;

    const double first = FirstValue(parameters, kFirstParameter).value_or(0.0);
    const double parameter = distribution->fTakesRate ? 1.0 / first : first;
    const bool isDate = IsDateOnAxis(DisplayFormat(GetVariable(), 0).fType);
    std::string curve = std::string("<line><distributionStatistic distribution=\"") +
                        distribution->fAttribute + "\" parameter=\"" +
                        AttributeText(parameter, distribution->fFirst.fTelling, isDate) + "\" ";
    if (HasSecond(*distribution)) {
        const double second = FirstValue(parameters, kSecondParameter).value_or(0.0);
        curve += "secondaryParameter=\"" +
                 AttributeText(second, distribution->fSecond.fTelling, isDate) + "\"";
    }
    curve += "/><x variable=\"value\"/><y variable=\"count\"/></line>";
    InsertBefore(text, kGraphEnd, curve);
}

void KolmogorovSmirnov::FillLabel(std::string& text) const
{
    if (fTest) ReplaceToken(text, kLabelToken, LabelText());
}

std::string KolmogorovSmirnov::LabelText() const
{
    const Distribution* distribution = DistributionOf(fTest);
    if (!distribution) return {};

    const QORT_Format format = DisplayFormat(GetVariable(), 3);
    std::string label = LookUpText(GetDictionary(), distribution->fHeading).toUTF8();
    const auto addLine = [&](const LabelLine& line, std::size_t position) {
        const auto parameter = FirstValue(fTest->fCondition.fParameters, position);
        label += kLineBreak + LookUpText(GetDictionary(), line.fWord).toUTF8() + " ";
        if (parameter) label += ShownText(*parameter, line.fTelling, format);
    };
    addLine(distribution->fFirst, kFirstParameter);
    if (HasSecond(*distribution)) addLine(distribution->fSecond, kSecondParameter);
    return label;
}
