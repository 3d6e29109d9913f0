#include "reader/TestReaders.h"

#include "reader/AttributeBinding.h"
#include "reader/NOPRXMLGeneral.h"
#include "reader/Numbers.h"
#include "reader/ReaderSteps.h"

#include "model/Positions.h"

namespace {

using Stats = NOPROutputStats;

// clang-format off
constexpr AttributeBinding<Stats::HTOWilcoxonSignedRanks> kMedianAttributes[] = {
    {"HypotheticalMedian", &Stats::HTOWilcoxonSignedRanks::fHypotheticalMedian},
    {"ObservedMedian",     &Stats::HTOWilcoxonSignedRanks::fObservedMedian},
};

constexpr AttributeBinding<Stats::IntervalEstimate> kIntervalAttributes[] = {
    {"computeECIMethod", &Stats::IntervalEstimate::fMethod},
    {"Estimate",         &Stats::IntervalEstimate::fEstimate},
};

constexpr AttributeBinding<Stats::IntervalEstimate> kBoundAttributes[] = {
    {"Lower", &Stats::IntervalEstimate::fLower},
    {"Upper", &Stats::IntervalEstimate::fUpper},
};

constexpr AttributeBinding<Stats::DifferenceCounts> kDifferenceAttributes[] = {
    {"NegativeDifferences", &Stats::DifferenceCounts::fNegativeDifferences},
    {"Ties",                &Stats::DifferenceCounts::fTies},
    {"PositiveDifferences", &Stats::DifferenceCounts::fPositiveDifferences},
};

constexpr AttributeBinding<Stats::CategoryComparison> kComparisonAttributes[] = {
    {"RowNames",          &Stats::CategoryComparison::fRowField},
    {"RowSuccessList",    &Stats::CategoryComparison::fRowSuccessList},
    {"RowFailList",       &Stats::CategoryComparison::fRowFailList},
    {"ColumnNames",       &Stats::CategoryComparison::fColumnField},
    {"ColumnSuccessList", &Stats::CategoryComparison::fColumnSuccessList},
    {"ColumnFailList",    &Stats::CategoryComparison::fColumnFailList},
};

constexpr AttributeBinding<Stats::RankGroup> kRankGroupAttributes[] = {
    {"GroupIndex", &Stats::RankGroup::fGroupIndex},
    {"MeanOfRank", &Stats::RankGroup::fMeanOfRank},
};

constexpr AttributeBinding<Stats::SampleGroup> kSampleGroupAttributes[] = {
    {"GroupIndex", &Stats::SampleGroup::fGroupIndex},
    {"N",          &Stats::SampleGroup::fN},
    {"MeanOfRank", &Stats::SampleGroup::fMeanOfRank},
};

constexpr AttributeBinding<Stats::BoxPlotData> kBoxPlotAttributes[] = {
    {"GroupFieldIndex", &Stats::BoxPlotData::fGroupFieldIndex},
    {"GroupCount",      &Stats::BoxPlotData::fGroupCount},
    {"GrandMedian",     &Stats::BoxPlotData::fGrandMedian},
};

constexpr AttributeBinding<Stats::BoxGroup> kBoxGroupAttributes[] = {
    {"GroupIndex", &Stats::BoxGroup::fGroupIndex},
    {"N",          &Stats::BoxGroup::fN},
    {"MeanOfRank", &Stats::BoxGroup::fMeanOfRank},
    {"GTMedian",   &Stats::BoxGroup::fGTMedian},
    {"STMedian",   &Stats::BoxGroup::fSTMedian},
};

/// Simple tables by name, and where their numbers go.
template <class Record>
struct TableBinding {
    std::string_view fName;
    NumericTable Record::* fTable;
};

constexpr TableBinding<Stats::BoxGroup> kBoxGroupTables[] = {
    {"Box",      &Stats::BoxGroup::fBox},
    {"Outliers", &Stats::BoxGroup::fOutliers},
};

/// Info tables tell the kind of comparison; the content leaves it as it is.
struct PostHocTable {
    std::string_view fName;
    ComparisonKind fComparison;
    NumericTable Stats::PairwiseData::* fTable;
};

constexpr PostHocTable kPostHocTables[] = {
    {"PairwiseInfo", comparison::kPairwise, &Stats::PairwiseData::fInfo},
    {"StepwiseInfo", comparison::kStepwise, &Stats::PairwiseData::fInfo},
    {"Content",      comparison::kNone,     &Stats::PairwiseData::fContent},
};
// clang-format on

constexpr std::string_view kContinuousDistribution = "ContinuousDistribution";
constexpr std::string_view kCategoryComparison = "CategoryFieldsComparison";
constexpr std::string_view kGroupMark = "Group";

/// The one simple table that the block has; false where there is none or more.
bool ReadOnlyTable(const StructuredTableData& data, NumericTable& table)
{
    return data.fSimpleTables.size() == 1 && ToNumericTable(data.fSimpleTables.front(), table);
}

/// Attributes and the one table of a block; `fTable` is where every such record keeps it.
template <class Record, std::size_t kCount>
bool ReadBlock(const StructuredTableData& data, const AttributeBinding<Record> (&rows)[kCount],
               Record& record)
{
    ReadAttributes(data, rows, record);
    return ReadOnlyTable(data, record.fTable);
}

template <class Record, std::size_t kCount>
bool ReadBlock(const SDOMXMLWrapper& element, const AttributeBinding<Record> (&rows)[kCount],
               Record& record)
{
    StructuredTableData data;
    return ReadStructuredTable(element, data) && ReadBlock(data, rows, record);
}

/// The same for a block that has to bear a name; another one is reported.
template <class Record, std::size_t kCount>
bool ReadNamedBlock(const SDOMXMLWrapper& element, std::string_view name,
                    const AttributeBinding<Record> (&rows)[kCount], Record& record)
{
    StructuredTableData data;
    if (!ReadStructuredTable(element, data)) return false;
    if (data.fName == name) return ReadBlock(data, rows, record);
    ReportNotParsed(data.fName);
    return true;
}

std::vector<std::string> TakeValues(StructuredTableData& data)
{
    std::vector<std::string> values;
    values.reserve(data.fAttributes.size());
    for (XMLAttribute& attribute : data.fAttributes)
        values.push_back(std::move(attribute.fValue));
    return values;
}

bool ReadPostHocTable(const SDOMXMLWrapper& element, Stats::PairwiseData& pairwise)
{
    SimpleTableData data;
    if (!ReadSimpleTable(element, data)) return false;
    for (const PostHocTable& row : kPostHocTables) {
        if (row.fName != data.fName) continue;
        if (row.fComparison != comparison::kNone) pairwise.fComparisonKind = row.fComparison;
        return ToNumericTable(data, pairwise.*row.fTable);
    }
    return true;
}

void ReadBoxGroup(const StructuredTableData& data, Stats::BoxGroup& group)
{
    ReadAttributes(data, kBoxGroupAttributes, group);
    for (const SimpleTableData& table : data.fSimpleTables)
        for (const auto& row : kBoxGroupTables)
            if (row.fName == table.fName) ToNumericTable(table, group.*row.fTable);
}

}  // namespace

bool ReadTwoClassComparison(const SDOMXMLWrapper& element, NumericTable& table)
{
    const SDOMXMLWrapper* child = FirstElement(element, "SimpleTable");
    SimpleTableData data;
    return child && ReadSimpleTable(*child, data) && ToNumericTable(data, table);
}

bool ReadRuns(const SDOMXMLWrapper& element, NOPROutputStats::HTORuns& test)
{
    return ForEachChild(element, "Attribute", false, [&test](const SDOMXMLWrapper& attribute) {
        std::string name;
        double value = MissingValue;
        ReadNumberAttribute(attribute, name, value);
        if (name == "Mean")
            test.fMean = value;
        else if (name == "StdDev")
            test.fStdDev = value;
        else if (name == "ObservedRunNumber")
            test.fObservedRunNumber = CutToInt(value);
        else
            ReportNotParsed(name);
        return true;
    });
}

bool ReadOneSampleMedian(const SDOMXMLWrapper& element,
                         NOPROutputStats::HTOWilcoxonSignedRanks& test)
{
    return ReadNamedBlock(element, kContinuousDistribution, kMedianAttributes, test);
}

bool ReadInterval(const SDOMXMLWrapper& element,
                  NOPROutputStats::HTOEstimateConfidenceInterval& test)
{
    StructuredTableData data;
    if (!ReadStructuredTable(element, data)) return false;

    Stats::IntervalEstimate interval;
    ReadAttributes(data, kIntervalAttributes, interval);
    if (data.fStrucTables.size() != 1) return false;
    for (const XMLAttribute& attribute : data.fStrucTables.front().fAttributes)
        if (!SetField<Stats::IntervalEstimate>(interval, kBoundAttributes, attribute))
            ReportNotParsed(attribute.fValue);  // here the value is told, not the name
    test.fIntervals.push_back(std::move(interval));
    return true;
}

bool ReadDifferenceCounts(const SDOMXMLWrapper& element, NOPROutputStats::DifferenceCounts& counts)
{
    return ReadNamedBlock(element, kContinuousDistribution, kDifferenceAttributes, counts);
}

bool ReadCategoryComparison(const SDOMXMLWrapper& element,
                            NOPROutputStats::CategoryComparison& comparison)
{
    StructuredTableData data;
    if (!ReadStructuredTable(element, data)) return false;
    if (data.fName != kCategoryComparison) {
        ReportNotParsed(data.fName);
        return true;
    }
    if (!ReadBlock(data, kComparisonAttributes, comparison)) return false;
    for (StructuredTableData& table : data.fStrucTables) {
        if (table.fName == "RowValsNotInTheCategoreis")
            comparison.fRowValsNotInCategories = TakeValues(table);
        else if (table.fName == "ColValsNotInTheCategoreis")
            comparison.fColumnValsNotInCategories = TakeValues(table);
    }
    return true;
}

bool ReadRankGroup(const SDOMXMLWrapper& element, NOPROutputStats::RankGroup& group)
{
    return ReadBlock(element, kRankGroupAttributes, group);
}

bool ReadSampleGroup(const SDOMXMLWrapper& element, NOPROutputStats::SampleGroup& group)
{
    return ReadBlock(element, kSampleGroupAttributes, group);
}

bool ReadPostHoc(const SDOMXMLWrapper& element, NOPROutputStats::PairwiseData& pairwise)
{
    const bool tablesRead = ForEachChild(
        element, "SimpleTable", false,
        [&pairwise](const SDOMXMLWrapper& table) { return ReadPostHocTable(table, pairwise); });

    const SDOMXMLWrapper* attribute = FirstElement(element, "Attribute");
    std::string name;
    double value = MissingValue;
    if (attribute && ReadNumberAttribute(*attribute, name, value) && name == "fieldIndex")
        pairwise.fFieldIndex = CutToInt(value);
    return tablesRead;
}

bool ReadBoxPlot(const SDOMXMLWrapper& element, NOPROutputStats::BoxPlotData& boxPlot)
{
    StructuredTableData data;
    if (!ReadStructuredTable(element, data)) return false;

    ReadAttributes(data, kBoxPlotAttributes, boxPlot);
    for (std::size_t place = 0; place < data.fStrucTables.size(); ++place) {
        const StructuredTableData& table = data.fStrucTables[place];
        if (table.fName.find(kGroupMark) == std::string::npos) continue;
        boxPlot.fGroups.resize(place + 1);
        ReadBoxGroup(table, boxPlot.fGroups[place]);
    }
    return true;
}
