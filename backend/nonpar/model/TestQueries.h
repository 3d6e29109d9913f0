#pragma once

#include <string>
#include <vector>

#include "model/NOPRTestRecords.h"

/// What tables and views alike ask about a test.

/// Whether a message speaks of one pair or subset of a post-hoc table, not of the test as a whole.
bool IsPairMessage(int code);

/// The first error of the test as a whole; null where there is none. Such a test has no result.
const NOPROutputStats::WarningMessage* FindBlockingMessage(
    const NOPROutputStats::BaseHypothesisTest& test);

/// Number of messages of type error, whatever they speak of.
int CountErrors(const std::vector<NOPROutputStats::WarningMessage>& messages);

/// Replaces `fields` by the field indices of a test, by its sample kind and kind.
void TestFields(const NOPROutputStats::BaseHypothesisTest& test, std::vector<int>& fields);

/// The field indices that a condition names, the test field first, by the family mark in its key.
std::vector<double> ConditionFields(const NOPROutputStats::ConditionData& condition);

/// The title of a test's heading and view: as `TestTitle`, but the one-sample Kolmogorov-Smirnov
/// test names its distribution. A key of the text tables.
std::string TestHeadingTitle(const NOPROutputStats::BaseHypothesisTest& test);
