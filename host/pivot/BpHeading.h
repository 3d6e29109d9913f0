#pragma once

#include <memory>

class BpCellText;
class BpPivotTable;

/// A heading of the output. Its destruction closes it: what is written later stands behind it, not
/// under it. Movable; the moved-from handle closes nothing.
class BpHeading {
public:
    class Impl;
    explicit BpHeading(std::unique_ptr<Impl> impl);
    virtual ~BpHeading();
    BpHeading(BpHeading&&) noexcept;
    BpHeading& operator=(BpHeading&&) noexcept;

    /// A new heading under this one.
    BpHeading Heading(const BpCellText& text);

    /// A new table under this heading. `subtype` names the kind of table to the host; the third
    /// argument is false at all callers.
    BpPivotTable PivotTable(const BpCellText& title, const BpCellText& subtype, bool hidden);

private:
    std::unique_ptr<Impl> fImpl;
};
