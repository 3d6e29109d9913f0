#include "refhost/run/FinishedSplit.h"

#include <cerrno>
#include <utility>

namespace refhost {

namespace {

std::array<std::string*, 6> TextsOf(FinishedSplit& split)
{
    return {&split.fPart.fBytes,      &split.fPart.fOutline, &split.fEnd.fEnd.fFailure,
            &split.fEnd.fEnd.fNotice, &split.fEnd.fLine,     &split.fThrown};
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

void AddTexts(FinishedSplit& split, std::vector<iovec>& pieces)
{
    for (std::string* text : TextsOf(split))
        if (!text->empty()) pieces.push_back({text->data(), text->size()});
}

}  // namespace

bool SendFinishedSplit(int pipe, FinishedSplit split)
{
    FinishedSplitReader::Head head{split.fSplit, split.fEnd.fOutcome, split.fPart.fHasCharts,
                                   /*fSizes=*/{}};
    const auto texts = TextsOf(split);
    for (std::size_t text = 0; text < texts.size(); ++text)
        head.fSizes[text] = texts[text]->size();
    std::vector<iovec> pieces{{&head, sizeof head}};
    AddTexts(split, pieces);
    while (!pieces.empty()) {
        const ssize_t written = ::writev(pipe, pieces.data(), static_cast<int>(pieces.size()));
        if (written < 0 && errno != EINTR) return false;
        if (written > 0) Skip(pieces, static_cast<std::size_t>(written));
    }
    return true;
}

FinishedSplitReader::FinishedSplitReader() : fMissing{{&fHead, sizeof fHead}} {}

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
    const auto texts = TextsOf(fSplit);
    for (std::size_t text = 0; text < texts.size(); ++text)
        texts[text]->resize(fHead.fSizes[text]);
    AddTexts(fSplit, fMissing);
}

FinishedSplit FinishedSplitReader::Take()
{
    fHasHead = false;
    fMissing.push_back({&fHead, sizeof fHead});
    return std::exchange(fSplit, {});
}

}  // namespace refhost
