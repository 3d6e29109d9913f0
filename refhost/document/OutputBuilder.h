#pragma once

#include <cstddef>
#include <cstdint>
#include <exception>
#include <vector>

#include "refhost/document/OutputSink.h"

namespace refhost {

/// Names a heading of a run; 0 names none.
using HeadingNumber = std::uint64_t;

/// What the libraries of the host write through: hands output on to the sink of the current run and
/// keeps count of the open headings. Handles end in destructors, and some callers swallow what a
/// chart throws; a failure of the sink is therefore kept, and what comes later is dropped.
class OutputBuilder {
public:
    explicit OutputBuilder(OutputSink& sink) : fSink(sink) {}
    OutputBuilder(const OutputBuilder&) = delete;
    OutputBuilder& operator=(const OutputBuilder&) = delete;

    HeadingNumber OpenHeading(TextRef label) noexcept;

    /// Closes a heading, and all that are still open under it. 0 and one that is not open do
    /// nothing.
    void CloseHeading(HeadingNumber heading) noexcept;

    /// A table, chart or report, complete.
    void Add(OutputNodePtr node) noexcept;

    /// Keeps a failure met where nothing may be thrown; only the first counts.
    void Fail(std::exception_ptr failure) noexcept;

    /// Throws the failure that was kept, if there is one.
    void ThrowFailure() const;

private:
    template <class Step>
    void Guard(Step step) noexcept;

    OutputSink& fSink;
    std::vector<HeadingNumber> fOpen;  // outermost first
    HeadingNumber fLast = 0;
    std::exception_ptr fFailure;
};

}  // namespace refhost
