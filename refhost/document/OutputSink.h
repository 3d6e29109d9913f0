#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "refhost/document/OutputNode.h"

namespace refhost {

/// What is known of a run before its first split.
struct RunStart {
    std::string fTitle;     ///< the job's; may be empty
    std::string fLanguage;  ///< code of the output language, "en"
    bool fHasAnalysisVariables = false;
    std::vector<int> fAnalysisVariables;
};

/// How a run ended.
struct RunEnd {
    bool fResult = false;
    std::string fFailure;  ///< the text of the broken invariant; empty where none broke
    std::string fNotice;   ///< what a person has to know of an incomplete output; may be empty
};

/// Where output goes, as it comes: a sink that writes at once needs no more memory than one node.
/// Writers are sinks. A sink that can't write throws `WriteFailure`.
class OutputSink {
public:
    virtual ~OutputSink() = default;
    virtual void Begin(const RunStart& start) = 0;

    /// What comes between the two is the output of one split; splits are numbered from 0. When
    /// `EndSplit` returns, all of it is out.
    virtual void BeginSplit(std::size_t split) = 0;
    virtual void EndSplit() = 0;

    /// A heading; what comes up to its `CloseHeading` stands under it.
    virtual void OpenHeading(TextRef label) = 0;
    virtual void CloseHeading() = 0;

    /// Does for a node what can be done ahead of its turn; may be left out. Nodes are prepared on
    /// any thread, several at a time, while others are written. Throws nothing but
    /// `std::bad_alloc`, where `Node` does it all.
    virtual void Prepare(OutputNode&) const {}
    virtual bool PreparesNodes() const { return false; }  ///< whether that is anything

    /// A table, chart or report under the innermost open heading; never null. A sink that keeps the
    /// node takes it, one that has done with it leaves it to the caller. Where memory runs out
    /// (`std::bad_alloc`) the node is left out and the sink is as good as before.
    virtual void Node(OutputNodePtr&& node) = 0;
    virtual void End(const RunEnd& end) = 0;
};

}  // namespace refhost
