#pragma once

#include <span>
#include <string_view>

/// What is fuzzed, each as a function over the bytes of one case. A case ends well when the
/// function returns; a fault ends the process. Fuzzers and the replay of kept cases share these.

namespace fuzz {

struct FuzzTarget {
    std::string_view fName;

    /// Once, before the first case.
    void (*fPrepare)();
    void (*fRun)(std::string_view input);
};

std::span<const FuzzTarget> FuzzTargets();

/// Null where no target bears the name.
const FuzzTarget* FindFuzzTarget(std::string_view name);

/// A result document, through the plug-in and into JSON, HTML and text.
void RunDocument(std::string_view input);

/// The text of a chart's template with its data behind it (see `ReadChartInput`), to its picture
/// and the document that draws it.
void RunChart(std::string_view input);

/// A job file, and its first splits with a document about its first variables.
void RunJobFile(std::string_view input);

}  // namespace fuzz
