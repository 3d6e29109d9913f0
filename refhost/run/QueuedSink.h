#pragma once

#include <condition_variable>
#include <exception>
#include <mutex>
#include <thread>
#include <variant>
#include <vector>

#include "refhost/document/OutputSink.h"

namespace refhost {

/// Hands output to another sink on a thread of its own, so that a split is worked on while what it
/// has given is written. Output waits in batches, and no more than one batch waits. A failure of
/// the other sink is thrown by a later call; what came behind it is dropped.
class QueuedSink : public OutputSink {
public:
    explicit QueuedSink(OutputSink& next);

    /// Drops what was not written.
    ~QueuedSink() override;
    QueuedSink(const QueuedSink&) = delete;
    QueuedSink& operator=(const QueuedSink&) = delete;

    void Begin(const RunStart& start) override;
    void BeginSplit(std::size_t split) override;
    void EndSplit() override;
    void OpenHeading(TextRef label) override;
    void CloseHeading() override;
    void Node(OutputNodePtr node) override;
    void End(const RunEnd& end) override;

private:
    struct Opening {
        TextRef fLabel;
    };
    struct Closing {};
    using Event = std::variant<Opening, Closing, OutputNodePtr>;
    using Batch = std::vector<Event>;

    void Add(Event event);

    /// Gives a batch to the thread, once it has taken the one before.
    void HandOver();

    /// Waits until the thread has nothing to do. Throws its failure.
    void Settle();
    void WriteBatches();
    void Write(Batch& batch);
    void WriteNode(OutputNodePtr node);

    OutputSink& fNext;
    Batch fGathered;

    std::mutex fMutex;
    std::condition_variable fChanged;
    Batch fWaiting;           // empty: taken
    bool fIsWriting = false;  // the thread is at a batch that it took
    bool fIsEnding = false;
    std::exception_ptr fFailure;
    std::thread fThread;
};

}  // namespace refhost
