#pragma once

#include <cstddef>

#include "refhost/document/OutputSink.h"

namespace refhost {

/// Hands output on until the run is interrupted: what comes then is refused with `Interrupted`. A
/// split that is cut short is ended by `EndSplit` like any other, which closes its headings.
class StoppableSink : public OutputSink {
public:
    explicit StoppableSink(OutputSink& next) : fNext(next) {}

    /// True where the current split has handed something on.
    bool HasOutput() const { return fHasOutput; }

    void Begin(const RunStart& start) override;
    void BeginSplit(std::size_t split) override;
    void EndSplit() override;
    void OpenHeading(TextRef label) override;
    void CloseHeading() override;
    void Node(OutputNodePtr&& node) override;
    void End(const RunEnd& end) override;

private:
    OutputSink& fNext;
    std::size_t fDepth = 0;  // of open headings
    bool fHasOutput = false;
};

}  // namespace refhost
