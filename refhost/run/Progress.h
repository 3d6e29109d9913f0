#pragma once

#include <chrono>
#include <cstddef>

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
    using Clock = std::chrono::steady_clock;

    std::size_t fSplits;
    bool fIsShown;
    Clock::time_point fStart;
    Clock::time_point fLastShown;
};

}  // namespace refhost
