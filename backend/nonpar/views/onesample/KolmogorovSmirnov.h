#pragma once

#include "charts/NOPRHistogramChart.h"
#include "model/NOPROutputStats.h"

/// The histogram of a field with the hypothesized distribution drawn over it, and its parameters in
/// a label. The condition's key says which of four distributions it is.
class KolmogorovSmirnov final : public NOPRHistogramChart {
public:
    /// The record is borrowed. Without it there is a histogram without curve and label.
    KolmogorovSmirnov(const FacSTDictionary* dictionary, const NOPROutputStats* stats,
                      const NOPROutputStats::BaseHypothesisTest* test);

    const NumericTable* HistogramTable() override;
    void EditTemplate(std::string& text) override;
    void EditDocument(XDocument& document) override;

private:
    void InsertCurve(std::string& text) const;
    void FillLabel(std::string& text) const;
    std::string LabelText() const;

    const NOPROutputStats::BaseHypothesisTest* fTest;
};
