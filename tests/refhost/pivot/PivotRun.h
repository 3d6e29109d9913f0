#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "refhost/data/VariableData.h"
#include "refhost/document/HostRun.h"
#include "refhost/document/OutputBuilder.h"
#include "refhost/pivot/PivotProcedure.h"

#include "host/pivot/BpProcedure.h"

#include "support/OutputTree.h"

/// A run with a procedure over these variables, and its output.
class PivotRun {
public:
    explicit PivotRun(std::vector<refhost::VariableData> variables = {})
        : fSource(refhost::MakeDataSource(std::move(variables))),
          fBuilder(fKept),
          fRun{.fOutput = &fBuilder, .fTemplateFolder = {}},
          fScope(fRun),
          fProcedure(refhost::MakeProcedure(fSource.get()))
    {
    }

    BpProcedure& Procedure() { return *fProcedure; }
    const QORT_DataSource& Source() const { return *fSource; }
    const std::vector<OutputTreeNode>& Nodes() const { return fKept.fNodes; }

    /// Hands over what was written up to now.
    std::vector<OutputTreeNode> TakeNodes() { return std::exchange(fKept.fNodes, {}); }

    /// The table at a place of the top; an empty one where none stands there.
    const refhost::TableNode& Table(std::size_t place = 0) const
    {
        static const refhost::TableNode kNone;
        const auto* table =
            place < Nodes().size() ? Nodes()[place].As<refhost::TableNode>() : nullptr;
        return table ? *table : kNone;
    }

private:
    std::unique_ptr<ProcedureDataSource> fSource;
    OutputTree fKept;
    refhost::OutputBuilder fBuilder;
    refhost::HostRun fRun;
    refhost::HostRun::Scope fScope;
    std::unique_ptr<BpProcedure> fProcedure;
};

/// What a reader sees of a text; "(none)" for null.
inline std::string Shown(const refhost::TextRef& text) { return text ? text->fShown : "(none)"; }
