#pragma once

#include <memory>
#include <string>

#include "model/NOPROutputStats.h"

class FacSTDictionary;
class VarDataProcessor;

/// Observed beside hypothesized frequency for each category of a field.
class ChiSquare final {
public:
    /// The record is borrowed and may be null; there is no chart then.
    ChiSquare(const FacSTDictionary* dictionary, const NOPROutputStats* stats,
              const NOPROutputStats::HTOChiSquare* test);
    ~ChiSquare();

    /// True once the chart was sent.
    virtual bool Render(const std::string& splitText, bool appendSplit);

private:
    /// Number of rows written.
    int FillChartData(VarDataProcessor& processor) const;

    struct State;
    std::unique_ptr<State> fState;
};
