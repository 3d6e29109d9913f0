#include "refhost/run/SplitWork.h"

#include "refhost/run/PluginLibrary.h"

#include <new>

#include <fmt/format.h>

#include "refhost/data/FileText.h"
#include "refhost/framework/InvariantBroken.h"
#include "refhost/framework/ReadFailure.h"
#include "refhost/job/Job.h"
#include "refhost/pivot/PivotProcedure.h"

#include "host/command/VarSpecObj.h"
#include "host/framework/CFProcCustom.h"
#include "host/pivot/BpProcedure.h"

namespace refhost {

namespace {

/// Why a file could not be read; empty where it could.
std::string ReadDocument(const std::string& file, std::string& text)
try {
    return ReadFile(file, text) ? "" : "the file can't be read";
} catch (const std::bad_alloc&) {
    return kTooLarge;
}

/// Why a document could not be read, with its place where that can be told.
std::string UnreadableReason()
{
    const ReadFailure* failure = LastReadFailure();
    if (!failure) return "it is no complete result document of nonparametric tests";
    if (failure->fLine == 0) return failure->fReason;
    return fmt::format("line {}, column {}: {}", failure->fLine, failure->fColumn,
                       failure->fReason);
}

HostRun WithOutput(HostRun host, OutputBuilder& output)
{
    host.fOutput = &output;
    return host;
}

}  // namespace

SplitWork::SplitWork(const SplitPlan& plan, OutputSink& sink)
    : fPlan(plan),
      fSink(sink),
      fOutput(sink),
      fHost(WithOutput(plan.fHost, fOutput)),
      fScope(fHost),
      fTop(MakeProcedure(plan.fJob.fDataSource.get())),
      fProcedure(plan.fPlugin.MakeProcedure())
{
    fProcedure->Attach(fTop.get(), plan.fJob.fDataSource.get());
    fProcedure->SetExtraVariables(plan.fJob.fExtraVariable, plan.fJob.fExtraVariables);
}

SplitWork::~SplitWork() = default;

RunStart SplitWork::Start() const
{
    const CommandDescriptor descriptor;
    fProcedure->CollectAnalysisVariables(fPlan.fJob.fCommand.get(), &descriptor);
    RunStart start;
    start.fTitle = fPlan.fJob.fTitle;
    start.fLanguage = fPlan.fLanguage;
    start.fAnalysisVariables = fProcedure->GetAnalysisVariables();
    start.fHasAnalysisVariables = !start.fAnalysisVariables.empty();
    return start;
}

SplitEnd SplitWork::Run(std::size_t number)
{
    const JobSplit& split = fPlan.fJob.fSplits[number];
    ForgetReadFailure();
    ForgetBrokenInvariant();
    fMemory.Forget();
    fHost.fChartText = 0;
    fSink.BeginSplit(number);
    SplitResult& result = fSplits.front();
    const std::string unread = ReadDocument(split.fDocument, result.fDocument);
    if (!unread.empty()) result.fDocument.clear();
    result.fSplitVariables = split.fVariables;
    result.fSplitAsHeading = split.fAsHeading;
    result.fSplitValues.clear();
    for (const OBS& value : split.fValues)
        result.fSplitValues.push_back(&value);
    bool isRead = false;
    try {
        isRead = fProcedure->ProcessSplits(fNoDocuments, fSplits);
    } catch (const InvariantBroken&) {  // told below, as where the procedure swallowed it
    } catch (const std::bad_alloc&) {   // likewise
    }
    fOutput.ThrowFailure();
    fSink.EndSplit();
    SplitEnd end;
    if (const std::string* invariant = BrokenInvariant()) {
        end.fOutcome = RunOutcome::InvariantBroken;
        end.fEnd.fFailure = *invariant;
        end.fLine = fmt::format("{} breaks an invariant: {}", split.fDocument, *invariant);
    } else if (unread.empty() && fMemory.RanOut() && !LastReadFailure()) {
        end.fOutcome = RunOutcome::OutOfMemory;
        end.fLine = fmt::format("out of memory in {}", split.fDocument);
        end.fEnd.fNotice = end.fLine;
    } else if (!isRead) {
        end.fOutcome = RunOutcome::Unreadable;
        end.fLine = fmt::format("{} can't be read: {}", split.fDocument,
                                unread.empty() ? UnreadableReason() : unread);
    }
    return end;
}

}  // namespace refhost
