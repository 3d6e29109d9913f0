#pragma once

#include <memory>
#include <string>
#include <vector>

#include "charts/ChartWords.h"
#include "model/NOPRTestRecords.h"

class VarDataProcessor;
class XDocument;
class XGraph;

/// One box for each group of a test, from the five numbers and outliers of the document. The slot
/// order of the virtual operations is fixed.
class Boxplot {
public:
    Boxplot(const FacSTDictionary* dictionary, const NOPROutputStats* stats);

    /// True once the chart was sent.
    virtual bool Render(const std::string& splitText, bool appendSplit);

    /// Number of rows written. Settles the test field and the group field.
    virtual int FillChartData(VarDataProcessor& processor);

    /// Entry 0 is the group's code; entry 1, where a view gives one, the number of its popup.
    virtual std::vector<double> CategoryCodes(const NOPROutputStats::BoxGroup& group);
    virtual void EditTemplate(std::string& text);
    virtual void EditDocument(XDocument& document);

protected:
    ~Boxplot();

    /// What a derived view shows: the title, a key of the dictionary, and the groups and condition
    /// of its record. Without a record there is nothing to draw.
    template <class Record>
    void SetTest(const std::string& titleKey, const Record* test)
    {
        SetTitle(LookUpText(GetDictionary(), titleKey));
        if (!test) return;
        SetBoxPlot(&test->fBoxPlot);
        SetCondition(&test->fCondition);
    }

    void SetBoxPlot(const NOPROutputStats::BoxPlotData* boxPlot);
    void SetCondition(const NOPROutputStats::ConditionData* condition);
    void SetTitle(const ChartString& title);

    const FacSTDictionary* GetDictionary() const;
    const NOPROutputStats::BoxPlotData* GetBoxPlot() const;
    const FieldInfoData* GetTestField() const;

private:
    /// Finds the test field and the group field, where the condition names both.
    void SettleFields();
    void NameAxes(std::string& text) const;
    void BindVariables(XGraph& graph) const;

    struct State;
    std::unique_ptr<State> fState;
};
