#pragma once

#include <span>
#include <string>

#include "model/RecordOf.h"

class FacSTDictionary;

/// How the dispatchers of the families pick a view: a table of kinds, and what each is drawn by.

/// What a view is made from and rendered with. Borrows all of it.
struct DrawRequest {
    const FacSTDictionary* fDictionary;
    const NOPROutputStats* fStats;
    const NOPROutputStats::BaseHypothesisTest* fTest;
    const std::string& fSplitText;
    bool fAppendSplit;
    unsigned fFieldIndex = 0;  ///< of the test's first field, for a view that selects one
};

struct ViewRow {
    TestKind fKind;
    void (*fDraw)(const DrawRequest& request);
};

/// Draws the view of a record; the view gets null where the test is of another type.
template <class View, class Record>
void DrawRecord(const DrawRequest& request)
{
    View view(request.fDictionary, request.fStats, RecordOf<Record>(request.fTest));
    view.Render(request.fSplitText, request.fAppendSplit);
}

/// Draws a test by the row of its kind. Nothing is drawn without a test, for one with a message of
/// type error, and for a kind without a row; warnings and the test's outcome play no part.
void DrawFrom(std::span<const ViewRow> rows, const DrawRequest& request);
