#include <csignal>
#include <exception>
#include <new>

#include "refhost/run/ErrorLine.h"
#include "refhost/run/Interruption.h"
#include "refhost/run/JobRun.h"
#include "refhost/tool/CommandLine.h"
#include "refhost/tool/ExitCodes.h"

namespace {

/// The first asks for an orderly end, the second ends at once.
void OnInterrupt(int signal)
{
    if (refhost::InterruptRun()) return;
    refhost::DropUnfinishedFile();
    std::signal(signal, SIG_DFL);
    std::raise(signal);
}

/// Whoever started us may have set other ways.
void SettleSignals()
{
    // A reader that goes away, or a file that may not grow, shows as a failed write, which is told
    // in words.
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);
    std::signal(SIGCHLD, SIG_DFL);  // or nobody could ask how a worker ended
    for (const int signal : {SIGINT, SIGTERM, SIGHUP})
        if (std::signal(signal, OnInterrupt) == SIG_IGN) std::signal(signal, SIG_IGN);
}

int ExitCodeOf(refhost::RunOutcome outcome)
{
    switch (outcome) {
        case refhost::RunOutcome::Done:
            return refhost::kExitDone;
        case refhost::RunOutcome::Unreadable:
            return refhost::kExitUnreadable;
        case refhost::RunOutcome::InvariantBroken:
            return refhost::kExitInvariant;
        case refhost::RunOutcome::Interrupted:
            return refhost::kExitInterrupted;
        case refhost::RunOutcome::OutOfMemory:
            return refhost::kExitWrong;
    }
    return refhost::kExitWrong;
}

}  // namespace

int main(int argc, char** argv)
try {
    SettleSignals();
    int exitCode = refhost::kExitDone;
    const auto options = refhost::ReadCommandLine(argc, argv, exitCode);
    if (!options) return exitCode;
    return ExitCodeOf(refhost::RunJob(*options));
} catch (const std::bad_alloc&) {
    refhost::TellError("out of memory");
    return refhost::kExitWrong;
} catch (const std::exception& failure) {
    refhost::TellError(failure.what());
    return refhost::kExitWrong;
}
