#pragma once

#include <memory>
#include <string>

#include "model/NOPRTestRecords.h"

class FacSTDictionary;
class VarDataProcessor;

/// The distribution of the test field in two groups, one beside the other: for Mann-Whitney U,
/// Wald-Wolfowitz runs and the two-sample Kolmogorov-Smirnov test. The document has binned the
/// field; a third group is never drawn.
class ISHistogram final {
public:
    ISHistogram(const FacSTDictionary* dictionary, const NOPROutputStats* stats,
                const NOPROutputStats::HTIMannWhitneyU* test);
    ISHistogram(const FacSTDictionary* dictionary, const NOPROutputStats* stats,
                const NOPROutputStats::HTIWaldWolfowitzRuns* test);
    ISHistogram(const FacSTDictionary* dictionary, const NOPROutputStats* stats,
                const NOPROutputStats::HTIKolmogorovSmirnov* test);
    ~ISHistogram();

    /// True once the chart was sent.
    virtual bool Render(const std::string& splitText, bool appendSplit);

    /// Number of rows written.
    int FillChartData(VarDataProcessor& processor) const;

private:
    struct State;
    ISHistogram(const FacSTDictionary* dictionary, const NOPROutputStats* stats);

    std::unique_ptr<State> fState;
};
