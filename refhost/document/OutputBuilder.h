#pragma once

#include <exception>
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

    /// A table, chart or report, complete. Nodes come from destructors, and from callers that
    /// swallow what a chart throws; a failure of the sink is therefore kept, and what comes later
    /// is dropped.
    void Add(OutputNodePtr node) noexcept;

    /// Keeps a failure met where nothing may be thrown; only the first counts.
    void Fail(std::exception_ptr failure) noexcept;

    /// Throws the failure that was kept, if there is one.
    void ThrowFailure() const;

private:
    void Place(OutputNodePtr node);

    OutputSink& fSink;
    std::vector<OutputNodePtr> fOpen;  // outermost first
    std::exception_ptr fFailure;
};

}  // namespace refhost
