#pragma once

#include <optional>

#include "refhost/run/JobRun.h"

namespace refhost {

/// Reads the command line. Without a result there is nothing to run, and `exitCode` says how the
/// program ends: help was printed, or an option was wrong and one line on standard error says
/// which.
std::optional<RunOptions> ReadCommandLine(int argc, char** argv, int& exitCode);

}  // namespace refhost
