#pragma once

#include <string>

#include "host/pivot/BpCellText.h"
#include "host/pivot/BpPivotTable.h"

#include "support/CollectedOutput.h"

/// Tables in the shapes that the procedures make, written through the pivot library.

inline BpString Literal(const std::string& text) { return {text, false}; }

/// Rows of numbers, columns with long texts, a caption and shared notes; `notes` on the first row.
inline void WriteHypothesisTable(BpHeading& heading)
{
    BpPivotTable table =
        heading.PivotTable(Literal("Hypothesis Test Summary"), Literal("summary"), false);
    table.Caption(Literal("The significance level is 0.050."));
    BpDimension item = table.Dimension(Literal("Item"), Sort::AsCreated);
    item.Position(Place::Rows, 1, true, false);
    BpDimension statistics = table.Dimension(Literal("Statistics"), Sort::AsCreated);
    statistics.Position(Place::Columns, 1, true, false);
    for (int row = 1; row <= 2; ++row) {
        item.Category(BpNumber(row, BpProcedure::Count()));
        statistics.Category(Literal("Null Hypothesis"))
            .Cell(Literal("The distribution of Weight is the same across categories of Feed."));
        BpCategory significance = statistics.Category(Literal("Sig."));
        significance.Cell(BpNumber(row == 1 ? 0.0412 : 0.5, BpProcedure::Significance()));
        significance.CellNote(BpAnnotation(Literal("Exact significance is displayed.")));
        if (row == 1) significance.CellNote(BpAnnotation(Literal("Second note.")));
        statistics.Category(Literal("Decision")).Cell(Literal("Retain the null hypothesis."));
    }
}

/// Groups beside categories in the rows, a titled dimension in the columns, holes in the cells.
inline void WriteSubsetsTable(BpHeading& heading)
{
    BpPivotTable table = heading.PivotTable(Literal("Homogeneous Subsets"), Literal("s"), false);
    BpDimension statistics = table.Dimension(Literal("Statistics"), Sort::AsCreated);
    statistics.Position(Place::Rows, 1, true, false);
    BpDimension subset = table.Dimension(Literal("Subset"), Sort::AsCreated);
    subset.Position(Place::Columns, 1, false, false);
    BpGroup sample = statistics.Group(Literal("Sample"), true, Sort::AsCreated);
    sample.Note(BpAnnotation(Literal("Each cell shows the sample average rank.")));
    for (int column = 1; column <= 2; ++column) {
        subset.Category(Literal(std::to_string(column)));
        for (int row = column; row < column + 2; ++row) {
            sample.Category(Literal("dose " + std::to_string(row)))
                .Cell(BpNumber(row * 10.5, BpProcedure::Coefficient()));
        }
        statistics.Category(Literal("Sig. (2-sided test)"))
            .Cell(BpNumber(0.25 * column, BpProcedure::Significance()));
    }
}

/// Groups in the columns, hidden row labels, a split outside of all.
inline void WriteIntervalTable(BpHeading& heading)
{
    BpPivotTable table =
        heading.PivotTable(Literal("Confidence Interval Summary"), Literal("c"), false);
    BpDimension split = table.Dimension(Literal("Region"), Sort::Split);
    split.Position(Place::Rows, 1, false, false);
    split.Category(Literal("north"));
    BpDimension item = table.Dimension(Literal("Item"), Sort::AsCreated);
    item.Position(Place::Rows, 1, true, true);
    BpDimension statistics = table.Dimension(Literal("Statistics"), Sort::AsCreated);
    statistics.Position(Place::Columns, 1, true, false);
    for (int row = 1; row <= 2; ++row) {
        item.Category(BpNumber(row, BpProcedure::Count()));
        statistics.Category(Literal("Estimate"))
            .Cell(BpNumber(row * 12.5, BpProcedure::Coefficient()));
        BpGroup interval =
            statistics.Group(Literal("95% Confidence Interval"), true, Sort::AsCreated);
        interval.Category(Literal("Lower")).Cell(BpNumber(row, BpProcedure::Coefficient()));
        interval.Category(Literal("Upper")).Cell(BpNumber(row * 100, BpProcedure::Coefficient()));
    }
}
