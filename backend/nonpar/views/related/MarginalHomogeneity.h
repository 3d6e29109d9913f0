#pragma once

#include <memory>
#include <string>

#include "model/NOPRTestRecords.h"

class FacSTDictionary;
class VarDataProcessor;

/// The marginal homogeneity test: a grid of facets with the observed count of each cell, as a bar
/// off the diagonal and as a number on it.
class MarginalHomogeneity final {
public:
    MarginalHomogeneity(const NOPROutputStats* stats,
                        const NOPROutputStats::CategoryComparison* comparison,
                        const FacSTDictionary* dictionary);
    ~MarginalHomogeneity();

    /// True once the chart was sent.
    virtual bool Render(const std::string& splitText, bool appendSplit);

    /// Number of rows written: one for each cell.
    int FillChartData(VarDataProcessor& processor) const;

private:
    struct State;
    std::unique_ptr<State> fState;
};
