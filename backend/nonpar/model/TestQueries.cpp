#include "model/TestQueries.h"

#include <algorithm>
#include <span>
#include <string_view>

#include "model/Positions.h"

namespace {

using Stats = NOPROutputStats;
using Parameters = std::vector<Stats::ConditionParameter>;

constexpr int kPairCodes[] = {222328, 222329, 222331, 222332, 222333, 222334, 220013};

constexpr TestKind kKindsOfManyFields[] = {kind::kCochran, kind::kFriedman, kind::kKendall};

constexpr TestKind kKindsOfTwoFields[] = {kind::kSign,
                                          kind::kPairedWilcoxon,
                                          kind::kMcNemar,
                                          kind::kMarginalHomogeneity,
                                          kind::kHodgesLehmannPairs,
                                          kind::kHodgesLehmannGroups};

struct DistributionTitle {
    std::string_view fConditionKey;
    std::string_view fTitle;
};

// clang-format off
constexpr DistributionTitle kDistributionTitles[] = {
    {distribution::kUniform,     "One-Sample Kolmogorov-Smirnov Uniform Test"},
    {distribution::kNormal,      "One-Sample Kolmogorov-Smirnov Normal Test"},
    {distribution::kPoisson,     "One-Sample Kolmogorov-Smirnov Poisson Test"},
    {distribution::kExponential, "One-Sample Kolmogorov-Smirnov Exponential Test"},
};
// clang-format on

template <class Value>
bool Holds(std::span<const Value> values, Value value)
{
    return std::ranges::find(values, value) != values.end();
}

std::vector<double> FirstOf(const Parameters& parameters)
{
    if (parameters.empty() || parameters[0].fValues.empty()) return {};
    return {parameters[0].fValues.front()};
}

std::vector<double> AllOf(const Parameters& parameters)
{
    if (parameters.empty()) return {};
    return parameters[0].fValues;
}

bool HasTwo(const Parameters& parameters)
{
    return parameters.size() >= 2 && !parameters[0].fValues.empty() &&
           !parameters[1].fValues.empty();
}

std::vector<double> FirstOfBoth(const Parameters& parameters)
{
    if (!HasTwo(parameters)) return {};
    return {parameters[0].fValues.front(), parameters[1].fValues.front()};
}

std::vector<double> FieldNumbers(const Stats::BaseHypothesisTest& test)
{
    const Parameters& parameters = test.fCondition.fParameters;
    switch (test.fSampleKind) {
        case sample::kOne:
            return FirstOf(parameters);
        case sample::kRelated:
            if (Holds<TestKind>(kKindsOfManyFields, test.fTestKind)) return AllOf(parameters);
            if (Holds<TestKind>(kKindsOfTwoFields, test.fTestKind)) return FirstOfBoth(parameters);
            return {};
        case sample::kIndependent:
            return FirstOfBoth(parameters);
        default:
            return {};
    }
}

/// Whether a key begins with a family mark such as "O_" or holds it between two underscores.
bool IsOfFamily(std::string_view key, std::string_view mark)
{
    return key.starts_with(mark.substr(1)) || key.find(mark) != std::string_view::npos;
}

}  // namespace

bool IsPairMessage(int code) { return Holds<int>(kPairCodes, code); }

const NOPROutputStats::WarningMessage* FindBlockingMessage(
    const NOPROutputStats::BaseHypothesisTest& test)
{
    const auto blocks = [](const Stats::WarningMessage& entry) {
        return entry.fType == message::kError && !IsPairMessage(entry.fCode);
    };
    const auto found = std::ranges::find_if(test.fMessages, blocks);
    return found == test.fMessages.end() ? nullptr : &*found;
}

int CountErrors(const std::vector<NOPROutputStats::WarningMessage>& messages)
{
    return static_cast<int>(
        std::ranges::count(messages, message::kError, &Stats::WarningMessage::fType));
}

void TestFields(const NOPROutputStats::BaseHypothesisTest& test, std::vector<int>& fields)
{
    fields.clear();
    for (const double number : FieldNumbers(test))
        fields.push_back(CutToInt(number));
}

std::vector<double> ConditionFields(const NOPROutputStats::ConditionData& condition)
{
    const Parameters& parameters = condition.fParameters;
    const std::string_view key = condition.fConditionKey;
    if (IsOfFamily(key, "_O_")) return FirstOf(parameters);
    if (IsOfFamily(key, "_R_"))
        return HasTwo(parameters) ? FirstOfBoth(parameters) : AllOf(parameters);
    if (IsOfFamily(key, "_I_"))
        return HasTwo(parameters) ? FirstOfBoth(parameters) : FirstOf(parameters);
    return {};
}

std::string TestHeadingTitle(const NOPROutputStats::BaseHypothesisTest& test)
{
    if (test.fTestKind == kind::kOneSampleKolmogorovSmirnov)
        for (const DistributionTitle& row : kDistributionTitles)
            if (row.fConditionKey == test.fCondition.fConditionKey) return std::string(row.fTitle);
    return std::string(TestTitle(test.fTestKind));
}
