#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "refhost/run/MemoryWatch.h"
#include "refhost/run/RunOutcome.h"

#include "refhost/document/HostRun.h"
#include "refhost/document/OutputBuilder.h"

#include "host/framework/SplitResult.h"

class BpProcedure;
class CFProcCustom;

namespace refhost {

class PluginLibrary;
struct Job;

/// All that a run needs to work on splits, loaded and checked.
struct SplitPlan {
    const Job& fJob;
    const PluginLibrary& fPlugin;
    HostRun fHost;  ///< without its output
    std::string fLanguage;
    bool fQuiet = false;
};

/// How a split went, and with it the run where it is the last.
struct SplitEnd {
    RunOutcome fOutcome = RunOutcome::Done;
    RunEnd fEnd;
    std::string fLine;  ///< for standard error; empty where there is nothing to tell
};

/// The plug-in at work on the splits of a job, one call for each, so that no more than one document
/// is held at a time. Its output goes to a sink.
class SplitWork {
public:
    SplitWork(const SplitPlan& plan, OutputSink& sink);
    ~SplitWork();
    SplitWork(const SplitWork&) = delete;
    SplitWork& operator=(const SplitWork&) = delete;

    /// What the sinks of the run begin with.
    RunStart Start() const;

    /// Works on a split; all of it is out then. Throws what the sink threw.
    SplitEnd Run(std::size_t number);

private:
    const SplitPlan& fPlan;
    OutputSink& fSink;
    OutputBuilder fOutput;
    HostRun fHost;
    HostRun::Scope fScope;
    std::unique_ptr<BpProcedure> fTop;
    std::unique_ptr<CFProcCustom> fProcedure;
    MemoryWatch fMemory;
    std::vector<std::string> fNoDocuments;
    std::vector<SplitResult> fSplits = std::vector<SplitResult>(1);
};

}  // namespace refhost
