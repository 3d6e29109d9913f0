#pragma once

#include "charts/NOPRHistogramChart.h"
#include "model/NOPROutputStats.h"

class ViZGraph;
class ViZVisualization;

/// The histogram of a field with two line guides, the hypothesized and the observed median, and two
/// labels that name them. The overlays are built on the visualization's object model.
class OneSampleWilcoxonSignedRanks final : public NOPRHistogramChart {
public:
    /// The record is borrowed and may be null; there is no chart then.
    OneSampleWilcoxonSignedRanks(const FacSTDictionary* dictionary, const NOPROutputStats* stats,
                                 const NOPROutputStats::HTOWilcoxonSignedRanks* test);

    void EditTemplate(std::string& text) override;
    void EditDocument(XDocument& document) override;

private:
    void AddGuides(ViZVisualization& visualization, ViZGraph& graph) const;
    void AddFrames(ViZVisualization& visualization, const ViZGraph& graph) const;

    const NOPROutputStats::HTOWilcoxonSignedRanks* fTest;
};
