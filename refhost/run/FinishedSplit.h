#pragma once

#include <sys/uio.h>

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string>

#include "refhost/run/SplitWork.h"

#include "refhost/writers/PartedSink.h"

namespace refhost {

class PartMemory;

/// What a worker has made of a split.
struct FinishedSplit {
    std::uint64_t fSplit = 0;
    SplitEnd fEnd;
    SplitPart fPart;
    std::string fThrown;  ///< why the run can't go on; empty where it can
};

/// Writes one to a pipe, whole but for its bytes where the memory has room for them. False where
/// nobody reads it any more.
bool SendFinishedSplit(int pipe, PartMemory& memory, const FinishedSplit& split);

/// Reads one after the other from a pipe, as they come in pieces, and from the memory.
class FinishedSplitReader {
public:
    explicit FinishedSplitReader(PartMemory& memory);
    FinishedSplitReader(const FinishedSplitReader&) = delete;
    FinishedSplitReader& operator=(const FinishedSplitReader&) = delete;

    /// Takes what the pipe, which doesn't block, has of the current one. False at the pipe's end.
    bool Read(int pipe);

    /// The current one is all there.
    bool IsComplete() const { return fHasHead && fMissing.empty(); }

    /// Hands the current one over and begins the next. Its bytes are valid until `Release`, which
    /// has to come before the next is read.
    FinishedSplit Take();
    void Release();

private:
    /// What can't be told by texts; both ends are the same program.
    struct Head {
        std::uint64_t fSplit;
        RunOutcome fOutcome;
        bool fHasCharts;
        bool fIsInMemory;
        std::uint64_t fSize;                  // of the bytes
        std::array<std::uint64_t, 5> fSizes;  // of the texts
    };
    friend bool SendFinishedSplit(int pipe, PartMemory& memory, const FinishedSplit& split);

    void BeginHead();
    void BeginTexts();

    /// Of a head or of what follows it: the bytes, and each text.
    using Pieces = std::array<iovec, 6>;

    PartMemory& fMemory;
    bool fHoldsMemory = false;
    std::string fBytes;  // that came through the pipe
    Head fHead{};
    bool fHasHead = false;
    FinishedSplit fSplit;
    Pieces fPieces{};
    std::span<iovec> fMissing;  // of the pieces: where the bytes go that have not come yet
};

}  // namespace refhost
