#include "refhost/run/Interruption.h"

#include <unistd.h>

#include <atomic>

namespace refhost {

namespace {

// A signal handler may touch nothing else.
std::atomic<bool> gIsInterrupted = false;
std::atomic<const char*> gUnfinished = nullptr;
static_assert(std::atomic<bool>::is_always_lock_free);
static_assert(std::atomic<const char*>::is_always_lock_free);

}  // namespace

bool InterruptRun() noexcept
{
    if (!gIsInterrupted.exchange(true)) return true;
    if (const char* file = gUnfinished.load()) ::unlink(file);
    return false;
}

bool IsInterrupted() noexcept { return gIsInterrupted; }

void SetUnfinishedFile(const char* file) noexcept { gUnfinished = file; }

}  // namespace refhost
