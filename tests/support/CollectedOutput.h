#pragma once

#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "refhost/document/HostRun.h"
#include "refhost/document/OutputBuilder.h"

/// Keeps all nodes of a run.
class NodeList : public refhost::OutputSink {
public:
    void Begin(const refhost::RunStart&) override {}
    void Node(refhost::OutputNodePtr node) override { fNodes.push_back(std::move(node)); }
    void End(const refhost::RunEnd&) override {}

    std::vector<refhost::OutputNodePtr> fNodes;
};

/// A run of the host whose output stays in memory. It is the current run as long as it lives.
class CollectedOutput {
public:
    CollectedOutput() : fBuilder(fSink), fRun{&fBuilder, {}, true}, fScope(fRun) {}

    const std::vector<refhost::OutputNodePtr>& Nodes() const { return fSink.fNodes; }

    /// The nodes of one type at the top, in order.
    template <class Node>
    std::vector<const Node*> All() const
    {
        std::vector<const Node*> found;
        for (const refhost::OutputNodePtr& node : fSink.fNodes)
            if (const auto* content = std::get_if<Node>(&node->fContent)) found.push_back(content);
        return found;
    }

private:
    NodeList fSink;
    refhost::OutputBuilder fBuilder;
    refhost::HostRun fRun;
    refhost::HostRun::Scope fScope;
};
