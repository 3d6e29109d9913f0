#include "refhost/run/FinishedSplit.h"

#include <cerrno>
#include <tuple>
#include <utility>

#include "refhost/document/WriteFailure.h"
#include "refhost/run/PartMemory.h"

namespace refhost {

namespace {

/// All that is said of a split beside its bytes.
template <class Split>
auto TextsOf(Split& split)
{
    return std::array{&split.fPart.fOutline, &split.fEnd.fEnd.fFailure, &split.fEnd.fEnd.fNotice,
                      &split.fEnd.fLine, &split.fThrown};
}

/// Without the bytes that went through, and without empty pieces at its beginning.
std::span<iovec> Behind(std::span<iovec> pieces, std::size_t count)
{
    while (!pieces.empty() && count >= pieces.front().iov_len) {
        count -= pieces.front().iov_len;
        pieces = pieces.subspan(1);
    }
    if (pieces.empty()) return pieces;
    pieces.front().iov_base = static_cast<char*>(pieces.front().iov_base) + count;
    pieces.front().iov_len -= count;
    return pieces;
}

iovec PieceOf(std::string& text) { return {text.data(), text.size()}; }

/// A piece that is written; the system has one type for both directions.
iovec PieceOf(std::string_view text) { return {const_cast<char*>(text.data()), text.size()}; }

}  // namespace

/// Takes no memory: a split that was done is handed over also where there is none left.
bool SendFinishedSplit(int pipe, PartMemory& memory, const FinishedSplit& split)
{
    const std::string_view bytes = split.fPart.fBytes;
    FinishedSplitReader::Head head{};
    head.fSplit = split.fSplit;
    head.fOutcome = split.fEnd.fOutcome;
    head.fHasCharts = split.fPart.fHasCharts;
    head.fIsInMemory = memory.Put(bytes);
    head.fSize = bytes.size();
    std::array<iovec, 1 + std::tuple_size_v<FinishedSplitReader::Pieces>> pieces{};
    pieces[0] = {&head, sizeof head};
    if (!head.fIsInMemory) pieces[1] = PieceOf(bytes);
    const auto texts = TextsOf(split);
    for (std::size_t text = 0; text < texts.size(); ++text) {
        head.fSizes[text] = texts[text]->size();
        pieces[2 + text] = PieceOf(std::string_view(*texts[text]));
    }
    std::span<iovec> left = pieces;
    while (!left.empty()) {
        const ssize_t written = ::writev(pipe, left.data(), static_cast<int>(left.size()));
        if (written < 0 && errno != EINTR) return false;
        if (written >= 0) left = Behind(left, static_cast<std::size_t>(written));
    }
    return true;
}

FinishedSplitReader::FinishedSplitReader(PartMemory& memory) : fMemory(memory) { BeginHead(); }

void FinishedSplitReader::BeginHead()
{
    fHasHead = false;
    fPieces[0] = {&fHead, sizeof fHead};
    fMissing = std::span(fPieces).first(1);
}

bool FinishedSplitReader::Read(int pipe)
{
    while (!IsComplete()) {
        const ssize_t count = ::readv(pipe, fMissing.data(), static_cast<int>(fMissing.size()));
        if (count == 0) return false;
        if (count < 0 && errno == EINTR) continue;
        if (count < 0 && errno == EAGAIN) return true;
        if (count < 0) throw WriteFailure("what a process of the run tells can't be read");
        fMissing = Behind(fMissing, static_cast<std::size_t>(count));
        if (!fHasHead && fMissing.empty()) BeginTexts();
    }
    return true;
}

void FinishedSplitReader::BeginTexts()
{
    fHasHead = true;
    fSplit = {};
    fSplit.fSplit = fHead.fSplit;
    fSplit.fEnd.fOutcome = fHead.fOutcome;
    fSplit.fPart.fHasCharts = fHead.fHasCharts;
    fHoldsMemory = fHead.fIsInMemory;
    fPieces[0] = {};
    if (fHead.fIsInMemory) {
        fSplit.fPart.fBytes = fMemory.First(fHead.fSize);
    } else {
        fBytes.resize(fHead.fSize);
        fSplit.fPart.fBytes = fBytes;
        fPieces[0] = PieceOf(fBytes);
    }
    const auto texts = TextsOf(fSplit);
    for (std::size_t text = 0; text < texts.size(); ++text) {
        texts[text]->resize(fHead.fSizes[text]);
        fPieces[1 + text] = PieceOf(*texts[text]);
    }
    fMissing = Behind(fPieces, 0);
}

FinishedSplit FinishedSplitReader::Take()
{
    BeginHead();
    return std::exchange(fSplit, {});
}

void FinishedSplitReader::Release()
{
    if (std::exchange(fHoldsMemory, false)) fMemory.Release();
    fBytes = {};
}

}  // namespace refhost
