#include "refhost/run/Interruption.h"

#include <unistd.h>

#include <atomic>
#include <cstdint>
#include <ctime>

namespace refhost {

namespace {

constexpr std::int64_t kMoment = 100;  // milliseconds: two of a person's are further apart

// A signal handler may touch nothing else.
std::atomic<std::int64_t> gInterruptedAt = 0;  // 0: not yet
std::atomic<const char*> gUnfinished = nullptr;
static_assert(std::atomic<std::int64_t>::is_always_lock_free);
static_assert(std::atomic<const char*>::is_always_lock_free);

/// Milliseconds of a clock that only goes forward; never 0.
std::int64_t Now() noexcept
{
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC, &now);
    return std::int64_t{now.tv_sec} * 1000 + now.tv_nsec / 1000000 + 1;
}

}  // namespace

bool InterruptRun() noexcept
{
    const std::int64_t now = Now();
    std::int64_t first = 0;
    return gInterruptedAt.compare_exchange_strong(first, now) || now - first < kMoment;
}

bool IsInterrupted() noexcept { return gInterruptedAt != 0; }

void DropUnfinishedFile() noexcept
{
    if (const char* file = gUnfinished.load()) ::unlink(file);
}

void SetUnfinishedFile(const char* file) noexcept { gUnfinished = file; }

}  // namespace refhost
