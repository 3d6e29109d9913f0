#pragma once

#include <string>

#include "model/NOPROutputStats.h"

class FacSTDictionary;

/// Picks and renders the view of a one-sample test. Borrows the dictionary and the result.
class OneSample final {
public:
    OneSample(const FacSTDictionary* dictionary, const NOPROutputStats* stats)
        : fDictionary(dictionary), fStats(stats)
    {
    }

    /// Tests of other families, tests with an error and kinds without a view draw nothing.
    /// `fieldIndex` is the first field of the test, 0 when it names none.
    virtual void DrawTest(const NOPROutputStats::BaseHypothesisTest* test, unsigned fieldIndex,
                          const std::string& splitText, bool appendSplit);

private:
    const FacSTDictionary* fDictionary;
    const NOPROutputStats* fStats;
};
