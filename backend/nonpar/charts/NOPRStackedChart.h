#pragma once

#include <memory>
#include <string>
#include <vector>

#include "model/NOPRTestRecords.h"

class FacSTDictionary;
class VarDataProcessor;
class XDocument;

/// A stacked bar for each row of a table, a segment for each column. Derived views supply the table
/// and the texts. The slot order of the virtual operations is fixed.
class NOPRStackedChart {
public:
    NOPRStackedChart(const FacSTDictionary* dictionary, const NOPROutputStats* stats);

    /// Key of the title in the dictionary.
    void SetTitleKey(const std::string& key);

    /// Text of a bar.
    virtual std::string SeriesLabel(const std::string& rowName) = 0;

    /// Text of a segment; `escaped` when it goes into XML.
    virtual std::string CategoryLabel(const std::string& rowName, const std::string& columnName,
                                      bool escaped) = 0;
    virtual const std::vector<NOPROutputStats::ConditionParameter>& ParameterTable() = 0;

    /// Null when there is no record.
    virtual const NumericTable* ChartTable() = 0;
    virtual void EditTemplate(std::string& text);
    virtual void EditDocument(XDocument& document);

    /// True once the chart was sent.
    bool Render(const std::string& splitText, bool appendSplit);

protected:
    ~NOPRStackedChart();

    const FacSTDictionary* GetDictionary() const;
    const NOPROutputStats* GetStats() const;

private:
    /// Number of rows written.
    int FillChartData(const NumericTable& table, VarDataProcessor& processor);

    /// Writes the segments of a bar from `row` on; the row behind them. All segments show the same
    /// tooltip, which lists the whole bar.
    int FillBar(const NumericTable& table, std::size_t bar, int row, VarDataProcessor& processor);

    struct State;
    std::unique_ptr<State> fState;
};
