#pragma once

#include <memory>
#include <string>

#include "refhost/document/HostRun.h"
#include "refhost/document/OutputBuilder.h"

#include "support/OutputTree.h"

class BpProcedure;
class QORT_DataSource;

/// A run of the host whose output stays in memory. One at a time. Texts show as what they were made
/// from: @key, 'literal', 0.05:Significance, <variable>, <feed>=1, and a composite as its template
/// with its parts: @^1 of ^2(<feed>; [1:Count, 2:Count]). The missing number is "missing", no text
/// at all "none".
class OutputRecorder final {
public:
    explicit OutputRecorder(const QORT_DataSource* source = nullptr);
    ~OutputRecorder();

    BpProcedure& Procedure() { return *fProcedure; }

    /// All that was written: a line for each node, two blanks for each level.
    std::string Outline() const;

    /// What the first cell of the first table was made from.
    std::string FirstCell() const;

private:
    OutputTree fTree;
    refhost::OutputBuilder fBuilder;
    refhost::HostRun fRun;
    refhost::HostRun::Scope fScope;
    std::unique_ptr<BpProcedure> fProcedure;
};
