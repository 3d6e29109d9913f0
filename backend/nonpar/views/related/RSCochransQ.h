#pragma once

#include "charts/NOPRStackedChart.h"

/// Cochran's Q test: a stacked bar for each field, a segment for each category.
class RSCochransQ final : public NOPRStackedChart {
public:
    /// Without a record there is nothing to draw.
    RSCochransQ(const FacSTDictionary* dictionary, const NOPROutputStats* stats,
                const NOPROutputStats::HTRCochransQ* test);

    /// The label of the field whose index the row name is; the row name where it names none.
    std::string SeriesLabel(const std::string& rowName) override;

    /// The label of the category at the position that the column name is, in the row's field; or
    /// else its value, or the column name. The same with `escaped`.
    std::string CategoryLabel(const std::string& rowName, const std::string& columnName,
                              bool escaped) override;
    const std::vector<NOPROutputStats::ConditionParameter>& ParameterTable() override;
    const NumericTable* ChartTable() override;

    /// The legend has no title: the categories belong to several fields.
    void EditTemplate(std::string& text) override;

private:
    const NOPROutputStats::HTRCochransQ* fTest;
};
