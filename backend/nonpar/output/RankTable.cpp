#include "output/RankTable.h"

#include <algorithm>

#include "model/Positions.h"

RankTable::RankTable(const NumericTable& info)
    : fSize(static_cast<std::int64_t>(info.fRows[0].size()))
{
    const std::vector<double>& samples = info.fRows[0];
    const std::vector<double>& ranks = info.fRows[1];
    for (std::size_t column = 0; column < samples.size(); ++column) {
        if (!(samples[column] >= 0)) continue;
        const int sample = CutToInt(samples[column]);
        fSize = std::max(fSize, std::int64_t{sample} + 1);
        fRanks[sample] = ranks[column];
    }
}

double RankTable::RankOf(int sample) const
{
    const auto rank = fRanks.find(sample);
    return rank == fRanks.end() ? 0.0 : rank->second;
}
