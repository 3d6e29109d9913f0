#include "refhost/tool/CommandLine.h"

#include <fmt/format.h>
#include <CLI/CLI.hpp>
#include <iostream>
#include <string>

#include "refhost/run/ErrorLine.h"
#include "refhost/tool/ExitCodes.h"

namespace refhost {

namespace {

constexpr int kMostJobs = 1000000;  // no more than splits are started

/// What is wrong with the first argument that means nothing; empty where each means something. The
/// library tells it only where nothing else is wrong, and in reverse.
std::string TellStray(const CLI::App& app, const CLI::App& run)
{
    const auto isOption = [](const std::string& argument) { return argument.starts_with('-'); };
    for (const std::string& stray : app.remaining())
        return fmt::format(
            "{:?} is no {}", stray,
            isOption(stray) ? "option before the subcommand, run" : "subcommand; there is run");
    for (const std::string& stray : run.remaining())
        return fmt::format("{:?} is {}", stray,
                           isOption(stray) ? "no option of run" : "one argument too many");
    return {};
}

}  // namespace

std::optional<RunOptions> ReadCommandLine(int argc, char** argv, int& exitCode)
{
    RunOptions options;
    CLI::App app("Turns finished results of nonparametric tests into tables and charts.", "nonpar");
    app.require_subcommand(1);
    CLI::App* run = app.add_subcommand("run", "Run a job and write its output");
    run->add_option("job", options.fJob, "The job file")->required();
    run->add_option("-o,--output", options.fOutput,
                    "Where the output goes (default: standard output for text and json, "
                    "a file named after the job otherwise)");
    run->add_option("--format", options.fFormat,
                    "html, text, json or xlsx (default: by the ending of the output, else html)");
    run->add_flag("--patterns", options.fPatterns, "Patterns in place of colours in charts");
    run->add_option("--plugin", options.fPlugin, "Another plug-in than the installed one");
    run->add_option("--templates", options.fTemplates, "Another folder of chart templates");
    run->add_option("--texts", options.fTexts, "A text table laid over the installed one");
    run->add_option("--language", options.fLanguage,
                    "Language of the output, en or de (default: that of the environment)");
    run->add_option("--charts", options.fChartFolder,
                    "A folder for each chart as a .vl.json of its own");
    run->add_option("--jobs", options.fJobs,
                    "Splits to work on at the same time, each in a process of its own "
                    "(default: one for each processor where a job has many; always 1 with xlsx "
                    "and --charts)")
        ->check(CLI::Range(1, kMostJobs));
    run->add_flag("--quiet", options.fQuiet, "No progress on the terminal");
    for (CLI::Option* option : run->get_options())
        option->check([](const std::string& value) { return value.empty() ? "it is empty" : ""; });
    try {
        app.parse(argc, argv);
    } catch (const CLI::CallForHelp&) {
        std::cout << app.help();
        exitCode = kExitDone;
        return std::nullopt;
    } catch (const CLI::ParseError& error) {
        const std::string stray = TellStray(app, *run);
        TellError(stray.empty() ? error.what() : stray);
        exitCode = kExitWrong;
        return std::nullopt;
    }
    return options;
}

}  // namespace refhost
