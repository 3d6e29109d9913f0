#include "refhost/run/JobRun.h"

#include "refhost/run/ErrorLine.h"
#include "refhost/run/Installation.h"
#include "refhost/run/OutputPlace.h"
#include "refhost/run/PluginLibrary.h"
#include "refhost/run/RunFailure.h"
#include "refhost/run/SplitLoop.h"
#include "refhost/run/Terminal.h"
#include "refhost/run/UsualProcesses.h"
#include "refhost/run/WorkerProcesses.h"

#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <system_error>

#include <fmt/format.h>

#include "refhost/job/JobFile.h"
#include "refhost/strings/TextTable.h"
#include "refhost/writers/ChartFiles.h"
#include "refhost/writers/PartedSink.h"
#include "refhost/writers/Writers.h"

namespace refhost {

namespace {

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

/// Whoever forgets `-o` should not lose the job, nor a document of it.
void RefuseToReplaceInput(const std::string& output, const RunOptions& options, const Job& job)
{
    std::error_code error;
    if (!std::filesystem::is_regular_file(output, error)) return;
    const auto refuseAt = [&](const std::string& input) {
        if (std::filesystem::equivalent(output, input, error))
            throw RunFailure(fmt::format("{} can't be the output: the run reads it", output));
    };
    refuseAt(options.fJob);
    refuseAt(options.fTexts);
    for (const JobSplit& split : job.fSplits)
        refuseAt(split.fDocument);
}

std::unique_ptr<OutputSink> MakeSink(const RunOptions& options, const WriterRow& writer,
                                     const OutputPlace& place)
{
    WriterSettings settings;
    settings.fFile = place.Path();
    settings.fName = place.Name();
    if (const auto columns = place.IsStandardOutput() ? ColumnsOf(STDOUT_FILENO) : std::nullopt)
        settings.fTerminalWidth = static_cast<int>(*columns);
    std::unique_ptr<OutputSink> sink = writer.fMake(settings);
    if (!options.fChartFolder.empty())
        sink = std::make_unique<ChartFiles>(options.fChartFolder, std::move(sink));
    return sink;
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

/// In several processes where the sink can be put together from parts. `jobs` is 0 where nobody
/// says how many.
SplitEnd RunAllSplits(const SplitPlan& plan, OutputSink& sink, std::size_t jobs)
{
    auto* const parted = dynamic_cast<PartedSink*>(&sink);
    const std::size_t wanted = jobs > 0 ? jobs : UsualProcesses(plan.fJob);
    const std::size_t processes = std::min(wanted, plan.fJob.fSplits.size());
    if (!parted || processes < 2) return RunSplits(plan, sink);
    try {
        return RunSplitsApart(plan, *parted, processes);
    } catch (const NoProcess&) {
        if (jobs > 0) throw;
        return RunSplits(plan, sink);  // nobody asked for any
    }
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
    HostRun host;
    host.fTemplateFolder = TemplateFolder(options, installation);
    host.fUseColorsOnly = !options.fPatterns;
    host.fShowsCharts = writer.fShowsCharts || !options.fChartFolder.empty();
    const PluginLibrary plugin(options.fPlugin.empty() ? installation.fPlugin : options.fPlugin);

    const std::string output = OutputFile(options, writer);
    RefuseToReplaceInput(output, options, job);
    OutputPlace place(output);
    const std::unique_ptr<OutputSink> sink = MakeSink(options, writer, place);
    const TextTable::Scope active(texts);
    const SplitEnd end =
        RunAllSplits({job, plugin, host, language, options.fQuiet}, *sink, options.fJobs);
    sink->End(end.fEnd);
    place.Keep();
    if (!end.fLine.empty()) TellError(end.fLine);  // last: where the output fails, that is told
    return end.fOutcome;
}

}  // namespace refhost
