#pragma once

#include "charts/NOPRHistogramChart.h"

/// The distribution of a field with its statistics, apart from any test. A field has two such
/// views, a categorical and a continuous one; only the one that fits the field draws.
class FieldInformation final : public NOPRHistogramChart {
public:
    FieldInformation(const FacSTDictionary* dictionary, const NOPROutputStats* stats,
                     bool categorical);

    /// Settles the title too.
    const NumericTable* HistogramTable() override;
    void EditTemplate(std::string& text) override;
    void EditDocument(XDocument& document) override;

private:
    bool fCategorical;
};
