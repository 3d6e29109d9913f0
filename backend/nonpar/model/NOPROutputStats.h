#pragma once

#include <memory>
#include <string>
#include <vector>

#include "model/NOPRTestIdentity.h"
#include "model/NameList.h"

#include "host/framework/CFStatVariableValue.h"

class BpHeading;
class BpPivotTable;
class BpProcedure;
class CFMetaData;
class QORT_DataSource;
class QORT_Variable;
struct SplitResult;

/// A table of numbers. Nothing ties the three lists together: who reads a table checks its shape.
struct NumericTable {
    std::string fName;
    NameList fRowNames;
    NameList fColumnNames;
    std::vector<std::vector<double>> fRows;
};

/// One value of a field.
struct FieldValue {
    int fValueIndex = 0;         ///< position among the field's values
    CFStatVariableValue fValue;  ///< completed against the host's variable
    std::string fLabel;          ///< empty where the dictionary gives none
};

/// What the system knows about one field.
struct FieldInfoData {
    bool fIsRead = false;
    bool fIsCategorical = false;
    int fFieldIndex = -1;
    const QORT_Variable* fVariable =
        nullptr;                      ///< the host's; null where it knows none of that name
    std::vector<FieldValue> fValues;  ///< empty where `fVariable` is null
    int fTotalN = 0;
    double fMin = MissingValue;
    double fMax = MissingValue;
    double fMean = MissingValue;
    double fStdDev = MissingValue;
    bool fOrdinalAsContinuous = false;  ///< set by any test of the split, for all of them
    NumericTable fDistribution;
};

/// Everything that one result document says about one split. Made empty, filled by one run of the
/// reader, then only read. It owns all records.
class NOPROutputStats {
public:
    using NumericTable = ::NumericTable;
    struct ConditionParameter;
    struct ConditionData;
    struct WarningMessage;
    struct NamedValue;
    struct StatisticResult;
    struct PairwiseData;
    struct RankGroup;
    struct SampleGroup;
    struct BoxGroup;
    struct BoxPlotData;
    struct DifferenceCounts;
    struct CategoryComparison;
    struct IntervalEstimate;

    struct BaseHypothesisTest;
    struct HTOChiSquare;
    struct HTOBinomial;
    struct HTORuns;
    struct HTOWilcoxonSignedRanks;
    struct HTOEstimateConfidenceInterval;
    struct HTOKolmogorovSmirnov;
    struct HTRSign;
    struct HTRWilcoxonSignedRanks;
    struct HTRCochransQ;
    struct HTRMcNemar;
    struct HTRFriedmansTwoWayByRanks;
    struct HTRKendallsCoefficient;
    struct HTRMarginalHomogeneity;
    struct HTRHodgesLehmannEstimatePairs;
    struct HTIHodgesLehmannEstimateGroups;
    struct HTIMoses;
    struct HTIMannWhitneyU;
    struct HTIWaldWolfowitzRuns;
    struct HTIKolmogorovSmirnov;
    struct HTIKruskalWallis;
    struct HTIJonckheereTerpstra;
    struct HTIMedian;

    using TestRecords = std::vector<std::unique_ptr<BaseHypothesisTest>>;
    using FieldRecords = std::vector<std::unique_ptr<FieldInfoData>>;

    NOPROutputStats();
    ~NOPROutputStats();
    NOPROutputStats(const NOPROutputStats&) = delete;
    NOPROutputStats& operator=(const NOPROutputStats&) = delete;

    void SetDataSource(const QORT_DataSource* dataSource) { fDataSource = dataSource; }
    void SetSplit(const SplitResult* split) { fSplit = split; }
    void SetTotalFreq(int value) { fTotalFreq = value; }
    void SetTotalCount(int value) { fTotalCount = value; }
    void SetDroppedCount(int value) { fDroppedCount = value; }
    void SetBadWeightCount(int value) { fBadWeightCount = value; }
    void SetDroppedFreq(int value) { fDroppedFreq = value; }
    void SetTestCount(int value) { fTestCount = value; }
    void SetSigLevel(double value) { fSigLevel = value; }
    void SetConfidenceLevel(double value) { fConfidenceLevel = value; }
    void SetListwise(bool value) { fListwise = value; }

    const QORT_DataSource* GetDataSource() const { return fDataSource; }
    const SplitResult* GetSplit() const { return fSplit; }
    int GetTotalFreq() const { return fTotalFreq; }
    int GetTotalCount() const { return fTotalCount; }
    int GetDroppedCount() const { return fDroppedCount; }
    int GetBadWeightCount() const { return fBadWeightCount; }
    int GetDroppedFreq() const { return fDroppedFreq; }
    int GetTestCount() const { return fTestCount; }
    double GetSigLevel() const { return fSigLevel; }
    double GetConfidenceLevel() const { return fConfidenceLevel; }
    bool GetListwise() const { return fListwise; }

    /// Makes an empty dictionary in place of the one that may be there.
    CFMetaData* CreateMetaData();

    /// Null until a dictionary was read.
    CFMetaData* GetMetaData() { return fMetaData.get(); }
    const CFMetaData* GetMetaData() const { return fMetaData.get(); }

    TestRecords& GetTests() { return fTests; }
    TestRecords& GetIntervalTests() { return fIntervalTests; }
    FieldRecords& GetFieldInfos() { return fFieldInfos; }
    const TestRecords& GetTests() const { return fTests; }
    const TestRecords& GetIntervalTests() const { return fIntervalTests; }
    const FieldRecords& GetFieldInfos() const { return fFieldInfos; }

    /// Null where the index names no record. A negative int becomes a huge index and names none.
    const BaseHypothesisTest* GetTest(unsigned index) const;
    const BaseHypothesisTest* GetIntervalTest(unsigned index) const;
    FieldInfoData* GetFieldInfo(unsigned index);
    const FieldInfoData* GetFieldInfo(unsigned index) const;

    /// Makes the record of a kind and appends it to its list; null, and nothing made, for a kind
    /// that has no record.
    BaseHypothesisTest* CreateTest(SampleKind sampleKind, TestKind testKind, Decision decision);

    FieldInfoData* AddFieldInfo();

    /// The heading that tells the split; none where the data is not split or dimensions tell it.
    std::unique_ptr<BpHeading> SplitHeading(BpProcedure* procedure) const;

    /// The dimensions that tell the split, before a table's own; none where a heading tells it.
    void SplitDimensions(BpPivotTable& table) const;

    /// The text that tells the split to a view; empty where the data is not split. `appendSplit`
    /// is whether a chart's description is to carry it.
    std::string SplitText(bool& appendSplit) const;

    /// The host's variable of a field; null where the index names no field or the host has none.
    const QORT_Variable* FieldVariable(int index) const;

    /// A value of a field; null where either index names nothing.
    const CFStatVariableValue* FieldValueAt(int index, int valueIndex) const;

private:
    const QORT_DataSource* fDataSource = nullptr;
    const SplitResult* fSplit = nullptr;
    std::unique_ptr<CFMetaData> fMetaData;
    int fTotalFreq = 0;
    int fTotalCount = 0;
    int fDroppedCount = 0;
    int fBadWeightCount = 0;
    int fDroppedFreq = 0;
    int fTestCount = 0;
    double fSigLevel = 0.0;
    double fConfidenceLevel = 0.0;
    bool fListwise = false;
    TestRecords fTests;
    TestRecords fIntervalTests;
    FieldRecords fFieldInfos;
};
