#include "refhost/run/FinishedSplit.h"

#include <cerrno>
#include <utility>

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

/// Leaves out the bytes that went through.
void Skip(std::vector<iovec>& pieces, std::size_t count)
{
    auto piece = pieces.begin();
    for (; piece != pieces.end() && count >= piece->iov_len; ++piece)
        count -= piece->iov_len;
    pieces.erase(pieces.begin(), piece);
    if (pieces.empty()) return;
    pieces.front().iov_base = static_cast<char*>(pieces.front().iov_base) + count;
    pieces.front().iov_len -= count;
}

iovec PieceOf(std::string& text) { return {text.data(), text.size()}; }

/// A piece that is written; the system has one type for both directions.
iovec PieceOf(std::string_view text) { return {const_cast<char*>(text.data()), text.size()}; }

void DropEmpty(std::vector<iovec>& pieces)
{
    std::erase_if(pieces, [](const iovec& piece) { return piece.iov_len == 0; });
}

}  // namespace

bool SendFinishedSplit(int pipe, PartMemory& memory, const FinishedSplit& split)
{
    const std::string_view bytes = split.fPart.fBytes;
    FinishedSplitReader::Head head{};
    head.fSplit = split.fSplit;
    head.fOutcome = split.fEnd.fOutcome;
    head.fHasCharts = split.fPart.fHasCharts;
    head.fIsInMemory = memory.Put(bytes);
    head.fSize = bytes.size();
    std::vector<iovec> pieces{{&head, sizeof head}};
    if (!head.fIsInMemory) pieces.push_back(PieceOf(bytes));
    const auto texts = TextsOf(split);
    for (std::size_t text = 0; text < texts.size(); ++text) {
        head.fSizes[text] = texts[text]->size();
        pieces.push_back(PieceOf(std::string_view(*texts[text])));
    }
    DropEmpty(pieces);
    while (!pieces.empty()) {
        const ssize_t written = ::writev(pipe, pieces.data(), static_cast<int>(pieces.size()));
        if (written < 0 && errno != EINTR) return false;
        if (written > 0) Skip(pieces, static_cast<std::size_t>(written));
    }
    return true;
}

FinishedSplitReader::FinishedSplitReader(PartMemory& memory)
    : fMemory(memory), fMissing{{&fHead, sizeof fHead}}
{
}

bool FinishedSplitReader::Read(int pipe)
{
    while (!IsComplete()) {
        const ssize_t count = ::readv(pipe, fMissing.data(), static_cast<int>(fMissing.size()));
        if (count == 0) return false;
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) return errno == EAGAIN;
        Skip(fMissing, static_cast<std::size_t>(count));
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
    if (fHead.fIsInMemory) {
        fSplit.fPart.fBytes = fMemory.Next(fHead.fSize);
    } else {
        fBytes.resize(fHead.fSize);
        fSplit.fPart.fBytes = fBytes;
        fMissing.push_back(PieceOf(fBytes));
    }
    const auto texts = TextsOf(fSplit);
    for (std::size_t text = 0; text < texts.size(); ++text) {
        texts[text]->resize(fHead.fSizes[text]);
        fMissing.push_back(PieceOf(*texts[text]));
    }
    DropEmpty(fMissing);
}

FinishedSplit FinishedSplitReader::Take()
{
    fHasHead = false;
    fMissing.push_back({&fHead, sizeof fHead});
    return std::exchange(fSplit, {});
}

void FinishedSplitReader::Release()
{
    if (std::exchange(fHoldsMemory, false)) fMemory.Release();
    fBytes = {};
}

}  // namespace refhost
