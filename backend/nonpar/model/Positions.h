#pragma once

#include <cstddef>
#include <limits>
#include <vector>

/// Numbers of a document as places in a list.

/// Cuts a double toward 0, clamped to 32 bits; a NaN gives 0.
constexpr int CutToInt(double value)
{
    constexpr double kLowest = std::numeric_limits<int>::min();
    constexpr double kHighest = std::numeric_limits<int>::max();
    if (value != value) return 0;
    if (value <= kLowest) return std::numeric_limits<int>::min();
    if (value >= kHighest) return std::numeric_limits<int>::max();
    return static_cast<int>(value);
}

/// The element at a position that a document gives; null where the list has none there.
template <class Element>
const Element* ElementAt(const std::vector<Element>& list, int position)
{
    const bool isThere = position >= 0 && static_cast<std::size_t>(position) < list.size();
    return isThere ? &list[static_cast<std::size_t>(position)] : nullptr;
}
