#pragma once

#include <memory>
#include <string>

#include "model/NOPROutputStats.h"

class FacSTDictionary;

/// The observed number of runs against mean and spread of the runs statistic. There are no data
/// rows: all numbers go into the template's text.
class OneSampleRuns final {
public:
    /// The record is borrowed and may be null; there is no chart then.
    OneSampleRuns(const FacSTDictionary* dictionary, const NOPROutputStats* stats,
                  const NOPROutputStats::HTORuns* test);
    ~OneSampleRuns();

    /// True once the chart was sent.
    bool Render(const std::string& splitText, bool appendSplit);

private:
    void EditTemplate(std::string& text, bool hasSplit) const;

    struct State;
    std::unique_ptr<State> fState;
};
