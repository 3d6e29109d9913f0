#pragma once

#include "model/NOPROutputStats.h"

/// The kinds of one family's tests that have views, both ends included.
struct KindRange {
    TestKind fFirst;
    TestKind fLast;
};

/// Whether a dispatcher draws a test: there is a record, it has no message of type error, and its
/// kind is of the family. Warnings and the outcome of the test play no part.
bool MayDraw(const NOPROutputStats::BaseHypothesisTest* test, KindRange family);
