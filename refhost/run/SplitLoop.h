#pragma once

#include "refhost/run/SplitWork.h"

namespace refhost {

/// Runs the splits of a job in order, up to the first that is not done, and writes them. All of it
/// is out before the next split begins. The sink gets everything but its `End`.
SplitEnd RunSplits(const SplitPlan& plan, OutputSink& sink);

}  // namespace refhost
