#include "refhost/run/QueuedSink.h"

#include <algorithm>
#include <new>
#include <system_error>
#include <utility>

#include <fmt/format.h>

#include "refhost/run/RunFailure.h"

namespace refhost {

namespace {

// Large enough that handing over costs nothing beside the work, small enough that the threads are
// busy soon.
constexpr std::size_t kBatch = 32;

constexpr unsigned kMostProcessors = 8;

std::size_t ThreadsFor(const OutputSink& sink)
{
    if (!sink.PreparesNodes()) return 1;
    return std::clamp(std::thread::hardware_concurrency(), 2U, kMostProcessors) - 1;
}

}  // namespace

QueuedSink::QueuedSink(OutputSink& next) : QueuedSink(next, ThreadsFor(next)) {}

QueuedSink::QueuedSink(OutputSink& next, std::size_t threads) : fNext(next)
{
    fRing.resize(threads + 2);
    fGathered.reserve(kBatch);
    for (Batch& batch : fRing)
        batch.fEvents.reserve(kBatch);
    fThreads.reserve(threads);
    try {
        while (fThreads.size() < threads)
            fThreads.emplace_back([this] { Work(); });
    } catch (const std::system_error& failure) {  // fewer do as well
        if (fThreads.empty())
            throw RunFailure(fmt::format("a thread can't be started: {}", failure.what()));
    } catch (const std::bad_alloc&) {
        if (fThreads.empty()) throw;
    }
}

QueuedSink::~QueuedSink()
{
    {
        const std::lock_guard lock(fMutex);
        fIsEnding = true;
    }
    fChanged.notify_all();
    for (std::thread& thread : fThreads)
        thread.join();
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

void QueuedSink::Node(OutputNodePtr&& node) { Add(std::move(node)); }

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
    {
        std::unique_lock lock(fMutex);
        Batch& batch = fRing[fFilled];
        while (batch.fStage != Stage::Written && !fFailure) {
            if (fRing[fTaken].fStage == Stage::Waiting)
                PrepareOne(lock);
            else
                fChanged.wait(lock);
        }
        ThrowFailure();
        std::swap(batch.fEvents, fGathered);
        batch.fStage = Stage::Waiting;
        fFilled.Step();
    }
    fChanged.notify_all();
    fGathered.clear();  // what the batch held before
}

void QueuedSink::Settle()
{
    if (!fGathered.empty()) HandOver();
    std::unique_lock lock(fMutex);
    const auto isWritten = [](const Batch& batch) { return batch.fStage == Stage::Written; };
    fChanged.wait(lock, [&] { return std::ranges::all_of(fRing, isWritten) || fFailure; });
    ThrowFailure();
    for (Batch& batch : fRing)
        batch.fEvents.clear();
}

void QueuedSink::ThrowFailure() const
{
    if (fFailure) std::rethrow_exception(fFailure);
}

void QueuedSink::Work()
{
    std::unique_lock lock(fMutex);
    while (true) {
        fChanged.wait(lock, [this] { return HasWork() || fIsEnding || fFailure; });
        if (fIsEnding || fFailure) return;
        if (fRing[fDone].fStage == Stage::Prepared && !fIsWriting)
            WriteOne(lock);
        else
            PrepareOne(lock);
    }
}

bool QueuedSink::HasWork() const
{
    return fRing[fTaken].fStage == Stage::Waiting ||
           (fRing[fDone].fStage == Stage::Prepared && !fIsWriting);
}

void QueuedSink::PrepareOne(std::unique_lock<std::mutex>& lock)
{
    Batch& batch = fRing[fTaken];
    batch.fStage = Stage::Taken;
    fTaken.Step();
    lock.unlock();
    PrepareAll(batch.fEvents);
    lock.lock();
    batch.fStage = Stage::Prepared;
    fChanged.notify_all();
}

void QueuedSink::WriteOne(std::unique_lock<std::mutex>& lock)
{
    Batch& batch = fRing[fDone];
    fIsWriting = true;
    lock.unlock();
    std::exception_ptr failure;
    try {
        WriteAll(batch.fEvents);
    } catch (...) {
        failure = std::current_exception();
    }
    lock.lock();
    fIsWriting = false;
    fFailure = std::move(failure);
    if (!fFailure) {
        batch.fStage = Stage::Written;
        fDone.Step();
    }
    fChanged.notify_all();
}

void QueuedSink::PrepareAll(Events& events) const
{
    for (Event& event : events) {
        auto* const node = std::get_if<OutputNodePtr>(&event);
        if (!node) continue;
        try {
            fNext.Prepare(**node);
        } catch (...) {  // it is tried once more when its turn comes
        }
    }
}

void QueuedSink::WriteAll(Events& events)
{
    for (Event& event : events) {
        if (auto* const opening = std::get_if<Opening>(&event))
            fNext.OpenHeading(std::move(opening->fLabel));
        else if (auto* const node = std::get_if<OutputNodePtr>(&event))
            WriteNode(std::move(*node));
        else
            fNext.CloseHeading();
    }
}

void QueuedSink::WriteNode(OutputNodePtr&& node)
{
    try {
        fNext.Node(std::move(node));
    } catch (const std::bad_alloc&) {  // what was written before it is to stand
    }
}

}  // namespace refhost
