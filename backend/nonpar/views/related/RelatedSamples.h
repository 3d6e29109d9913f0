#pragma once

#include <string>

#include "model/NOPROutputStats.h"

class FacSTDictionary;

/// Picks and renders the view of a related-samples test. Borrows the dictionary and the result.
class RelatedSamples final {
public:
    RelatedSamples(const FacSTDictionary* dictionary, const NOPROutputStats* stats)
        : fDictionary(dictionary), fStats(stats)
    {
    }

    /// Tests of other families, tests with an error and kinds without a view draw nothing.
    virtual void DrawTest(const NOPROutputStats::BaseHypothesisTest* test,
                          const std::string& splitText, bool appendSplit);

private:
    const FacSTDictionary* fDictionary;
    const NOPROutputStats* fStats;
};
