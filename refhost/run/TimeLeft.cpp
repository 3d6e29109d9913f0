#include "refhost/run/TimeLeft.h"

#include <fmt/format.h>

namespace refhost {

namespace {

using std::chrono::minutes;
using std::chrono::seconds;

// What is longer ago than both doesn't count.
constexpr seconds kRecent(10);
constexpr std::size_t kRecentlyDone = 8;

constexpr seconds kLongestInSeconds(99);
constexpr minutes kLongestInMinutes(99);

}  // namespace

void TimeLeft::Note(std::size_t done, Clock::time_point now)
{
    fMarks.push_back({done, now});
    while (fMarks.size() > 2 && now - fMarks[1].fTime >= kRecent &&
           done - fMarks[1].fDone >= kRecentlyDone)
        fMarks.pop_front();
}

std::optional<seconds> TimeLeft::Estimate() const
{
    if (fMarks.empty() || fMarks.back().fDone == fMarks.front().fDone) return std::nullopt;
    const auto done = static_cast<double>(fMarks.back().fDone - fMarks.front().fDone);
    const std::chrono::duration<double> took = fMarks.back().fTime - fMarks.front().fTime;
    const auto rest = static_cast<double>(fAll - fMarks.back().fDone);
    return std::chrono::round<seconds>(took / done * rest);
}

std::string DurationText(seconds duration)
{
    if (duration <= kLongestInSeconds) return fmt::format("{} s", duration.count());
    const auto whole = std::chrono::round<minutes>(duration);
    if (whole <= kLongestInMinutes) return fmt::format("{} min", whole.count());
    return fmt::format("{} h {} min", whole.count() / 60, whole.count() % 60);
}

}  // namespace refhost
