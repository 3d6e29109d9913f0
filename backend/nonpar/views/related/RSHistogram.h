#pragma once

#include <memory>
#include <string>

#include "model/NOPRTestRecords.h"

class FacSTDictionary;
class VarDataProcessor;

/// A histogram of the ranks of each field of a Friedman or Kendall test, with the field's mean rank
/// as its label.
class RSHistogram final {
public:
    RSHistogram(const FacSTDictionary* dictionary, const NOPROutputStats* stats,
                const NOPROutputStats::HTRKendallsCoefficient* test);
    RSHistogram(const FacSTDictionary* dictionary, const NOPROutputStats* stats,
                const NOPROutputStats::HTRFriedmansTwoWayByRanks* test);
    ~RSHistogram();

    /// Number of rows written. Also notes the fields and mean ranks that the labels need.
    virtual int FillChartData(VarDataProcessor& processor);

    /// True once the chart was sent.
    bool Render(const std::string& splitText, bool appendSplit);

private:
    struct State;
    RSHistogram(const FacSTDictionary* dictionary, const NOPROutputStats* stats);

    std::unique_ptr<State> fState;
};
