#pragma once

#include <condition_variable>
#include <cstdint>
#include <exception>
#include <mutex>
#include <thread>
#include <variant>
#include <vector>

#include "refhost/document/OutputSink.h"

namespace refhost {

/// Hands output to another sink on threads of its own, so that a split is worked on while what it
/// has given is written. Nodes go in batches round a ring: each batch is prepared by whichever
/// thread is free, and all are written in order, by one thread at a time. What is written is
/// dropped by the thread that made it, since the allocator takes memory back best where it gave
/// it. A failure of the other sink is thrown by a later call; what came behind it is dropped.
class QueuedSink : public OutputSink {
public:
    /// Takes one thread, or for a sink that prepares nodes one for each processor, seven at most,
    /// but that of the caller, who prepares nodes as well where he would have to wait. Throws
    /// `RunFailure` where no thread can be had.
    explicit QueuedSink(OutputSink& next);
    QueuedSink(OutputSink& next, std::size_t threads);

    /// Drops what was not written.
    ~QueuedSink() override;
    QueuedSink(const QueuedSink&) = delete;
    QueuedSink& operator=(const QueuedSink&) = delete;

    void Begin(const RunStart& start) override;
    void BeginSplit(std::size_t split) override;
    void EndSplit() override;
    void OpenHeading(TextRef label) override;
    void CloseHeading() override;
    void Node(OutputNodePtr&& node) override;
    void End(const RunEnd& end) override;

private:
    struct Opening {
        TextRef fLabel;
    };
    struct Closing {};
    using Event = std::variant<Opening, Closing, OutputNodePtr>;
    using Events = std::vector<Event>;

    enum class Stage : std::uint8_t { Written, Waiting, Taken, Prepared };
    struct Batch {
        Events fEvents;
        Stage fStage = Stage::Written;
    };

    /// Goes round the ring.
    class Place {
    public:
        explicit Place(const std::vector<Batch>& ring) : fRing(ring) {}
        operator std::size_t() const { return fAt; }
        void Step() { fAt = (fAt + 1) % fRing.size(); }

    private:
        const std::vector<Batch>& fRing;
        std::size_t fAt = 0;
    };

    void Add(Event event);

    /// Gives a batch to the threads, once the ring has room for it.
    void HandOver();

    /// Waits until the threads have nothing to do. Throws their failure.
    void Settle();
    void ThrowFailure() const;

    // Of the threads; where they change the ring they hold the lock.
    void Work();
    bool HasWork() const;
    void PrepareOne(std::unique_lock<std::mutex>& lock);
    void WriteOne(std::unique_lock<std::mutex>& lock);
    void PrepareAll(Events& events) const;
    void WriteAll(Events& events);
    void WriteNode(OutputNodePtr&& node);

    OutputSink& fNext;
    Events fGathered;

    std::mutex fMutex;
    std::condition_variable fChanged;
    std::vector<Batch> fRing;
    Place fFilled{fRing};  // where the next batch goes
    Place fTaken{fRing};   // the next to prepare
    Place fDone{fRing};    // the next to write
    bool fIsWriting = false;
    bool fIsEnding = false;
    std::exception_ptr fFailure;
    std::vector<std::thread> fThreads;
};

}  // namespace refhost
