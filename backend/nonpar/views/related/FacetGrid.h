#pragma once

#include <string>
#include <vector>

#include "model/NOPRTestRecords.h"

class ChartString;
class FacSTDictionary;

/// What the two views of a cross table share: the grid of facets, the column field on top and the
/// row field at the side.

inline constexpr char kFacetTemplate[] = "FacetBarChart.viztemplate";
inline constexpr char kFacetSource[] = "graphSource";

/// The fields of a comparison; each null where its index names none.
struct FacetFields {
    const FieldInfoData* fRow;
    const FieldInfoData* fColumn;
};
FacetFields FieldsOf(const NOPROutputStats* stats,
                     const NOPROutputStats::CategoryComparison& comparison);

/// Writes the title and the labels of both fields into the template's text.
void NameFacets(std::string& text, const ChartString& title, const FacetFields& fields);

/// What stands before the number of a cell on the diagonal.
ChartString CellPrefix(const FacSTDictionary* dictionary);
