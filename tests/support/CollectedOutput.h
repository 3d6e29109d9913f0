#pragma once

#include <vector>

#include "refhost/document/HostRun.h"
#include "refhost/document/OutputBuilder.h"

#include "support/OutputTree.h"

/// A run of the host whose output stays in memory. It is the current run as long as it lives.
class CollectedOutput {
public:
    CollectedOutput() : fBuilder(fSink), fRun{&fBuilder, {}, true}, fScope(fRun) {}

    const std::vector<OutputTreeNode>& Nodes() const { return fSink.fNodes; }

    /// The nodes of one type at the top, in order.
    template <class Node>
    std::vector<const Node*> All() const
    {
        std::vector<const Node*> found;
        for (const OutputTreeNode& node : fSink.fNodes)
            if (const auto* content = node.As<Node>()) found.push_back(content);
        return found;
    }

private:
    OutputTree fSink;
    refhost::OutputBuilder fBuilder;
    refhost::HostRun fRun;
    refhost::HostRun::Scope fScope;
};
