#pragma once

#include <exception>

namespace refhost {

/// Asks the run to stop where it is; what it has written stays. False where it was asked before, so
/// that the program is to end at once. What comes within a moment counts as one: whoever ends a
/// program with all that it has started may tell it twice. For a signal handler.
bool InterruptRun() noexcept;

bool IsInterrupted() noexcept;

/// Removes the file that is not finished. For a signal handler that ends the program.
void DropUnfinishedFile() noexcept;

/// The file that is not finished, there or about to be; null where there is none. The text outlives
/// the next call.
void SetUnfinishedFile(const char* file) noexcept;

/// The run was asked to stop, and output is taken no more.
class Interrupted : public std::exception {
public:
    const char* what() const noexcept override { return "interrupted"; }
};

}  // namespace refhost
