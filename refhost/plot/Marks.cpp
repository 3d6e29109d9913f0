#include "refhost/plot/Marks.h"

#include <utility>

namespace refhost {
namespace {

constexpr std::size_t kMostSummaryRows = 1000;

}  // namespace

std::size_t LayerAt(std::vector<MarkLayer>& layers, std::size_t from, MarkKind kind,
                    const MarkStyle& style)
{
    std::size_t place = from;
    for (; place < layers.size(); ++place) {
        if (layers[place].fKind == kind && layers[place].fStyle == style) return place;
    }
    MarkLayer& layer = layers.emplace_back();
    layer.fKind = kind;
    layer.fStyle = style;
    return place;
}

MarkLayer& LayerOf(std::vector<MarkLayer>& layers, std::size_t from, MarkKind kind,
                   const MarkStyle& style)
{
    return layers[LayerAt(layers, from, kind, style)];
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
