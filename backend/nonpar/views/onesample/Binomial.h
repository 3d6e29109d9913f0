#pragma once

#include "charts/NOPRStackedChart.h"

/// Observed against hypothesized split of a field into two categories, as two stacked bars.
class Binomial final : public NOPRStackedChart {
public:
    /// The record is borrowed and may be null; there is no chart then.
    Binomial(const FacSTDictionary* dictionary, const NOPROutputStats* stats,
             const NOPROutputStats::HTOBinomial* test);

    std::string SeriesLabel(const std::string& rowName) override;
    std::string CategoryLabel(const std::string& rowName, const std::string& columnName,
                              bool escaped) override;
    const std::vector<NOPROutputStats::ConditionParameter>& ParameterTable() override;
    const NumericTable* ChartTable() override;
    void EditTemplate(std::string& text) override;

private:
    /// The tested field; null where the record names none.
    const FieldInfoData* TestField();

    /// The first value of a parameter, 0 where there is none.
    double Parameter(std::size_t position);

    std::string ValueLabel(const std::string& columnName);
    std::string CutPointLabel(const std::string& columnName, bool escaped);

    const NOPROutputStats::HTOBinomial* fTest;
};
