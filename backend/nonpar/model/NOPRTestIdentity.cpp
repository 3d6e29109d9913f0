#include "model/NOPRTestIdentity.h"

namespace {

// clang-format off
constexpr TestKindRow kTestKinds[] = {
    { 1, "OChiSquare",                     "One-Sample Chi-Square Test"},
    { 2, "OBinomial",                      "One-Sample Binomial Test"},
    { 3, "ORuns",                          "One-Sample Runs Test"},
    { 4, "OWilcoxonSignedRanks",           "One-Sample Wilcoxon Signed Rank Test"},
    { 5, "OEstimateConfidenceInterval",    "One-Sample Binomial Success Rate"},
    { 6, "OKolmogorovSmirnov",             "One-Sample Kolmogorov-Smirnov Test"},
    { 7, "OKolmogorovSmirnovNormal",       "Unknown"},
    { 8, "OKolmogorovSmirnovUniform",      "Unknown"},
    { 9, "OKolmogorovSmirnovPoisson",      "Unknown"},
    {10, "OKolmogorovSmirnovExponential",  "Unknown"},
    {11, "RSign",                          "Related-Samples Sign Test"},
    {12, "RWilcoxonSignedRanks",           "Related-Samples Wilcoxon Signed Rank Test"},
    {13, "RCochransQ",                     "Related-Samples Cochran's Q Test"},
    {14, "RMcNemar",                       "Related-Samples McNemar Change Test"},
    {15, "RFriedmansTwoWayByRanks",        "Related-Samples Friedman's Two-Way Analysis of Variance by Ranks"},
    {16, "RKendallsCoefficient",           "Related-Samples Kendall's Coefficient of Concordance"},
    {17, "RMarginalHomogeneity",           "Related-Samples Marginal Homogeneity Test"},
    {18, "RHodgesLehmannEstimatePairs",    "Related-Samples Hodges-Lehman Median Difference"},
    {19, "IHodgesLehmannEstimateGroups",   "Independent-Samples Hodges-Lehman Median Difference"},
    {20, "IMoses",                         "Independent-Samples Moses Test of Extreme Reaction"},
    {21, "IMannWhitneyU",                  "Independent-Samples Mann-Whitney U Test"},
    {22, "IWaldWolfowitzRuns",             "Independent-Samples Wald-Wolfowitz Runs Test"},
    {23, "IKolmogorovSmirnov",             "Independent-Samples Kolmogorov-Smirnov Test"},
    {24, "IKruskalWallis",                 "Independent-Samples Kruskal-Wallis Test"},
    {25, "IJonckheereTerpstra",            "Independent-Samples Jonckheere-Terpstra Test for Ordered Alternatives"},
    {26, "IMedian",                        "Independent-Samples Median Test"},
};

/// A word of the document and the number that it stands for.
struct NumberedName {
    std::string_view fName;
    int fNumber;
};

constexpr NumberedName kSampleKinds[] = {
    {"One_Sample", sample::kOne},
    {"Related_Samples", sample::kRelated},
    {"Independent_Samples", sample::kIndependent},
};

constexpr NumberedName kDecisions[] = {
    {"reject", decision::kReject},
    {"retain", decision::kRetain},
};

constexpr NumberedName kMessageTypes[] = {
    {"error", message::kError},
    {"warning", message::kWarning},
    {"helpMessage", message::kHelp},
};

constexpr NumberedName kFieldTypes[] = {
    {"continuous", 0},
    {"categorical", 1},
    {"ordinal", 2},
};

constexpr NumberedName kStorageTypes[] = {
    {"integer", storage::kInteger},
    {"double", 2},
    {"float", 2},
    {"string", storage::kString},
    {"date", 4},
};
// clang-format on

constexpr int kUnknownFieldType = 6;

int NumberOf(std::string_view name, std::span<const NumberedName> rows, int otherwise)
{
    for (const NumberedName& row : rows)
        if (row.fName == name) return row.fNumber;
    return otherwise;
}

}  // namespace

std::span<const TestKindRow> TestKinds() { return kTestKinds; }

TestKind TestKindFromName(std::string_view name)
{
    for (const TestKindRow& row : kTestKinds)
        if (row.fName == name) return row.fKind;
    return 0;
}

SampleKind SampleKindFromName(std::string_view text) { return NumberOf(text, kSampleKinds, 0); }

Decision DecisionFromName(std::string_view text) { return NumberOf(text, kDecisions, 0); }

MessageType MessageTypeFromName(std::string_view text)
{
    return NumberOf(text, kMessageTypes, message::kHelp);
}

std::string_view TestTitle(TestKind testKind)
{
    for (const TestKindRow& row : kTestKinds)
        if (row.fKind == testKind) return row.fTitle;
    return "Unknown";
}

int FieldTypeFromName(std::string_view text)
{
    return NumberOf(text, kFieldTypes, kUnknownFieldType);
}

int StorageTypeFromName(std::string_view text) { return NumberOf(text, kStorageTypes, 0); }
