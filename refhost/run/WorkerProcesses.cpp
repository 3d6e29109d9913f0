#include "refhost/run/WorkerProcesses.h"

#include "refhost/run/Interruption.h"
#include "refhost/run/PartMemory.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <new>
#include <system_error>
#include <utility>

#include <fmt/format.h>

#include "refhost/document/WriteFailure.h"

namespace refhost {

namespace {

constexpr std::size_t kMostProcesses = 256;  // more are no faster on any machine
constexpr std::size_t kNone = static_cast<std::size_t>(-1);
constexpr int kPipeSize = 1 << 20;  // fewer changes between processes; a smaller one does too
constexpr int kLookAgain = 100;     // milliseconds: an interruption may come between two calls

[[noreturn]] void Fail(int reason) { throw std::system_error(reason, std::generic_category()); }

constexpr int kNoMemory = 3;  // the exit code of a worker that found none

std::string HowItEnded(int status)
{
    if (WIFEXITED(status) && WEXITSTATUS(status) == kNoMemory) return "ran out of memory";
    if (WIFSIGNALED(status))
        return fmt::format("was ended by signal {} ({})", WTERMSIG(status),
                           strsignal(WTERMSIG(status)));
    return fmt::format("ended with exit code {}", WEXITSTATUS(status));
}

}  // namespace

/// Memory that all processes see.
struct WorkerProcesses::Shared {
    std::atomic<std::size_t> fNext = 0;                           // that nobody has taken
    std::array<std::atomic<std::size_t>, kMostProcesses> fTaken;  // by each worker, last

    Shared()
    {
        for (auto& taken : fTaken)
            taken = kNone;
    }
};
static_assert(std::atomic<std::size_t>::is_always_lock_free);

struct WorkerProcesses::Worker {
    pid_t fProcess = -1;
    int fPipe = -1;             // -1: nothing more comes
    std::size_t fLast = kNone;  // the split that came last
    PartMemory fMemory;
    FinishedSplitReader fReader{fMemory};
    std::optional<FinishedSplit> fFinished;  // waits for its turn
};

std::optional<std::size_t> WorkerProcesses::Tasks::Take()
{
    const std::size_t split = fShared.fNext++;
    if (split >= fSplits) return std::nullopt;
    fShared.fTaken[fWorker] = split;
    return split;
}

bool WorkerProcesses::Tasks::Send(const FinishedSplit& split)
{
    const bool isLast = split.fEnd.fOutcome != RunOutcome::Done || !split.fThrown.empty();
    return SendFinishedSplit(fPipe, fMemory, split) && !isLast;
}

WorkerProcesses::WorkerProcesses(std::size_t processes, std::size_t splits, const Work& work)
try : fShared(MakeSharedObject<Shared>()) {
    const std::size_t count = std::min({processes, splits, kMostProcesses});
    try {
        fWorkers.reserve(count);  // nothing may fail once a process is made
        while (fWorkers.size() < count)
            Start(splits, work);
    } catch (...) {
        EndAll();
        throw;
    }
} catch (const std::system_error& failure) {
    throw NoProcess(fmt::format("a process can't be started: {}", failure.code().message()));
}

WorkerProcesses::~WorkerProcesses() { EndAll(); }

void WorkerProcesses::Start(std::size_t splits, const Work& work)
{
    auto worker = std::make_unique<Worker>();
    std::array<int, 2> ends{};
    if (pipe2(ends.data(), O_CLOEXEC) != 0) Fail(errno);
    const pid_t parent = getpid();
    worker->fProcess = fork();
    if (worker->fProcess < 0) {
        const int reason = errno;
        close(ends[0]);
        close(ends[1]);
        Fail(reason);
    }
    if (worker->fProcess == 0) {
        // A terminal interrupts all processes; ours is then the one that ends the run.
        for (const int signal : {SIGINT, SIGTERM, SIGHUP})
            std::signal(signal, SIG_IGN);
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        if (getppid() != parent) _exit(0);
        close(ends[0]);
        for (const auto& other : fWorkers)  // or a pipe would outlive its reader
            close(other->fPipe);
        Tasks tasks(*fShared, worker->fMemory, fWorkers.size(), splits, ends[1]);
        try {
            work(tasks);
        } catch (const std::bad_alloc&) {
            _exit(kNoMemory);
        } catch (...) {
            _exit(1);
        }
        _exit(0);
    }
    close(ends[1]);
    fcntl(ends[0], F_SETFL, O_NONBLOCK);
    fcntl(ends[0], F_SETPIPE_SZ, kPipeSize);
    worker->fPipe = ends[0];
    fWorkers.push_back(std::move(worker));
}

std::optional<FinishedSplit> WorkerProcesses::Next()
{
    if (fShown) std::exchange(fShown, nullptr)->fReader.Release();
    while (!IsInterrupted()) {
        for (const auto& worker : fWorkers) {
            if (!worker->fFinished || worker->fFinished->fSplit != fNext) continue;
            ++fNext;
            fShown = worker.get();
            return std::exchange(worker->fFinished, std::nullopt);
        }
        Await();
    }
    return std::nullopt;
}

void WorkerProcesses::Await()
{
    std::vector<pollfd> pipes;
    std::vector<Worker*> owners;
    for (const auto& worker : fWorkers) {
        if (worker->fPipe < 0 || worker->fFinished) continue;
        pipes.push_back({worker->fPipe, POLLIN, 0});
        owners.push_back(worker.get());
    }
    if (pipes.empty()) throw WriteFailure("the worker processes ended before all splits were done");
    if (poll(pipes.data(), pipes.size(), kLookAgain) <= 0) return;
    for (std::size_t place = 0; place < pipes.size(); ++place) {
        if (pipes[place].revents == 0) continue;
        Worker& worker = *owners[place];
        if (!worker.fReader.Read(worker.fPipe)) {
            Bury(worker);
        } else if (worker.fReader.IsComplete()) {
            worker.fFinished = worker.fReader.Take();
            worker.fLast = static_cast<std::size_t>(worker.fFinished->fSplit);
        }
    }
}

void WorkerProcesses::Bury(Worker& worker)
{
    close(std::exchange(worker.fPipe, -1));
    int status = 0;
    while (waitpid(worker.fProcess, &status, 0) < 0 && errno == EINTR) {
    }
    worker.fProcess = -1;
    const auto place = std::ranges::find(fWorkers, &worker, &std::unique_ptr<Worker>::get);
    const std::size_t taken = fShared->fTaken[static_cast<std::size_t>(place - fWorkers.begin())];
    if (status == 0 && taken == worker.fLast) return;
    if (taken == worker.fLast)
        throw WriteFailure(fmt::format("a process of the run {}", HowItEnded(status)));
    worker.fFinished.emplace();
    worker.fFinished->fSplit = taken;
    worker.fFinished->fThrown =
        fmt::format("the process at work on split {} {}", taken + 1, HowItEnded(status));
}

void WorkerProcesses::EndAll()
{
    for (const auto& worker : fWorkers) {
        if (worker->fPipe >= 0) close(worker->fPipe);
        if (worker->fProcess > 0) kill(worker->fProcess, SIGKILL);
    }
    for (const auto& worker : fWorkers) {
        if (worker->fProcess <= 0) continue;
        while (waitpid(worker->fProcess, nullptr, 0) < 0 && errno == EINTR) {
        }
    }
}

}  // namespace refhost
