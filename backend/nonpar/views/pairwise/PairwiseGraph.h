#pragma once

#include <memory>
#include <string>
#include <vector>

#include "model/NOPROutputStats.h"

class FacSTDictionary;
class VarDataProcessor;

/// The pairwise comparisons of a test as a network: a node for each sample, an edge for each pair.
/// Borrows all that it is given. Without a result or its comparisons there is nothing to draw;
/// without a dictionary, keys stand for its words.
class PairwiseGraph {
public:
    PairwiseGraph(const NOPROutputStats* stats, const NOPROutputStats::PairwiseData* pairwise,
                  const FacSTDictionary* dictionary);
    ~PairwiseGraph();

    /// True once the chart was sent.
    bool Render(const std::string& splitText, bool appendSplit);

    /// Number of edge rows written.
    int FillChartData(VarDataProcessor& processor);

    /// The column of that name in the table of pairs: as it stands (`raw`), or as positions that
    /// are turned into the sample numbers of the nodes. Empty where there is no such column.
    std::vector<double> ColumnValues(const std::string& name, bool raw) const;

    /// The edge type of each significance: whether it lies below the level of the analysis.
    std::vector<double> SignificanceTypes(const std::vector<double>& significances) const;

private:
    struct State;
    std::unique_ptr<State> fState;
};
