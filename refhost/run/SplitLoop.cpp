#include "refhost/run/SplitLoop.h"

#include "refhost/run/Interruption.h"
#include "refhost/run/Progress.h"
#include "refhost/run/QueuedSink.h"
#include "refhost/run/StoppableSink.h"

#include <fmt/format.h>

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

}  // namespace refhost
