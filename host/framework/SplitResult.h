#pragma once

#include <string>
#include <vector>

class OBS;

/// What the host gives for one split of the data. The host owns it and the values in it, for the
/// length of the call.
struct SplitResult {
    /// Indices in the data source; empty where the data is not split.
    std::vector<int> fSplitVariables;

    /// Parallel to `fSplitVariables`. Numbers of date formats are in the result document's unit.
    std::vector<const OBS*> fSplitValues;

    /// True: one heading above all output of the split tells it. False: extra dimensions of every
    /// table, and a text in every view, tell it.
    bool fSplitAsHeading = true;

    /// The text of the result document.
    std::string fDocument;
};
