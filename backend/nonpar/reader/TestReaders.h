#pragma once

#include "model/NOPRTestRecords.h"

class SDOMXMLWrapper;

/// Each reads one table that tests of some kinds have, into a record or a part of it. Names of
/// attributes that a reader doesn't know are reported and cost the test only that value. False ends
/// the read of the document.

bool ReadTwoClassComparison(const SDOMXMLWrapper& element, NumericTable& table);
bool ReadRuns(const SDOMXMLWrapper& element, NOPROutputStats::HTORuns& test);
bool ReadOneSampleMedian(const SDOMXMLWrapper& element,
                         NOPROutputStats::HTOWilcoxonSignedRanks& test);

/// Appends the interval of the table's method.
bool ReadInterval(const SDOMXMLWrapper& element,
                  NOPROutputStats::HTOEstimateConfidenceInterval& test);

bool ReadDifferenceCounts(const SDOMXMLWrapper& element, NOPROutputStats::DifferenceCounts& counts);
bool ReadCategoryComparison(const SDOMXMLWrapper& element,
                            NOPROutputStats::CategoryComparison& comparison);
bool ReadRankGroup(const SDOMXMLWrapper& element, NOPROutputStats::RankGroup& group);
bool ReadSampleGroup(const SDOMXMLWrapper& element, NOPROutputStats::SampleGroup& group);
bool ReadPostHoc(const SDOMXMLWrapper& element, NOPROutputStats::PairwiseData& pairwise);

/// A group stands at its place among all nested tables, groups or not.
bool ReadBoxPlot(const SDOMXMLWrapper& element, NOPROutputStats::BoxPlotData& boxPlot);
