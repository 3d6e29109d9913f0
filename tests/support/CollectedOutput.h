#pragma once

#include <memory>
#include <utility>
#include <vector>

#include "refhost/document/HostRun.h"
#include "refhost/document/OutputBuilder.h"
#include "refhost/pivot/PivotProcedure.h"

#include "host/pivot/BpProcedure.h"

#include "support/OutputTree.h"

/// A run of the host whose output stays in memory, with a procedure over the variables of a source.
/// It is the current run as long as it lives.
class CollectedOutput {
public:
    explicit CollectedOutput(const QORT_DataSource* source = nullptr)
        : fRun{.fOutput = &fBuilder, .fTemplateFolder = {}},
          fScope(fRun),
          fProcedure(refhost::MakeProcedure(source))
    {
    }

    BpProcedure& Procedure() { return *fProcedure; }
    const std::vector<OutputTreeNode>& Nodes() const { return fSink.fNodes; }

    /// Hands over what was written up to now.
    std::vector<OutputTreeNode> TakeNodes() { return std::exchange(fSink.fNodes, {}); }

    /// The nodes of one type at the top, in order.
    template <class Node>
    std::vector<const Node*> All() const
    {
        std::vector<const Node*> found;
        for (const OutputTreeNode& node : fSink.fNodes)
            if (const auto* content = node.As<Node>()) found.push_back(content);
        return found;
    }

    /// The table at a place among those at the top.
    const refhost::TableNode& Table(std::size_t place = 0) const
    {
        return *All<refhost::TableNode>().at(place);
    }

private:
    OutputTree fSink;
    refhost::OutputBuilder fBuilder{fSink};
    refhost::HostRun fRun;
    refhost::HostRun::Scope fScope;
    std::unique_ptr<BpProcedure> fProcedure;
};
