#include "output/TableParts.h"

#include "host/pivot/BpHeading.h"

namespace {

constexpr bool kHidden = false;
constexpr bool kGroupShown = true;
constexpr int kOuterLayer = 1;

}  // namespace

BpPivotTable MakeTable(BpHeading& heading, const BpCellText& title, const std::string& subtype,
                       const ColumnWidths& widths)
{
    BpPivotTable table = heading.PivotTable(title, Literal(subtype), kHidden);
    if (widths.fMin >= 0) table.MinDataColumnWidth(widths.fMin);
    if (widths.fMax >= 0) table.MaxDataColumnWidth(widths.fMax);
    return table;
}

BpDimension MakeDimension(BpPivotTable& table, const DimensionForm& form)
{
    BpDimension dimension = table.Dimension(BpString(form.fTitle, form.fLookup), Sort::AsCreated);
    dimension.Position(form.fPlace, kOuterLayer, form.fFlags[0], form.fFlags[1]);
    return dimension;
}

BpGroup MakeGroup(BpGroup& parent, const BpCellText& label)
{
    return parent.Group(label, kGroupShown, Sort::AsCreated);
}
