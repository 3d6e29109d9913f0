#include "fuzz/mutators/MarkupWords.h"

#include "model/NOPRTestIdentity.h"
#include "output/ConditionKeys.h"

#include "refhost/template/TemplateGrammar.h"

namespace fuzz {

namespace {

void Append(std::string& words, std::string_view word)
{
    words.append(words.empty() ? "" : " ").append(word);
}

std::string TestNames()
{
    std::string words = "OUnknown";
    for (const TestKindRow& row : TestKinds())
        Append(words, row.fName);
    return words;
}

std::string Keys()
{
    std::string words;
    for (const ConditionKey& key : ConditionKeys())
        Append(words, key.fKey);
    return words;
}

std::string TemplateAttributes()
{
    std::string words;
    for (const refhost::GrammarRow& row : refhost::kGrammar)
        Append(words, row.fAttributes);
    return words;
}

std::string TemplateElements()
{
    std::string words;
    for (const refhost::GrammarRow& row : refhost::kGrammar)
        Append(words, row.fElement);
    return words;
}

}  // namespace

// clang-format off
const std::vector<MarkupWords>& DocumentWords()
{
    static const std::vector<MarkupWords> words = {
        {"Algorithm", "name", TestNames()},
        {"Algorithm", "classification", "One_Sample Related_Samples Independent_Samples none"},
        {"Algorithm", "decision", "reject retain unknown"},
        {"StructuredTable", "name",
            "Condition StatisticsResult WarningMessages ValsNotInTheCategoreis RowValsNotInTheCategoreis "
            "ColValsNotInTheCategoreis TwoClassComparison RunsParameters ContinuousDistribution CategoricalDistribution "
            "ClopperPearson Jeffreys ProfileLikelihood PairwiseResult StepwiseResult CategoryFieldsComparison "
            "VariableInformation0 Group0 Group1 BoxPlotInfo Asymptotic Exact MonteCarlo Message0"},
        {"SimpleTable", "name", "Content Interval Ranks Box Outliers PairwiseInfo StepwiseInfo Frequency"},
        {"Attribute", "name",
            "ConditionKey %0 %1 %2 %3 %4 isUseSample OrdinalTreatedAsCont code type paramNum group fieldIndex GroupIndex "
            "GroupFieldIndex GroupCount GrandMedian GTMedian STMedian N MeanOfRank Mean StdDev ObservedRunNumber "
            "HypotheticalMedian ObservedMedian Estimate Lower Upper computeECIMethod NegativeDifferences Ties "
            "PositiveDifferences RowNames ColumnNames RowSuccessList RowFailList ColumnSuccessList ColumnFailList TotalN "
            "TestStatistic StandardError StandardizedTestStatistic DegreeOfFreedom AsymptoticSig2Tailed AsymptoticSig "
            "ExactSig2Tailed ExactSig1Tailed MonteCarloSig Min Max Value0 Median"},
        {"Attribute", "value", Keys()},
        {"Attribute", "value", "error warning helpMessage true false"},
        {"NonParametricTests", "missingTreatment", "listwise testbytest"},
        {"NonParametricTests", "sigLevel", "0 0.05 1 -1 nan"},
        {"NonParametricTests", "confidenceLevel", "0 0.95 95 nan"},
        {"DataField", "name", "score grade group region day moment length amount place keep none"},
        {"DataField", "optype", "continuous categorical ordinal none"},
        {"DataField", "dataType", "integer double float string date none"},
        {"FieldInfo", "varIndex", "0 1 2 3 4 5"},
    };
    return words;
}

const std::vector<MarkupWords>& TemplateWords()
{
    static const std::vector<MarkupWords> words = {
        {"", "", TemplateElements()},
        {"", "", TemplateAttributes()},
        {"dimension", "scale", "category number data"},
        {"", "arrangement", "stack cluster overlay"},
        {"", "dash", "solid dashed dotted"},
        {"", "method", "sum fixed auto"},
        {"", "part", "left right top bottom width height median"},
        {"", "place", "near far"},
        {"", "side", "x y"},
        {"", "extent", "x y"},
        {"", "dimension", "x y"},
        {"", "direction", "rows columns"},
        {"", "distribution", "normal uniform poisson exponential"},
        {"", "parameter", "0 1 -1 12.5 2024-05-01T00:00:00 P2DT03H00M00S 1e300"},
        {"", "secondaryParameter", "0 1 -1 12.5 1e-300 1e300"},
        {"", "value", "0% 50% 100% -5% 1e9%"},
        {"", "palette", "red;blue #112233 ;;;"},
    };
    return words;
}
// clang-format on

}  // namespace fuzz
