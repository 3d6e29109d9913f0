#pragma once

#include <memory>
#include <string>

#include "refhost/document/OutputSink.h"

namespace refhost {

/// Writes each chart of a run into a folder as a document of its own, and hands all nodes on. A
/// file is named after the chart's number and title.
class ChartFiles : public OutputSink {
public:
    /// Makes the folder where it is not there; throws `WriteFailure` where it can't.
    ChartFiles(const std::string& folder, std::unique_ptr<OutputSink> next);

    void Begin(const RunStart& start) override;
    void BeginSplit(std::size_t split) override;
    void EndSplit() override;
    void OpenHeading(TextRef label) override;
    void CloseHeading() override;
    bool PreparesNodes() const override { return fNext->PreparesNodes(); }
    void Prepare(OutputNode& node) const override { fNext->Prepare(node); }
    void Node(OutputNodePtr&& node) override;
    void End(const RunEnd& end) override;

private:
    void WriteChart(const ChartNode& chart);

    std::string fFolder;
    std::string fLanguage;
    std::unique_ptr<OutputSink> fNext;
    std::size_t fCharts = 0;
};

}  // namespace refhost
