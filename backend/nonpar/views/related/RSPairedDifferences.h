#pragma once

#include <memory>
#include <string>

#include "model/NOPRTestRecords.h"

class FacSTDictionary;

/// The differences of a pair of fields, second minus first, told apart by sign, with the number of
/// each and of the ties: for the sign test and the Wilcoxon signed rank test.
class RSPairedDifferences {
public:
    RSPairedDifferences(const FacSTDictionary* dictionary, const NOPROutputStats* stats,
                        const NOPROutputStats::DifferenceCounts* counts,
                        const NOPROutputStats::BaseHypothesisTest* test, TestKind testKind);
    ~RSPairedDifferences();

    /// True once the chart was sent.
    bool Render(const std::string& splitText, bool appendSplit);

private:
    struct State;
    std::unique_ptr<State> fState;
};
