#pragma once

#include <string>

class NOPROutputStats;
class QORT_DataSource;

/// What one read of one document knows. All pointers are borrowed.
struct ReaderState {
    bool fParsed = false;                          ///< the result of the last read
    const QORT_DataSource* fDataSource = nullptr;  ///< may be null
    NOPROutputStats* fStats = nullptr;
    const std::string* fDocument = nullptr;

    /// What a test's common tables say for the one kind that keeps it; see `FinishTest`. A table
    /// that is missing leaves the flag of the test before.
    bool fIsUseSample = false;
    bool fHasLowerBoundSig = false;
};
