#include "model/TestQueries.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <climits>

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

TEST(FindBlockingMessage, TakesTheFirstErrorOfTheTestAsAWhole)
{
    Stats::HTOChiSquare test;
    EXPECT_EQ(FindBlockingMessage(test), nullptr);
    const auto add = [&test](int code, MessageType type) {
        Stats::WarningMessage entry;
        entry.fCode = code;
        entry.fType = type;
        test.fMessages.push_back(entry);
    };
    add(1, message::kWarning);
    add(222328, message::kError);
    add(2, message::kHelp);
    EXPECT_EQ(FindBlockingMessage(test), nullptr) << "an error of a pair does not block";
    EXPECT_EQ(CountErrors(test.fMessages), 1) << "but it counts";
    add(3, message::kError);
    add(4, message::kError);
    ASSERT_NE(FindBlockingMessage(test), nullptr);
    EXPECT_EQ(FindBlockingMessage(test)->fCode, 3);
    EXPECT_EQ(CountErrors(test.fMessages), 3);
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
    struct Row {
        SampleKind sampleKind;
        TestKind testKind;
        Lists parameters;
        std::vector<int> fields;
        const char* why;
    };
    // clang-format off
    const Row rows[] = {
        {1, 2, {{3, 4}, {5}}, {3}, "one sample: the first value"},
        {1, 2, {{}, {5}}, {}, "one sample without a value"},
        {1, 99, {{2.9}}, {2}, "any kind, cut to an integer"},
        {2, 13, {{3, 4, 5}, {6}}, {3, 4, 5}, "all fields of the first parameter"},
        {2, 15, {{}}, {}, "no fields"},
        {2, 16, {}, {}, "no parameter"},
        {2, 11, {{3, 9}, {4}}, {3, 4}, "a pair: the first of each"},
        {2, 17, {{3}}, {}, "a pair needs two parameters"},
        {2, 18, {{3}, {}}, {}, "both with a value"},
        {2, 19, {{3}, {4}, {5}}, {3, 4}, "the third is no field"},
        {2, 24, {{3}, {4}}, {}, "a kind of another family"},
        {3, 2, {{3}, {4}}, {3, 4}, "independent samples: any kind"},
        {3, 21, {{3}}, {}, "without a group"},
        {0, 2, {{3}, {4}}, {}, "an unknown sample"},
        {1, 2, {{1e300}}, {INT_MAX}, "a huge index names no field later"},
    };
    // clang-format on
    for (const Row& row : rows) {
        SCOPED_TRACE(row.why);
        Stats::HTOBinomial test;
        test.fSampleKind = row.sampleKind;
        test.fTestKind = row.testKind;
        test.fCondition.fParameters = Parameters(row.parameters);
        std::vector<int> fields = {77};
        TestFields(test, fields);
        EXPECT_EQ(fields, row.fields);
    }
}

TEST(ConditionFields, ReadsTheFamilyFromTheKey)
{
    struct Row {
        const char* key;
        Lists parameters;
        std::vector<double> fields;
        const char* why;
    };
    // clang-format off
    const Row rows[] = {
        {"O_WilcoxonSignedRanks_2", {{1, 2}, {3}}, {1}, "the mark begins the key"},
        {"X_O_Binomial_4", {{}, {3}}, {}, "no value"},
        {"X_O_R_I_4", {{1}, {3}}, {1}, "one sample goes first"},
        {"R_Sign_2", {{1, 2}, {3, 4}}, {1, 3}, "two parameters"},
        {"R_Kendall_1", {{1, 2}, {}}, {1, 2}, "else all of the first"},
        {"R_Kendall_1", {}, {}, "no parameter"},
        {"X_R_I_2", {{1, 2}}, {1, 2}, "related goes before independent"},
        {"X_I_Median_2", {{1, 2}, {3}}, {1, 3}, "two parameters"},
        {"I_Median_2", {{1, 2}}, {1}, "else the first of the first"},
        {"I_Median_2", {{}}, {}, "no value"},
        {"XO_Binomial_4", {{1}}, {}, "no mark"},
        {"", {{1}}, {}, "no key"},
    };
    // clang-format on
    for (const Row& row : rows) {
        SCOPED_TRACE(std::string(row.key) + ": " + row.why);
        Stats::ConditionData condition;
        condition.fConditionKey = row.key;
        condition.fParameters = Parameters(row.parameters);
        EXPECT_EQ(ConditionFields(condition), row.fields);
    }
}

TEST(TestHeadingTitle, NamesTheDistributionOfTheKolmogorovSmirnovTestOnly)
{
    struct Row {
        TestKind testKind;
        const char* key;
        const char* title;
    };
    // clang-format off
    const Row rows[] = {
        {6, "UniformDistribution_O_KolmogorovSmirnov_3", "One-Sample Kolmogorov-Smirnov Uniform Test"},
        {6, "NormalDistribution_O_KolmogorovSmirnov_3", "One-Sample Kolmogorov-Smirnov Normal Test"},
        {6, "PoissonDistribution_O_KolmogorovSmirnov_2", "One-Sample Kolmogorov-Smirnov Poisson Test"},
        {6, "ExponentialDistribution_O_KolmogorovSmirnov_2", "One-Sample Kolmogorov-Smirnov Exponential Test"},
        {6, "NormalDistribution_O_KolmogorovSmirnov_2", "One-Sample Kolmogorov-Smirnov Test"},
        {23, "NormalDistribution_O_KolmogorovSmirnov_3", "Independent-Samples Kolmogorov-Smirnov Test"},
        {7, "", "Unknown"},
    };
    // clang-format on
    for (const Row& row : rows) {
        Stats::HTOKolmogorovSmirnov test;
        test.fTestKind = row.testKind;
        test.fCondition.fConditionKey = row.key;
        EXPECT_EQ(TestHeadingTitle(test), row.title) << row.key;
    }
}

}  // namespace
