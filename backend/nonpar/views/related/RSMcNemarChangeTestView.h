#pragma once

#include <memory>
#include <string>
#include <vector>

#include "model/NOPRTestRecords.h"

class ChartString;
class FacSTDictionary;
class VarDataProcessor;
class XVariable;

/// The McNemar change test: a grid of facets with the observed beside the hypothesized count off
/// the diagonal, and the observed count as a number on it.
class RSMcNemarChangeTestView final {
public:
    RSMcNemarChangeTestView(const NOPROutputStats* stats,
                            const NOPROutputStats::CategoryComparison* comparison,
                            const FacSTDictionary* dictionary);
    ~RSMcNemarChangeTestView();

    /// True once the chart was sent.
    virtual bool Render(const std::string& splitText, bool appendSplit);

    /// Number of rows written: one for a cell on the diagonal, two for any other.
    int FillChartData(VarDataProcessor& processor);

    /// The observed count; off the diagonal the hypothesized count behind it, the mean of the cell
    /// and its mirror. A mirror that a ragged table lacks leaves the observed count alone.
    std::vector<double> CellValues(std::size_t i, std::size_t j) const;

    /// Writes the row of a cell's category (0 observed, 1 hypothesized).
    void WriteCellRow(VarDataProcessor& processor, std::size_t i, std::size_t j,
                      const std::vector<double>& values, int category);

    /// Names the positions 0 and 1 by the values that make up the two categories.
    static void RelabelCategories(XVariable variable, const FieldInfoData* field,
                                  const std::vector<double>& first,
                                  const std::vector<double>& second,
                                  const std::vector<std::string>& texts);

    /// The labels of a category's values. Values that the field doesn't hold take `texts` in turn,
    /// or else their own position in the list.
    static std::string CategoryText(const FieldInfoData* field, const std::vector<double>& list,
                                    const std::vector<std::string>& texts);

private:
    struct State;
    std::unique_ptr<State> fState;
};
