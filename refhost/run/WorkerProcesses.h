#pragma once

#include <atomic>
#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "refhost/run/FinishedSplit.h"
#include "refhost/run/RunFailure.h"
#include "refhost/run/SharedObject.h"

namespace refhost {

/// The system has no room for another process.
class NoProcess : public RunFailure {
public:
    using RunFailure::RunFailure;
};

/// Processes that work on the splits of a run at the same time. Each takes the next split that
/// nobody has taken; what it makes of it is held here, one for each process, until its turn comes.
/// They know this process's memory as it was when they were made, and end with it.
class WorkerProcesses {
public:
    /// What a worker sees of the others and of us.
    class Tasks;
    using Work = std::function<void(Tasks& tasks)>;

    /// Throws `NoProcess` where a process can't be made.
    WorkerProcesses(std::size_t processes, std::size_t splits, const Work& work);

    /// Ends those that are still at work.
    ~WorkerProcesses();
    WorkerProcesses(const WorkerProcesses&) = delete;
    WorkerProcesses& operator=(const WorkerProcesses&) = delete;

    /// The next split in order, whose bytes are valid until the next call; without a result where
    /// the run was interrupted.
    std::optional<FinishedSplit> Next();

private:
    struct Worker;
    struct Shared;

    void Start(std::size_t splits, const Work& work);
    void Await();
    void Bury(Worker& worker);
    void EndAll();

    std::vector<std::unique_ptr<Worker>> fWorkers;
    SharedObject<Shared> fShared;
    std::size_t fNext = 0;     // the split whose turn it is
    Worker* fShown = nullptr;  // whose bytes are in use
};

class WorkerProcesses::Tasks {
public:
    Tasks(Shared& shared, PartMemory& memory, std::size_t worker, std::size_t splits, int pipe)
        : fShared(shared), fMemory(memory), fWorker(worker), fSplits(splits), fPipe(pipe)
    {
    }

    /// The number of a split to work on; without a result where all are taken.
    std::optional<std::size_t> Take();

    /// Hands over what has become of it. False where there is nothing more to do.
    bool Send(const FinishedSplit& split);

private:
    Shared& fShared;
    PartMemory& fMemory;
    std::size_t fWorker;
    std::size_t fSplits;
    int fPipe;
};

}  // namespace refhost
