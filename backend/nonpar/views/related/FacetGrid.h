#pragma once

#include <functional>
#include <string>

#include "model/NOPRTestRecords.h"

class FacSTDictionary;
class VarDataProcessor;
class XGraph;

/// What the two views of a cross table share: a grid of facets, the column field on top and the row
/// field at the side.

/// The data source of the grid, and the variables that both views fill.
namespace facet {
inline constexpr char kSource[] = "graphSource";
inline constexpr char kCellText[] = "CellText";
inline constexpr char kColumn[] = "Column";
inline constexpr char kRow[] = "Row";
inline constexpr char kCategory[] = "Category";
inline constexpr char kCellValue[] = "CellValue";
inline constexpr char kObservedTooltip[] = "ObservedTooltip";
}  // namespace facet

/// The fields of a comparison; each null where its index names none.
struct FacetFields {
    const FieldInfoData* fRow;
    const FieldInfoData* fColumn;
};

/// What a view is made from; nothing of it is owned.
struct FacetSource {
    const NOPROutputStats* fStats;
    const NOPROutputStats::CategoryComparison* fComparison;
    const FacSTDictionary* fDictionary;

    bool IsComplete() const { return fStats && fComparison; }
};

/// What a view does its own way.
struct FacetRecipe {
    std::string fTitleKey;

    /// Edits the template behind the title and the names of the facets.
    std::function<void(std::string& text)> fEditTemplate;

    /// Sets variables behind the text of the cells and the titles. What it throws loses the
    /// settings that follow, not the chart.
    std::function<void(XGraph& graph, const FacetFields& fields)> fBindVariables;
};

/// Draws a grid from rows that are filled; true once the chart was sent. The data go in before the
/// graph is touched.
bool DrawFacets(const FacetSource& source, const FacetRecipe& recipe,
                const VarDataProcessor& processor, const std::string& splitText, bool appendSplit);
