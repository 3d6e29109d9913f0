#pragma once

#include <string>

#include "host/pivot/BpCellText.h"
#include "host/pivot/BpPivotTable.h"

class BpHeading;

/// What the tables make alike: words, notes, the frame of a table and its dimensions.

/// The text of the host's text table under a key; composites take the flag by itself.
inline constexpr bool kLookup = true;
inline constexpr bool kLiteral = false;

inline BpString Lookup(const std::string& key) { return {key, kLookup}; }
inline BpString Literal(const std::string& text) { return {text, kLiteral}; }
inline BpAnnotation LookupNote(const std::string& key) { return BpAnnotation(Lookup(key)); }

/// Limits of the data columns; a negative number sets none.
struct ColumnWidths {
    int fMin;
    int fMax;
};

/// A dimension as a table makes it. The flags are those of the host's `Position`.
struct DimensionForm {
    const char* fTitle;
    bool fLookup;
    Place fPlace;
    bool fFlags[2];
};

/// `subtype` names the kind of table to the host and is no key.
BpPivotTable MakeTable(BpHeading& heading, const BpCellText& title, const std::string& subtype,
                       const ColumnWidths& widths);

BpDimension MakeDimension(BpPivotTable& table, const DimensionForm& form);

/// The nested group of a label, as all tables make it.
BpGroup MakeGroup(BpGroup& parent, const BpCellText& label);
