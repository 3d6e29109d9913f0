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
    bool fIsInterval;  // kept in a list of its own
    TestRecord (*fMake)();
};

// clang-format off
constexpr RecordMaker kRecordMakers[] = {
    { 1, false, &Make<Stats::HTOChiSquare>},
    { 2, false, &Make<Stats::HTOBinomial>},
    { 3, false, &Make<Stats::HTORuns>},
    { 4, false, &Make<Stats::HTOWilcoxonSignedRanks>},
    { 5, true,  &Make<Stats::HTOEstimateConfidenceInterval>},
    { 6, false, &Make<Stats::HTOKolmogorovSmirnov>},
    {11, false, &Make<Stats::HTRSign>},
    {12, false, &Make<Stats::HTRWilcoxonSignedRanks>},
    {13, false, &Make<Stats::HTRCochransQ>},
    {14, false, &Make<Stats::HTRMcNemar>},
    {15, false, &Make<Stats::HTRFriedmansTwoWayByRanks>},
    {16, false, &Make<Stats::HTRKendallsCoefficient>},
    {17, false, &Make<Stats::HTRMarginalHomogeneity>},
    {18, true,  &Make<Stats::HTRHodgesLehmannEstimatePairs>},
    {19, true,  &Make<Stats::HTIHodgesLehmannEstimateGroups>},
    {20, false, &Make<Stats::HTIMoses>},
    {21, false, &Make<Stats::HTIMannWhitneyU>},
    {22, false, &Make<Stats::HTIWaldWolfowitzRuns>},
    {23, false, &Make<Stats::HTIKolmogorovSmirnov>},
    {24, false, &Make<Stats::HTIKruskalWallis>},
    {25, false, &Make<Stats::HTIJonckheereTerpstra>},
    {26, false, &Make<Stats::HTIMedian>},
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
