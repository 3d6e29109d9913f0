#pragma once

namespace refhost {

/// How a run ended, or a split with which it may end.
enum class RunOutcome { Done, Unreadable, InvariantBroken, Interrupted, OutOfMemory };

}  // namespace refhost
