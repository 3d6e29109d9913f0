#include "refhost/run/SplitLoop.h"

#include "refhost/run/Interruption.h"
#include "refhost/run/Progress.h"
#include "refhost/run/QueuedSink.h"
#include "refhost/run/StoppableSink.h"
#include "refhost/run/WorkerProcesses.h"

#include <new>
#include <optional>

#include <fmt/format.h>

#include "refhost/document/WriteFailure.h"
#include "refhost/job/Job.h"

namespace refhost {

namespace {

SplitEnd AllDone()
{
    SplitEnd end;
    end.fEnd.fResult = true;
    return end;
}

SplitEnd InterruptedAfter(std::size_t done, std::size_t splits, bool hasHalfSplit)
{
    SplitEnd end;
    end.fOutcome = RunOutcome::Interrupted;
    end.fLine = fmt::format("interrupted after {} of {} splits{}", done, splits,
                            hasHalfSplit ? "; of the next, only a part is written" : "");
    end.fEnd.fNotice = end.fLine;
    return end;
}

/// A split in a worker. What ends the run is told like an outcome, since it counts only once the
/// splits before it are done.
FinishedSplit WorkApart(SplitWork& work, std::size_t number, PartedSink& sink)
{
    FinishedSplit finished;
    finished.fSplit = number;
    try {
        finished.fEnd = work.Run(number);
        finished.fPart = sink.TakePart();
    } catch (const std::bad_alloc&) {
        finished.fThrown = "out of memory";
    } catch (const std::exception& failure) {
        finished.fThrown = *failure.what() ? failure.what() : "an unknown failure";
    }
    return finished;
}

}  // namespace

SplitEnd RunSplits(const SplitPlan& plan, OutputSink& sink)
{
    const std::vector<JobSplit>& splits = plan.fJob.fSplits;
    QueuedSink queue(sink);
    StoppableSink output(queue);
    SplitWork work(plan, output);
    Progress progress(splits.size(), plan.fQuiet);
    output.Begin(work.Start());
    for (std::size_t done = 0; done < splits.size(); ++done) {
        if (IsInterrupted()) return InterruptedAfter(done, splits.size(), false);
        progress.Show(done);
        try {
            SplitEnd end = work.Run(done);
            if (end.fOutcome != RunOutcome::Done) return end;
        } catch (const Interrupted&) {
            output.EndSplit();
            return InterruptedAfter(done, splits.size(), output.HasOutput());
        }
    }
    return AllDone();
}

SplitEnd RunSplitsApart(const SplitPlan& plan, PartedSink& sink, std::size_t processes)
{
    const std::vector<JobSplit>& splits = plan.fJob.fSplits;
    const RunStart start = SplitWork(plan, sink).Start();
    WorkerProcesses workers(processes, splits.size(), [&](WorkerProcesses::Tasks& tasks) {
        const std::unique_ptr<PartedSink> parts = sink.ForParts(start);
        SplitWork work(plan, *parts);
        while (const auto split = tasks.Take())
            if (!tasks.Send(WorkApart(work, *split, *parts))) return;
    });
    Progress progress(splits.size(), plan.fQuiet);
    sink.Begin(start);
    for (std::size_t done = 0; done < splits.size(); ++done) {
        progress.Show(done);
        const std::optional<FinishedSplit> split = workers.Next();
        if (!split) return InterruptedAfter(done, splits.size(), false);
        if (!split->fThrown.empty()) throw WriteFailure(split->fThrown);
        sink.PutPart(split->fPart);
        if (split->fEnd.fOutcome != RunOutcome::Done) return split->fEnd;
    }
    return AllDone();
}

}  // namespace refhost
