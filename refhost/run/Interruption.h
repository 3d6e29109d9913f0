#pragma once

#include <exception>

namespace refhost {

/// Asks the run to stop where it is; what it has written stays. False where it was asked before: a
/// file that is not finished is then gone, and the program may end at once. For a signal handler.
bool InterruptRun() noexcept;

bool IsInterrupted() noexcept;

/// The file that is not finished, there or about to be; null where there is none. The text outlives
/// the next call.
void SetUnfinishedFile(const char* file) noexcept;

/// The run was asked to stop, and output is taken no more.
class Interrupted : public std::exception {
public:
    const char* what() const noexcept override { return "interrupted"; }
};

}  // namespace refhost
