#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "refhost/document/OutputSink.h"

namespace refhost {

/// What one split wrote, apart from the output that it belongs to.
struct SplitPart {
    std::string_view fBytes;    ///< held by whoever tells of them
    std::string fOutline = {};  ///< its entries in an outline that stands elsewhere
    bool fHasCharts = false;
};

/// A sink whose splits can be written apart, in processes of their own, and then put into it. The
/// bytes are the same as if they had been written here.
class PartedSink : public OutputSink {
public:
    /// A sink of the same kind for splits alone: it gets neither `Begin` nor `End`.
    virtual std::unique_ptr<PartedSink> ForParts(const RunStart& start) const = 0;

    /// What was written since the last part; of a sink that `ForParts` made, behind an `EndSplit`.
    /// The bytes stay valid until the next split.
    virtual SplitPart TakePart() = 0;

    /// Writes a split as its part, in place of `BeginSplit` to `EndSplit`.
    virtual void PutPart(const SplitPart& part) = 0;
};

}  // namespace refhost
