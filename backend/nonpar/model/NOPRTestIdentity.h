#pragma once

#include <cstdint>
#include <span>
#include <string_view>

/// The closed vocabularies of result documents. Texts compare exactly: whole, with case, untrimmed.

using TestKind = std::int32_t;        ///< 1 to 26; 0 is unknown
using SampleKind = std::int32_t;      ///< 1 one-sample, 2 related, 3 independent; 0 unknown
using Decision = std::int32_t;        ///< 1 reject, 2 retain; 0 not computed
using MessageType = std::int32_t;     ///< 0 error, 1 warning, 2 help message
using ComparisonKind = std::int32_t;  ///< 0 none, 1 pairwise, 2 stepwise

/// Kinds that code names by itself; the others are rows of tables.
namespace kind {
inline constexpr TestKind kChiSquare = 1;
inline constexpr TestKind kBinomial = 2;
inline constexpr TestKind kRuns = 3;
inline constexpr TestKind kOneSampleWilcoxon = 4;
inline constexpr TestKind kBinomialInterval = 5;
inline constexpr TestKind kOneSampleKolmogorovSmirnov = 6;
inline constexpr TestKind kSign = 11;
inline constexpr TestKind kPairedWilcoxon = 12;
inline constexpr TestKind kCochran = 13;
inline constexpr TestKind kMcNemar = 14;
inline constexpr TestKind kFriedman = 15;
inline constexpr TestKind kKendall = 16;
inline constexpr TestKind kMarginalHomogeneity = 17;
inline constexpr TestKind kHodgesLehmannPairs = 18;
inline constexpr TestKind kHodgesLehmannGroups = 19;
inline constexpr TestKind kMoses = 20;
inline constexpr TestKind kMannWhitney = 21;
inline constexpr TestKind kWaldWolfowitz = 22;
inline constexpr TestKind kTwoSampleKolmogorovSmirnov = 23;
inline constexpr TestKind kKruskalWallis = 24;
inline constexpr TestKind kJonckheereTerpstra = 25;
inline constexpr TestKind kMedian = 26;
}  // namespace kind

namespace sample {
inline constexpr SampleKind kOne = 1;
inline constexpr SampleKind kRelated = 2;
inline constexpr SampleKind kIndependent = 3;
}  // namespace sample

namespace decision {
inline constexpr Decision kReject = 1;
inline constexpr Decision kRetain = 2;
}  // namespace decision

namespace message {
inline constexpr MessageType kError = 0;
inline constexpr MessageType kWarning = 1;
inline constexpr MessageType kHelp = 2;
}  // namespace message

namespace comparison {
inline constexpr ComparisonKind kNone = 0;
inline constexpr ComparisonKind kPairwise = 1;
inline constexpr ComparisonKind kStepwise = 2;
}  // namespace comparison

/// The condition keys of the one-sample Kolmogorov-Smirnov test, which tell its distribution.
namespace distribution {
inline constexpr std::string_view kUniform = "UniformDistribution_O_KolmogorovSmirnov_3";
inline constexpr std::string_view kNormal = "NormalDistribution_O_KolmogorovSmirnov_3";
inline constexpr std::string_view kPoisson = "PoissonDistribution_O_KolmogorovSmirnov_2";
inline constexpr std::string_view kExponential = "ExponentialDistribution_O_KolmogorovSmirnov_2";
}  // namespace distribution

/// The host's missing number: the most negative finite double. Every double of the result model
/// starts as it.
inline constexpr double MissingValue = -1.7976931348623157e+308;

constexpr bool IsMissing(double value) { return value == MissingValue; }

struct TestKindRow {
    TestKind fKind;
    std::string_view fName;   ///< the algorithm name of the document
    std::string_view fTitle;  ///< English, a key of the text tables; "Unknown": has no record
};

/// One row for each kind from 1 to 26, in order.
std::span<const TestKindRow> TestKinds();

/// 0 where the name is no algorithm's.
TestKind TestKindFromName(std::string_view name);

/// 0 where the text is unknown.
SampleKind SampleKindFromName(std::string_view text);

/// 0 where the text is unknown.
Decision DecisionFromName(std::string_view text);

/// A text that is unknown counts as a help message.
MessageType MessageTypeFromName(std::string_view text);

/// "Unknown" for a kind without a record.
std::string_view TestTitle(TestKind testKind);

/// The host's number of a measurement level (`optype`), for `CFField`.
int FieldTypeFromName(std::string_view text);

/// The host's number of a storage (`dataType`), for `CFField`.
int StorageTypeFromName(std::string_view text);

namespace storage {
inline constexpr int kInteger = 1;
inline constexpr int kString = 3;
}  // namespace storage
