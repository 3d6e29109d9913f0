#pragma once

#include <chrono>
#include <cstddef>
#include <deque>
#include <optional>
#include <string>

namespace refhost {

/// How long the rest of a run may take, judged by what was done of late: documents differ in size,
/// and several may be done at once.
class TimeLeft {
public:
    using Clock = std::chrono::steady_clock;

    explicit TimeLeft(std::size_t all) : fAll(all) {}

    /// So much is done now; never less than before.
    void Note(std::size_t done, Clock::time_point now);

    /// Without a result as long as nothing is done.
    std::optional<std::chrono::seconds> Estimate() const;

private:
    struct Mark {
        std::size_t fDone;
        Clock::time_point fTime;
    };

    std::size_t fAll;
    std::deque<Mark> fMarks;  // of late, oldest first
};

/// "45 s", "12 min", "3 h 20 min": as exact as an estimate may be.
std::string DurationText(std::chrono::seconds duration);

}  // namespace refhost
