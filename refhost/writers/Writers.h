#pragma once

#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "refhost/document/OutputSink.h"

namespace refhost {

inline constexpr int kDefaultTerminalWidth = 100;

/// Where and how a writer writes.
struct WriterSettings {
    std::string fFile;       ///< empty: standard output
    std::string fName = {};  ///< what failures call it
    int fTerminalWidth = kDefaultTerminalWidth;
};

/// A format of output. Its maker opens the target, and throws `WriteFailure` where it can't.
struct WriterRow {
    std::string_view fFormat;
    std::string_view fExtension;
    bool fToStandardOutput;  ///< where no file is named; otherwise a file named after the job
    bool fShowsCharts;       ///< false where it takes their record alone
    std::unique_ptr<OutputSink> (*fMake)(const WriterSettings& settings);
};

/// All formats, in the order in which they are told to users.
std::span<const WriterRow> Writers();

/// Null where no format bears the name.
const WriterRow* FindWriter(std::string_view format);

}  // namespace refhost
