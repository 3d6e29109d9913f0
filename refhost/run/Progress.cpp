#include "refhost/run/Progress.h"

#include <unistd.h>

#include <fmt/format.h>
#include <cstdio>
#include <string>

namespace refhost {

namespace {

constexpr std::size_t kBarWidth = 30;
constexpr std::chrono::milliseconds kPause(100);  // a faster bar flickers and costs time

}  // namespace

Progress::Progress(std::size_t splits, bool quiet)
    : fSplits(splits),
      fIsShown(!quiet && splits > 1 && isatty(STDERR_FILENO) == 1),
      fStart(Clock::now()),
      fLastShown(fStart - kPause)
{
}

Progress::~Progress()
{
    if (fIsShown) fmt::print(stderr, "\r\x1b[K");
}

void Progress::Show(std::size_t done)
{
    const Clock::time_point now = Clock::now();
    if (!fIsShown || now - fLastShown < kPause) return;
    fLastShown = now;
    const std::size_t filled = kBarWidth * done / fSplits;
    std::string left;
    if (done > 0) {
        const double elapsed = std::chrono::duration<double>(now - fStart).count();
        const double rest =
            elapsed / static_cast<double>(done) * static_cast<double>(fSplits - done);
        left = fmt::format(", {:.0f} s left", rest);
    }
    fmt::print(stderr, "\r\x1b[K[{}{}] {} of {} splits{}", std::string(filled, '#'),
               std::string(kBarWidth - filled, '.'), done, fSplits, left);
    std::fflush(stderr);
}

}  // namespace refhost
