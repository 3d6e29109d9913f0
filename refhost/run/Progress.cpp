#include "refhost/run/Progress.h"

#include "refhost/run/Terminal.h"

#include <unistd.h>

#include <fmt/format.h>
#include <algorithm>
#include <cstdio>

namespace refhost {

namespace {

constexpr char kClear[] = "\r\x1b[K";
constexpr std::size_t kLongestBar = 30;
constexpr std::size_t kShortestBar = 5;
constexpr std::size_t kBrackets = 3;              // and a blank
constexpr std::chrono::milliseconds kPause(100);  // a faster bar flickers and costs time

std::size_t TerminalColumns() { return ColumnsOf(STDERR_FILENO).value_or(80); }

}  // namespace

std::string ProgressLine(std::size_t done, std::size_t splits, const std::string& left,
                         std::size_t columns)
{
    const std::size_t room = std::max<std::size_t>(columns, 1) - 1;
    std::string text = fmt::format("{} of {} splits", done, splits);
    const std::string timed = fmt::format("{}, {} left", text, left);
    if (!left.empty() && timed.size() <= room) text = timed;
    if (text.size() + kBrackets + kShortestBar > room) return text.substr(0, room);
    const std::size_t bar = std::min(kLongestBar, room - text.size() - kBrackets);
    const std::size_t filled = bar * done / splits;
    return fmt::format("[{:#<{}}{:.<{}}] {}", "", filled, "", bar - filled, text);
}

Progress::Progress(std::size_t splits, bool quiet)
    : fSplits(splits),
      fIsShown(!quiet && splits > 1 && isatty(STDERR_FILENO) == 1),
      fTimeLeft(splits),
      fLastShown(TimeLeft::Clock::now() - kPause)
{
}

Progress::~Progress()
{
    if (fIsShown) std::fputs(kClear, stderr);
}

void Progress::Show(std::size_t done)
{
    if (!fIsShown) return;
    const auto now = TimeLeft::Clock::now();
    if (now - fLastShown < kPause) return;
    fLastShown = now;
    fTimeLeft.Note(done, now);
    const auto left = fTimeLeft.Estimate();
    const std::string line =
        kClear + ProgressLine(done, fSplits, left ? DurationText(*left) : "", TerminalColumns());
    std::fputs(line.c_str(), stderr);  // a terminal may go away, the run goes on
    std::fflush(stderr);
}

}  // namespace refhost
