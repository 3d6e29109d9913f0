#pragma once

#include <cstdint>
#include <unordered_map>

#include "model/NOPROutputStats.h"

/// The rank of each sample number: a growing list, of which only the entries that were set take
/// memory. What lies inside it and was not set is 0.
class RankTable {
public:
    /// From two rows of equal length: sample numbers, and the rank of each.
    explicit RankTable(const NumericTable& info);

    bool Holds(int sample) const { return sample >= 0 && sample < fSize; }
    double RankOf(int sample) const;

private:
    std::int64_t fSize = 0;
    std::unordered_map<int, double> fRanks;
};
