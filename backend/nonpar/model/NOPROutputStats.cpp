#include "model/NOPROutputStats.h"

#include <algorithm>

#include "model/NOPRTestRecords.h"
#include "model/Positions.h"

#include "host/framework/CFMetaData.h"

namespace {

using Stats = NOPROutputStats;
using TestRecord = std::unique_ptr<Stats::BaseHypothesisTest>;

template <class Record>
TestRecord Make()
{
    return std::make_unique<Record>();
}

struct RecordMaker {
    TestKind fKind;
    TestRecord (*fMake)();
    bool fIsInterval = false;  // kept in a list of its own
};

// clang-format off
constexpr RecordMaker kRecordMakers[] = {
    { 1, &Make<Stats::HTOChiSquare>},
    { 2, &Make<Stats::HTOBinomial>},
    { 3, &Make<Stats::HTORuns>},
    { 4, &Make<Stats::HTOWilcoxonSignedRanks>},
    { 5, &Make<Stats::HTOEstimateConfidenceInterval>, true},
    { 6, &Make<Stats::HTOKolmogorovSmirnov>},
    {11, &Make<Stats::HTRSign>},
    {12, &Make<Stats::HTRWilcoxonSignedRanks>},
    {13, &Make<Stats::HTRCochransQ>},
    {14, &Make<Stats::HTRMcNemar>},
    {15, &Make<Stats::HTRFriedmansTwoWayByRanks>},
    {16, &Make<Stats::HTRKendallsCoefficient>},
    {17, &Make<Stats::HTRMarginalHomogeneity>},
    {18, &Make<Stats::HTRHodgesLehmannEstimatePairs>, true},
    {19, &Make<Stats::HTIHodgesLehmannEstimateGroups>, true},
    {20, &Make<Stats::HTIMoses>},
    {21, &Make<Stats::HTIMannWhitneyU>},
    {22, &Make<Stats::HTIWaldWolfowitzRuns>},
    {23, &Make<Stats::HTIKolmogorovSmirnov>},
    {24, &Make<Stats::HTIKruskalWallis>},
    {25, &Make<Stats::HTIJonckheereTerpstra>},
    {26, &Make<Stats::HTIMedian>},
};
// clang-format on

template <class Record>
Record* At(const std::vector<std::unique_ptr<Record>>& records, unsigned index)
{
    return index < records.size() ? records[index].get() : nullptr;
}

}  // namespace

NOPROutputStats::NOPROutputStats() = default;
NOPROutputStats::~NOPROutputStats() = default;

CFMetaData* NOPROutputStats::CreateMetaData()
{
    fMetaData = std::make_unique<CFMetaData>(nullptr);
    return fMetaData.get();
}

const NOPROutputStats::BaseHypothesisTest* NOPROutputStats::GetTest(unsigned index) const
{
    return At(fTests, index);
}

const NOPROutputStats::BaseHypothesisTest* NOPROutputStats::GetIntervalTest(unsigned index) const
{
    return At(fIntervalTests, index);
}

FieldInfoData* NOPROutputStats::GetFieldInfo(unsigned index) { return At(fFieldInfos, index); }

const FieldInfoData* NOPROutputStats::GetFieldInfo(unsigned index) const
{
    return At(fFieldInfos, index);
}

NOPROutputStats::BaseHypothesisTest* NOPROutputStats::CreateTest(SampleKind sampleKind,
                                                                 TestKind testKind,
                                                                 Decision decision)
{
    const auto maker = std::ranges::find(kRecordMakers, testKind, &RecordMaker::fKind);
    if (maker == std::end(kRecordMakers)) return nullptr;

    auto& list = maker->fIsInterval ? fIntervalTests : fTests;
    auto& test = list.emplace_back(maker->fMake());
    test->fSampleKind = sampleKind;
    test->fTestKind = testKind;
    test->fDecision = decision;
    return test.get();
}

FieldInfoData* NOPROutputStats::AddFieldInfo()
{
    return fFieldInfos.emplace_back(std::make_unique<FieldInfoData>()).get();
}

const QORT_Variable* NOPROutputStats::FieldVariable(int index) const
{
    const FieldInfoData* field = GetFieldInfo(static_cast<unsigned>(index));
    return field ? field->fVariable : nullptr;
}

const CFStatVariableValue* NOPROutputStats::FieldValueAt(int index, int valueIndex) const
{
    const FieldInfoData* field = GetFieldInfo(static_cast<unsigned>(index));
    const FieldValue* value = field ? ElementAt(field->fValues, valueIndex) : nullptr;
    return value ? &value->fValue : nullptr;
}
