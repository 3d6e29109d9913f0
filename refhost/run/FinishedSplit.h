#pragma once

#include <sys/uio.h>

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "refhost/run/SplitWork.h"

#include "refhost/writers/PartedSink.h"

namespace refhost {

/// What a worker has made of a split.
struct FinishedSplit {
    std::uint64_t fSplit = 0;
    SplitEnd fEnd;
    SplitPart fPart;
    std::string fThrown;  ///< why the run can't go on; empty where it can
};

/// Writes one to a pipe, whole. False where nobody reads it any more.
bool SendFinishedSplit(int pipe, FinishedSplit split);

/// Reads one after the other from a pipe, as they come in pieces.
class FinishedSplitReader {
public:
    FinishedSplitReader();
    FinishedSplitReader(const FinishedSplitReader&) = delete;
    FinishedSplitReader& operator=(const FinishedSplitReader&) = delete;

    /// Takes what the pipe, which doesn't block, has of the current one. False at the pipe's end.
    bool Read(int pipe);

    /// The current one is all there.
    bool IsComplete() const { return fHasHead && fMissing.empty(); }

    /// Hands the current one over and begins the next.
    FinishedSplit Take();

private:
    /// What can't be told by texts; both ends are the same program.
    struct Head {
        std::uint64_t fSplit;
        RunOutcome fOutcome;
        bool fHasCharts;
        std::array<std::uint64_t, 6> fSizes;  // of the texts
    };
    friend bool SendFinishedSplit(int pipe, FinishedSplit split);

    void BeginTexts();

    Head fHead{};
    bool fHasHead = false;
    FinishedSplit fSplit;
    std::vector<iovec> fMissing;  // where the bytes go that have not come yet
};

}  // namespace refhost
