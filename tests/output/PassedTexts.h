#pragma once

#include <string>

#include "support/CollectedOutput.h"

/// Texts as what they were made from: @key, 'literal', 0.05:Significance, <variable>, <feed>=1, and
/// a composite as its template with its parts: @^1 of ^2(<feed>; [1:Count, 2:Count]). The missing
/// number is "missing", no text at all "none".

/// All that was written: a line for each node, two blanks for each level.
std::string Outline(const CollectedOutput& output);

/// What the first cell of the first table was made from.
std::string FirstCell(const CollectedOutput& output);
