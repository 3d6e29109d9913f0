#include "model/TestQueries.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <climits>

#include "support/Cases.h"

namespace {

using Stats = NOPROutputStats;
using Lists = std::vector<std::vector<double>>;

std::vector<Stats::ConditionParameter> Parameters(const Lists& lists)
{
    std::vector<Stats::ConditionParameter> parameters;
    for (const auto& values : lists)
        parameters.push_back({0, values});
    return parameters;
}

TEST(IsPairMessage, KnowsSevenCodes)
{
    for (const int code : {222328, 222329, 222331, 222332, 222333, 222334, 220013})
        EXPECT_TRUE(IsPairMessage(code)) << code;
    for (const int code : {0, 222327, 222330, 222335, -222328})
        EXPECT_FALSE(IsPairMessage(code)) << code;
}

TEST(TestFields, TakesWhatTheSampleKindNames)
{
    using Fields = std::vector<int>;
    // clang-format off
    ExpectEach<std::tuple<SampleKind, TestKind, Lists>, Fields>({
        {{1, 2, {{3, 4}, {5}}}, {3}, "one sample: the first value"},
        {{1, 2, {{}, {5}}}, {}, "one sample without a value"},
        {{1, 99, {{2.9}}}, {2}, "any kind, cut to an integer"},
        {{2, 13, {{3, 4, 5}, {6}}}, {3, 4, 5}, "all fields of the first parameter"},
        {{2, 15, {{}}}, {}, "no fields"},
        {{2, 16, {}}, {}, "no parameter"},
        {{2, 11, {{3, 9}, {4}}}, {3, 4}, "a pair: the first of each"},
        {{2, 17, {{3}}}, {}, "a pair needs two parameters"},
        {{2, 18, {{3}, {}}}, {}, "both with a value"},
        {{2, 19, {{3}, {4}, {5}}}, {3, 4}, "the third is no field"},
        {{2, 24, {{3}, {4}}}, {}, "a kind of another family"},
        {{3, 2, {{3}, {4}}}, {3, 4}, "independent samples: any kind"},
        {{3, 21, {{3}}}, {}, "without a group"},
        {{0, 2, {{3}, {4}}}, {}, "an unknown sample"},
        {{1, 2, {{1e300}}}, {INT_MAX}, "a huge index names no field later"},
    }, [](SampleKind sampleKind, TestKind testKind, const Lists& parameters) {
        Stats::HTOBinomial test;
        test.fSampleKind = sampleKind;
        test.fTestKind = testKind;
        test.fCondition.fParameters = Parameters(parameters);
        Fields fields = {77};
        TestFields(test, fields);
        return fields;
    });
    // clang-format on
}

TEST(ConditionFields, ReadsTheFamilyFromTheKey)
{
    // clang-format off
    ExpectEach<std::pair<const char*, Lists>, std::vector<double>>({
        {{"O_WilcoxonSignedRanks_2", {{1, 2}, {3}}}, {1}, "the mark begins the key"},
        {{"X_O_Binomial_4", {{}, {3}}}, {}, "no value"},
        {{"X_O_R_I_4", {{1}, {3}}}, {1}, "one sample goes first"},
        {{"R_Sign_2", {{1, 2}, {3, 4}}}, {1, 3}, "two parameters"},
        {{"R_Kendall_1", {{1, 2}, {}}}, {1, 2}, "else all of the first"},
        {{"R_Kendall_1", {}}, {}, "no parameter"},
        {{"X_R_I_2", {{1, 2}}}, {1, 2}, "related goes before independent"},
        {{"X_I_Median_2", {{1, 2}, {3}}}, {1, 3}, "two parameters"},
        {{"I_Median_2", {{1, 2}}}, {1}, "else the first of the first"},
        {{"I_Median_2", {{}}}, {}, "no value"},
        {{"XO_Binomial_4", {{1}}}, {}, "no mark"},
        {{"", {{1}}}, {}, "no key"},
    }, [](const char* key, const Lists& parameters) {
        Stats::ConditionData condition;
        condition.fConditionKey = key;
        condition.fParameters = Parameters(parameters);
        return ConditionFields(condition);
    });
    // clang-format on
}

TEST(TestHeadingTitle, NamesTheDistributionOfTheKolmogorovSmirnovTestOnly)
{
    // clang-format off
    ExpectEach<std::pair<TestKind, const char*>, std::string>({
        {{6, "NormalDistribution_O_KolmogorovSmirnov_3"}, "One-Sample Kolmogorov-Smirnov Normal Test"},
        {{6, "NormalDistribution_O_KolmogorovSmirnov_2"}, "One-Sample Kolmogorov-Smirnov Test", "no such key"},
        {{23, "NormalDistribution_O_KolmogorovSmirnov_3"}, "Independent-Samples Kolmogorov-Smirnov Test"},
    }, [](TestKind testKind, const char* key) {
        Stats::HTOKolmogorovSmirnov test;
        test.fTestKind = testKind;
        test.fCondition.fConditionKey = key;
        return TestHeadingTitle(test);
    });
    // clang-format on
}

}  // namespace
