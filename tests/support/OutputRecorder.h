#pragma once

#include <initializer_list>
#include <memory>
#include <string>
#include <vector>

#include "refhost/document/HostRun.h"
#include "refhost/document/OutputBuilder.h"

#include "support/OutputTree.h"

class BpProcedure;
class QORT_DataSource;

/// Output in memory, and short texts of it to compare.

/// What a text was made from: @key, 'literal', 0.05:Significance, <variable>, <feed>=1, and a
/// composite as its template with its parts: @^1 of ^2(<feed>; [1:Count, 2:Count]). The missing
/// number is "missing", no text at all "none".
std::string Passed(const refhost::TextRef& text);
std::vector<std::string> Passed(const std::vector<refhost::TextRef>& texts);

/// A table whose cells are found by their labels as they show, one for each dimension. A label in a
/// group stands behind the group's: "Sample/casein".
class RecordedTable {
public:
    using Labels = std::initializer_list<std::string>;

    explicit RecordedTable(const refhost::TableNode* table) : fTable(table) {}

    /// False where the recorder found no such table; every text of it is then "none".
    explicit operator bool() const { return fTable != nullptr; }

    std::string Title() const;
    std::string Subtype() const;
    std::string Caption() const;

    /// "60..100"; a limit that was not set is left out.
    std::string Widths() const;

    /// A line for each dimension: title, sort, place and flags.
    std::vector<std::string> Dimensions() const;
    std::vector<std::string> LabelsOf(std::size_t dimension) const;

    /// The labels as they were passed, groups before their categories.
    std::vector<std::string> PassedLabels(std::size_t dimension) const;
    std::vector<std::string> LabelNotes(std::size_t dimension, const std::string& label) const;

    std::string Cell(Labels labels) const;
    std::vector<std::string> CellNotes(Labels labels) const;
    std::size_t CellCount() const;

private:
    const refhost::PivotCell* Find(Labels labels) const;

    const refhost::TableNode* fTable;
};

/// A run of the host whose output stays in memory. One at a time.
class OutputRecorder final {
public:
    explicit OutputRecorder(const QORT_DataSource* source = nullptr,
                            const std::string& templateFolder = {});
    ~OutputRecorder();

    BpProcedure& Procedure() { return *fProcedure; }

    /// All that was written: a line for each node, two blanks for each level.
    std::string Outline() const;

    /// The table of that title as it shows, wherever it stands; of several, the one of that place.
    RecordedTable Table(const std::string& title, std::size_t place = 0) const;

private:
    OutputTree fTree;
    refhost::OutputBuilder fBuilder;
    refhost::HostRun fRun;
    refhost::HostRun::Scope fScope;
    std::unique_ptr<BpProcedure> fProcedure;
};
