#include "fuzz/targets/FuzzTargets.h"

#include <algorithm>
#include <cstdlib>

namespace fuzz {

namespace {

void PrepareNothing() {}

/// Without charts a document is through in a fraction of the time, so more of them reach the
/// tables.
void SwitchViewsOff() { setenv("DEBUG_MODEL_VIEWER", "2", /*overwrite=*/1); }

// clang-format off
constexpr FuzzTarget kTargets[] = {
    {"document", PrepareNothing, RunDocument},
    {"tables",   SwitchViewsOff, RunDocument},
    {"chart",    PrepareNothing, RunChart},
    {"job",      PrepareNothing, RunJobFile},
};
// clang-format on

}  // namespace

std::span<const FuzzTarget> FuzzTargets() { return kTargets; }

const FuzzTarget* FindFuzzTarget(std::string_view name)
{
    const auto* found =
        std::find_if(std::begin(kTargets), std::end(kTargets),
                     [&](const FuzzTarget& target) { return target.fName == name; });
    return found == std::end(kTargets) ? nullptr : found;
}

}  // namespace fuzz
