#include "refhost/run/JobRun.h"

#include "refhost/run/Installation.h"
#include "refhost/run/MemoryWatch.h"
#include "refhost/run/OutputPlace.h"
#include "refhost/run/PluginLibrary.h"
#include "refhost/run/Progress.h"
#include "refhost/run/QueuedSink.h"
#include "refhost/run/RunFailure.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <fstream>
#include <iterator>

#include <fmt/format.h>

#include "refhost/document/HostRun.h"
#include "refhost/document/OutputBuilder.h"
#include "refhost/framework/InvariantBroken.h"
#include "refhost/framework/ReadFailure.h"
#include "refhost/job/JobFile.h"
#include "refhost/pivot/PivotProcedure.h"
#include "refhost/strings/TextTable.h"
#include "refhost/writers/ChartFiles.h"
#include "refhost/writers/Writers.h"

#include "host/command/VarSpecObj.h"
#include "host/framework/CFProcCustom.h"
#include "host/framework/SplitResult.h"
#include "host/pivot/BpProcedure.h"

namespace refhost {

namespace {

volatile std::sig_atomic_t gIsInterrupted = 0;

constexpr char kDefaultFormat[] = "html";

/// The writer that the options ask for, by name or by the ending of the output.
const WriterRow& ChooseWriter(const RunOptions& options)
{
    std::string known;
    const std::string extension = std::filesystem::path(options.fOutput).extension().string();
    for (const WriterRow& row : Writers()) {
        if (row.fFormat == options.fFormat) return row;
        if (options.fFormat.empty() && row.fExtension == extension) return row;
        known += fmt::format("{}{}", known.empty() ? "" : ", ", row.fFormat);
    }
    if (options.fFormat.empty()) return *FindWriter(kDefaultFormat);
    throw RunFailure(
        fmt::format("\"{}\" is no format of output; there are {}", options.fFormat, known));
}

std::string OutputFile(const RunOptions& options, const WriterRow& writer)
{
    if (!options.fOutput.empty()) return options.fOutput;
    if (writer.fToStandardOutput) return {};
    return std::filesystem::path(options.fJob).stem().string() + std::string(writer.fExtension);
}

int TerminalWidth()
{
    winsize size{};
    const bool isTerminal = ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0;
    return isTerminal ? size.ws_col : kDefaultTerminalWidth;
}

std::unique_ptr<OutputSink> MakeSink(const RunOptions& options, const WriterRow& writer,
                                     const OutputPlace& place)
{
    WriterSettings settings;
    settings.fFile = place.Path();
    if (place.IsStandardOutput()) settings.fTerminalWidth = TerminalWidth();
    std::unique_ptr<OutputSink> sink = writer.fMake(settings);
    if (!options.fChartFolder.empty())
        sink = std::make_unique<ChartFiles>(options.fChartFolder, std::move(sink));
    return std::make_unique<QueuedSink>(std::move(sink));
}

void LoadTexts(TextTable& texts, const std::string& file)
{
    std::string reason;
    if (!texts.Load(file, reason))
        throw RunFailure(fmt::format("the texts of {} can't be used: {}", file, reason));
}

std::string TemplateFolder(const RunOptions& options, const Installation& installation)
{
    if (options.fTemplates.empty()) return installation.fTemplateFolder;
    if (std::filesystem::is_directory(options.fTemplates)) return options.fTemplates;
    throw RunFailure(fmt::format("{} is no folder of templates", options.fTemplates));
}

/// False where the file can't be read; the text is then empty.
bool ReadFile(const std::string& file, std::string& text)
{
    text.clear();
    std::ifstream stream(file, std::ios::binary | std::ios::ate);
    if (!stream || std::filesystem::is_directory(file)) return false;
    text.resize(static_cast<std::size_t>(std::max<std::streamoff>(stream.tellg(), 0)));
    stream.seekg(0);
    stream.read(text.data(), static_cast<std::streamsize>(text.size()));
    return static_cast<bool>(stream);
}

/// Why a document could not be read, with its place where that can be told.
std::string UnreadableReason(bool isFileRead)
{
    if (!isFileRead) return "the file can't be read";
    const ReadFailure* failure = LastReadFailure();
    if (!failure) return "it is not the result document of a nonparametric test";
    if (failure->fLine == 0) return failure->fReason;
    return fmt::format("line {}, column {}: {}", failure->fLine, failure->fColumn,
                       failure->fReason);
}

/// Drives the plug-in over the splits of a job, one call for each, so that no more than one
/// document is held at a time and what a split wrote is out before the next begins.
class SplitLoop {
public:
    SplitLoop(const Job& job, CFProcCustom& procedure, OutputSink& sink, OutputBuilder& output,
              bool quiet)
        : fJob(job),
          fProcedure(procedure),
          fSink(sink),
          fOutput(output),
          fProgress(job.fSplits.size(), quiet)
    {
    }

    RunOutcome Run(RunEnd& end)
    {
        std::size_t done = 0;
        for (const JobSplit& split : fJob.fSplits) {
            if (gIsInterrupted != 0) {
                end.fNotice =
                    fmt::format("interrupted after {} of {} splits", done, fJob.fSplits.size());
                Tell(end.fNotice);
                return RunOutcome::Interrupted;
            }
            fProgress.Show(done);
            fSink.BeginSplit(done);
            const RunOutcome outcome = RunSplit(split, end);
            if (outcome != RunOutcome::Done) return outcome;
            ++done;
        }
        end.fResult = true;
        return RunOutcome::Done;
    }

private:
    RunOutcome RunSplit(const JobSplit& split, RunEnd& end)
    {
        ForgetReadFailure();
        ForgetBrokenInvariant();
        fMemory.Forget();
        HostRun::Current().fChartText = 0;
        SplitResult& result = fSplits.front();
        const bool isFileRead = ReadFile(split.fDocument, result.fDocument);
        result.fSplitVariables = split.fVariables;
        result.fSplitAsHeading = split.fAsHeading;
        result.fSplitValues.clear();
        for (const OBS& value : split.fValues)
            result.fSplitValues.push_back(&value);
        bool isRead = false;
        try {
            isRead = fProcedure.ProcessSplits(fNoDocuments, fSplits);
        } catch (const InvariantBroken&) {  // told below, as where the procedure swallowed it
        } catch (const std::bad_alloc&) {   // likewise
        }
        fOutput.ThrowFailure();
        fSink.EndSplit();
        if (const std::string* invariant = BrokenInvariant()) {
            end.fFailure = *invariant;
            Tell(fmt::format("{} breaks an invariant: {}", split.fDocument, *invariant));
            return RunOutcome::InvariantBroken;
        }
        if (fMemory.RanOut() && !LastReadFailure()) {
            end.fNotice = fmt::format("out of memory in {}", split.fDocument);
            Tell(end.fNotice);
            return RunOutcome::OutOfMemory;
        }
        if (isRead) return RunOutcome::Done;
        Tell(fmt::format("{} can't be read: {}", split.fDocument, UnreadableReason(isFileRead)));
        return RunOutcome::Unreadable;
    }

    static void Tell(const std::string& line) { fmt::print(stderr, "nonpar: {}\n", line); }

    const Job& fJob;
    CFProcCustom& fProcedure;
    OutputSink& fSink;
    OutputBuilder& fOutput;
    Progress fProgress;
    MemoryWatch fMemory;
    std::vector<std::string> fNoDocuments;
    std::vector<SplitResult> fSplits = std::vector<SplitResult>(1);
};

RunStart StartOf(const Job& job, CFProcCustom& procedure, const std::string& language)
{
    const CommandDescriptor descriptor;
    procedure.CollectAnalysisVariables(job.fCommand.get(), &descriptor);
    RunStart start;
    start.fTitle = job.fTitle;
    start.fLanguage = language;
    start.fAnalysisVariables = procedure.GetAnalysisVariables();
    start.fHasAnalysisVariables = !start.fAnalysisVariables.empty();
    return start;
}

Job ReadJob(const std::string& file)
{
    try {
        return ReadJobFile(file);
    } catch (const JobError& error) {
        throw RunFailure(error.what());
    }
}

}  // namespace

RunOutcome RunJob(const RunOptions& options)
{
    // Everything that can be wrong is found before anything is written.
    const Installation installation = Installation::OfThisProgram();
    const WriterRow& writer = ChooseWriter(options);
    const std::string language = ChooseLanguage(installation, options.fLanguage);
    const Job job = ReadJob(options.fJob);
    TextTable texts;
    LoadTexts(texts, TextFile(installation, language));
    if (!options.fTexts.empty()) LoadTexts(texts, options.fTexts);
    HostRun run;
    run.fTemplateFolder = TemplateFolder(options, installation);
    run.fUseColorsOnly = !options.fPatterns;
    run.fShowsCharts = writer.fShowsCharts || !options.fChartFolder.empty();
    const PluginLibrary plugin(options.fPlugin.empty() ? installation.fPlugin : options.fPlugin);

    OutputPlace place(OutputFile(options, writer));
    const std::unique_ptr<OutputSink> sink = MakeSink(options, writer, place);
    OutputBuilder output(*sink);
    run.fOutput = &output;
    const HostRun::Scope scope(run);
    TextTable::Activate(&texts);

    const std::unique_ptr<BpProcedure> top = MakeProcedure(job.fDataSource.get());
    const std::unique_ptr<CFProcCustom> procedure = plugin.MakeProcedure();
    procedure->Attach(top.get(), job.fDataSource.get());
    procedure->SetExtraVariables(job.fExtraVariable, job.fExtraVariables);

    sink->Begin(StartOf(job, *procedure, language));
    RunEnd end;
    const RunOutcome outcome = SplitLoop(job, *procedure, *sink, output, options.fQuiet).Run(end);
    sink->End(end);
    place.Keep();
    TextTable::Activate(nullptr);
    return outcome;
}

void InterruptRun() noexcept { gIsInterrupted = 1; }

}  // namespace refhost
