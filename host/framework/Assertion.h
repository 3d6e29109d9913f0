#pragma once

/// Where a broken invariant goes: `text` names it, word for word. It ends the whole run of the
/// procedure and does not return; what was written up to that point stays in the output.
[[noreturn]] void CFAssertionFailed(const char* text);

/// States a condition that the host's documents and calls guarantee.
inline void CFAssert(bool holds, const char* text)
{
    if (!holds) CFAssertionFailed(text);
}
