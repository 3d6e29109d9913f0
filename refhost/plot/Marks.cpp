#include "refhost/plot/Marks.h"

#include <utility>

namespace refhost {
namespace {

constexpr std::size_t kMostSummaryRows = 1000;

}  // namespace

MarkLayer& LayerOf(std::vector<MarkLayer>& layers, std::size_t from, MarkKind kind,
                   const MarkStyle& style)
{
    for (std::size_t layer = from; layer < layers.size(); ++layer) {
        if (layers[layer].fKind == kind && layers[layer].fStyle == style) return layers[layer];
    }
    MarkLayer& layer = layers.emplace_back();
    layer.fKind = kind;
    layer.fStyle = style;
    return layer;
}

void NoteCutMarks(ChartContext& context)
{
    AddNote(context.fNotes, FillSentence(context.fWords.fCutMarks, {std::to_string(kMostMarks)}));
}

void Summarize(ChartContext& context, const Panel& panel, std::vector<std::string> cells)
{
    if (context.fSummary.fRows.size() >= kMostSummaryRows) {
        AddNote(context.fNotes,
                FillSentence(context.fWords.fCutRows, {std::to_string(kMostSummaryRows)}));
        return;
    }
    cells.insert(cells.begin(), panel.fName.begin(), panel.fName.end());
    context.fSummary.fRows.push_back(std::move(cells));
}

}  // namespace refhost
