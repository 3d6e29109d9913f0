#pragma once

#include <vector>

#include "refhost/document/OutputSink.h"

namespace refhost {

/// Puts nodes under the innermost heading that is open, and hands each top node to the sink when it
/// is complete. The libraries of the host write through the builder of the current run.
class OutputBuilder {
public:
    explicit OutputBuilder(OutputSink& sink) : fSink(sink) {}
    OutputBuilder(const OutputBuilder&) = delete;
    OutputBuilder& operator=(const OutputBuilder&) = delete;

    /// Opens a heading; the node is owned by the builder up to the matching `CloseHeading`.
    HeadingNode* OpenHeading(TextRef label);

    /// Closes a heading, and all that are still open under it. Null and unknown ones do nothing.
    void CloseHeading(const HeadingNode* heading);

    /// A table, chart or report, complete.
    void Add(OutputNodePtr node);

private:
    OutputSink& fSink;
    std::vector<OutputNodePtr> fOpen;  // outermost first
};

}  // namespace refhost
