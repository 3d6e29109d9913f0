#pragma once

#include "refhost/run/RunOutcome.h"

#include <cstddef>
#include <string>

namespace refhost {

/// What a run is asked for. Empty texts stand for the default.
struct RunOptions {
    std::string fJob;
    std::string fOutput;       ///< standard output, or a file named after the job, where empty
    std::string fFormat;       ///< told by the ending of `fOutput` where empty, else HTML
    std::string fPlugin;       ///< the installed one where empty
    std::string fTemplates;    ///< the installed folder where empty
    std::string fTexts;        ///< a table laid over the installed one; none where empty
    std::string fLanguage;     ///< that of the environment where empty
    std::string fChartFolder;  ///< where each chart goes as a document of its own; nowhere if empty
    bool fPatterns = false;    ///< patterns in place of colours
    bool fQuiet = false;       ///< no progress
    std::size_t fJobs = 0;     ///< processes that work on splits; 0: as many as suit the job
};

/// Runs a job: every split through the plug-in, its output to its place. What keeps a split from
/// being done is told on standard error in one line. Throws `RunFailure` where the job, an option
/// or a file is wrong, and `WriteFailure` where output can't be written.
RunOutcome RunJob(const RunOptions& options);

}  // namespace refhost
