#include "refhost/run/QueuedSink.h"

#include <new>
#include <utility>

namespace refhost {

namespace {

// Large enough that handing over costs nothing beside the work, small enough that the thread is
// busy soon.
constexpr std::size_t kBatch = 64;

}  // namespace

QueuedSink::QueuedSink(OutputSink& next) : fNext(next)
{
    fGathered.reserve(kBatch);
    fThread = std::thread([this] { WriteBatches(); });
}

QueuedSink::~QueuedSink()
{
    {
        const std::lock_guard lock(fMutex);
        fIsEnding = true;
        fWaiting.clear();
    }
    fChanged.notify_all();
    fThread.join();
}

void QueuedSink::Begin(const RunStart& start) { fNext.Begin(start); }

void QueuedSink::BeginSplit(std::size_t split)
{
    Settle();
    fNext.BeginSplit(split);
}

void QueuedSink::EndSplit()
{
    Settle();
    fNext.EndSplit();
}

void QueuedSink::OpenHeading(TextRef label) { Add(Opening{std::move(label)}); }

void QueuedSink::CloseHeading() { Add(Closing{}); }

void QueuedSink::Node(OutputNodePtr node) { Add(std::move(node)); }

void QueuedSink::End(const RunEnd& end)
{
    Settle();
    fNext.End(end);
}

void QueuedSink::Add(Event event)
{
    fGathered.push_back(std::move(event));
    if (fGathered.size() >= kBatch) HandOver();
}

void QueuedSink::HandOver()
{
    std::unique_lock lock(fMutex);
    fChanged.wait(lock, [this] { return fWaiting.empty() || fFailure; });
    if (fFailure) std::rethrow_exception(fFailure);
    std::swap(fWaiting, fGathered);
    lock.unlock();
    fChanged.notify_all();
}

void QueuedSink::Settle()
{
    if (!fGathered.empty()) HandOver();
    std::unique_lock lock(fMutex);
    fChanged.wait(lock, [this] { return (fWaiting.empty() && !fIsWriting) || fFailure; });
    if (fFailure) std::rethrow_exception(fFailure);
}

void QueuedSink::WriteBatches()
{
    Batch batch;
    while (true) {
        {
            std::unique_lock lock(fMutex);
            fIsWriting = false;
            fChanged.notify_all();
            fChanged.wait(lock, [this] { return !fWaiting.empty() || fIsEnding; });
            if (fIsEnding) return;
            std::swap(batch, fWaiting);
            fIsWriting = true;
        }
        fChanged.notify_all();
        try {
            Write(batch);
        } catch (...) {
            const std::lock_guard lock(fMutex);
            fFailure = std::current_exception();
            fChanged.notify_all();
            return;
        }
        batch.clear();
    }
}

void QueuedSink::WriteNode(OutputNodePtr node)
{
    try {
        fNext.Node(std::move(node));
    } catch (const std::bad_alloc&) {  // what was written before it is to stand
    }
}

void QueuedSink::Write(Batch& batch)
{
    for (Event& event : batch) {
        if (auto* const opening = std::get_if<Opening>(&event))
            fNext.OpenHeading(std::move(opening->fLabel));
        else if (auto* const node = std::get_if<OutputNodePtr>(&event))
            WriteNode(std::move(*node));
        else
            fNext.CloseHeading();
    }
}

}  // namespace refhost
