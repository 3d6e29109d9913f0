#pragma once

#include <optional>
#include <span>
#include <utility>

#include "model/NOPRTestRecords.h"

/// Which footnotes explain a significance; the summary and the detail table judge alike.

/// A footnote, and the number that the cell shows from it on in place of the document's.
struct SignificanceNote {
    const char* fKey;
    std::optional<double> fInstead = std::nullopt;
};

/// The footnotes of a one-sample Kolmogorov-Smirnov test against a normal distribution whose
/// parameters came from the sample, in order; none for any other test.
std::span<const SignificanceNote> EstimatedNormalNotes(
    const NOPROutputStats::BaseHypothesisTest& test);

/// The least and the greatest number of runs that ties allow; none where one of them is missing or
/// the test is no Wald-Wolfowitz test.
std::optional<std::pair<double, double>> RunsRange(const NOPROutputStats::BaseHypothesisTest& test);
