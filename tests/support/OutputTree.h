#pragma once

#include <utility>
#include <vector>

#include "refhost/document/OutputSink.h"

/// A heading with what stands under it, or, where it has a node, a table, chart or report.
struct OutputTreeNode {
    refhost::TextRef fLabel;
    std::vector<OutputTreeNode> fChildren;
    refhost::OutputNodePtr fNode;

    bool IsHeading() const { return !fNode; }

    /// Null for a heading and for a node of another kind.
    template <class Content>
    const Content* As() const
    {
        return fNode ? std::get_if<Content>(&fNode->fContent) : nullptr;
    }
};

/// A sink that keeps what it gets, as it nests.
class OutputTree : public refhost::OutputSink {
public:
    void Begin(const refhost::RunStart&) override {}
    void BeginSplit(std::size_t) override {}
    void EndSplit() override {}
    void OpenHeading(refhost::TextRef label) override
    {
        Open().push_back({std::move(label), {}, {}});
        ++fDepth;
    }
    void CloseHeading() override { --fDepth; }
    void Node(refhost::OutputNodePtr&& node) override
    {
        Open().push_back({{}, {}, std::move(node)});
    }
    void End(const refhost::RunEnd&) override {}

    std::vector<OutputTreeNode> fNodes;

private:
    /// What stands under the innermost open heading.
    std::vector<OutputTreeNode>& Open()
    {
        std::vector<OutputTreeNode>* nodes = &fNodes;
        for (int level = 0; level < fDepth; ++level)
            nodes = &nodes->back().fChildren;
        return *nodes;
    }

    int fDepth = 0;
};

/// Calls `visit` for each node, headings before what stands under them.
template <class Visit>
void ForEachNode(const std::vector<OutputTreeNode>& nodes, const Visit& visit)
{
    for (const OutputTreeNode& node : nodes) {
        visit(node);
        ForEachNode(node.fChildren, visit);
    }
}

/// Hands nodes to a sink in the way in which they came.
inline void Replay(std::vector<OutputTreeNode> nodes, refhost::OutputSink& sink)
{
    for (OutputTreeNode& node : nodes) {
        if (!node.IsHeading()) {
            sink.Node(std::move(node.fNode));
            continue;
        }
        sink.OpenHeading(node.fLabel);
        Replay(std::move(node.fChildren), sink);
        sink.CloseHeading();
    }
}
