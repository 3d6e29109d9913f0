#pragma once

#include <cstddef>

#include "refhost/run/SplitWork.h"

namespace refhost {

class PartedSink;

/// Runs the splits of a job in order, up to the first that is not done, and writes them. All of it
/// is out before the next split begins. The sink gets everything but its `End`.
SplitEnd RunSplits(const SplitPlan& plan, OutputSink& sink);

/// The same in several processes at a time, which are made by `fork`: no thread may be there yet.
SplitEnd RunSplitsApart(const SplitPlan& plan, PartedSink& sink, std::size_t processes);

}  // namespace refhost
