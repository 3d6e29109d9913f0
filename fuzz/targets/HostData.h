#pragma once

#include <cstddef>

#include "host/framework/SplitResult.h"

class QORT_DataSource;

/// The data that fuzzed documents speak of.

namespace fuzz {

/// A variable of every kind: numbers, ordinal and string categories with labels, dates, moments,
/// durations; and labels that no output may take for markup.
const QORT_DataSource& HostData();

/// A split that is told in one of the three ways: not at all, by a heading, by dimensions.
SplitResult MakeSplit(std::size_t way);

}  // namespace fuzz
