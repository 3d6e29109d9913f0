#pragma once

#include <memory>
#include <string>

class ChartString;
class FacSTDictionary;
class NOPROutputStats;
class QORT_Variable;
class VarDataProcessor;
class XDocument;
struct FieldInfoData;
struct NumericTable;

/// The distribution of one field, drawn from the frequency table of the document. Views that lay
/// something over it replace `HistogramTable`, `EditTemplate` and `EditDocument`. The slot order of
/// the virtual operations is fixed, and there is no virtual destructor: views live on the stack.
class NOPRHistogramChart {
public:
    NOPRHistogramChart(const FacSTDictionary* dictionary, const NOPROutputStats* stats);

    /// Out of range: the field stays as it was, and without a field there is no chart.
    void SelectField(unsigned index);
    void SetTitle(const ChartString& title);

    /// True once the chart was sent.
    virtual bool Render(const std::string& splitText, bool appendSplit);

    /// The table to draw; null for none.
    virtual const NumericTable* HistogramTable();

    /// Number of rows written.
    virtual int FillChartData(VarDataProcessor& processor);
    virtual void EditTemplate(std::string& text);
    virtual void EditDocument(XDocument& document);

protected:
    ~NOPRHistogramChart();

    const FacSTDictionary* GetDictionary() const;
    const FieldInfoData* GetField() const;

    /// Null when there is no field or the host knows no variable of it.
    const QORT_Variable* GetVariable() const;

    // Steps of the views of tests.

    /// The field along the x axis, frequencies along the y axis.
    void NameAxes(std::string& text) const;

    /// Binds the axis of values to the field's variable, where there is one.
    void BindValues(XDocument& document) const;

private:
    struct State;
    std::unique_ptr<State> fState;
};
