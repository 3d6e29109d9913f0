#pragma once

#include <string>
#include <vector>

#include "model/NOPROutputStats.h"

class SDOMXMLWrapper;
struct ReaderState;
struct XMLAttribute;

/// The steps of a read. Each takes its element; false ends the read of the document. Where the
/// document breaks what its writer guarantees, such as an index that is not the position, the read
/// fails too.

bool ReadDataDictionary(const SDOMXMLWrapper& root, ReaderState& state);
bool ReadFieldInfos(const SDOMXMLWrapper& root, ReaderState& state);

/// Marks the fields that the test took as continuous, for the whole split.
bool ReadCondition(const SDOMXMLWrapper& element, ReaderState& state,
                   NOPROutputStats::ConditionData& condition);

bool ReadMessages(const SDOMXMLWrapper& element,
                  std::vector<NOPROutputStats::WarningMessage>& messages);

/// Appends to the blocks that are there.
bool ReadStatistics(const SDOMXMLWrapper& element, ReaderState& state,
                    std::vector<NOPROutputStats::StatisticResult>& statistics);

/// Appends the value texts of the element's attributes.
bool ReadValsNotInCategories(const SDOMXMLWrapper& element, std::vector<std::string>& values);

/// Reads a table that only the test's kind knows into the test's record.
bool ReadTestTable(const SDOMXMLWrapper& element, NOPROutputStats::BaseHypothesisTest& test);

/// What is left to do when all tables of a test were read.
void FinishTest(const ReaderState& state, NOPROutputStats::BaseHypothesisTest& test);

/// Appends the parameter "%N" that an attribute holds; false where it is none.
bool AppendParameter(const XMLAttribute& attribute,
                     std::vector<NOPROutputStats::ConditionParameter>& parameters);

/// Tells the user of a name that the reader doesn't know; the read goes on.
void ReportNotParsed(const std::string& name);
