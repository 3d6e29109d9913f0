#pragma once

#include <cstddef>
#include <string>

#include "refhost/run/TimeLeft.h"

namespace refhost {

/// A bar on standard error that tells how many splits are done and how long the rest may take. Only
/// for a person: nothing is shown where standard error is no terminal, or for a single split.
class Progress {
public:
    Progress(std::size_t splits, bool quiet);

    /// Clears the bar.
    ~Progress();
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    void Show(std::size_t done);

private:
    std::size_t fSplits;
    bool fIsShown;
    TimeLeft fTimeLeft;
    TimeLeft::Clock::time_point fLastShown;
};

/// A bar and what it says, in fewer columns than the terminal has, or it would wrap and stay.
std::string ProgressLine(std::size_t done, std::size_t splits, const std::string& left,
                         std::size_t columns);

}  // namespace refhost
