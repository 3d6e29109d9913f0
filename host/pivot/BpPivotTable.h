#pragma once

#include <memory>

class BpAnnotation;
class BpCellText;

/// Where a dimension stands.
enum class Place : int { Rows = 0, Columns = 1 };

/// How the categories of a dimension are sorted; the numbers are the library's. The reference host
/// keeps the order of creation for both.
enum class Sort : int { Split = 0, AsCreated = 2 };

class BpGroup;

/// A category of a dimension. A view into its table, valid as long as that; copies stand for the
/// same category.
class BpCategory {
public:
    class Impl;
    explicit BpCategory(Impl* impl) : fImpl(impl) {}

    /// A note on the category's label. Equal notes on one label stand once.
    void Note(const BpAnnotation& annotation);

    /// The content of the cell where this category crosses the latest category of every other
    /// dimension. A second content replaces the first and keeps the cell's notes.
    void Cell(const BpCellText& text);

    /// A further note on that cell.
    void CellNote(const BpAnnotation& annotation);

private:
    Impl* fImpl;
};

/// A group of categories, or a whole dimension. A view into its table, as `BpCategory`.
class BpGroup {
public:
    class Impl;
    explicit BpGroup(Impl* impl) : fImpl(impl) {}

    /// The category of that label, which becomes the latest of its dimension: one that is already
    /// in this group, or a new one behind the last.
    BpCategory Category(const BpCellText& text);

    /// The nested group of that label, already there or new. `shown` and `sort` are true and
    /// `AsCreated` at all callers.
    BpGroup Group(const BpCellText& text, bool shown, Sort sort);

    /// A note on the group's label.
    void Note(const BpAnnotation& annotation);

protected:
    Impl* fImpl;
};

class BpDimension : public BpGroup {
public:
    using BpGroup::BpGroup;

    /// Puts the dimension in the rows or columns, as the outermost of them for `layer` 1 and the
    /// first one made. The flags are the library's; each table gives its own.
    void Position(Place place, int layer, bool a, bool b);
};

/// A pivot table. Its destruction ends it. Movable.
class BpPivotTable {
public:
    class Impl;
    explicit BpPivotTable(std::unique_ptr<Impl> impl);
    ~BpPivotTable();
    BpPivotTable(BpPivotTable&&) noexcept;
    BpPivotTable& operator=(BpPivotTable&&) noexcept;

    /// Limits of the width of the data columns, in the library's points.
    void MinDataColumnWidth(int width);
    void MaxDataColumnWidth(int width);

    void Caption(const BpCellText& text);

    /// A new dimension, behind those that are there.
    BpDimension Dimension(const BpCellText& title, Sort sort);

private:
    std::unique_ptr<Impl> fImpl;
};
