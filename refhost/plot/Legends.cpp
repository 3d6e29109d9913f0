#include "refhost/plot/Legends.h"

#include "refhost/plot/Palette.h"

namespace refhost {
namespace {

struct OwnedColor {
    const tree::Element* fElement = nullptr;
    const tree::Color* fColor = nullptr;
};

OwnedColor FindColor(const ChartContext& context, const std::string& id)
{
    for (const tree::Element& element : context.fGraph.fElements) {
        for (const tree::Color& color : element.fColors) {
            if (!id.empty() && color.fId == id) return {&element, &color};
        }
    }
    return {};
}

MarkStyle EntryStyle(const OwnedColor& owned, std::size_t category)
{
    switch (owned.fElement->fKind) {
        case tree::ElementKind::Schema:
            return BoxTint(owned.fColor, category);
        case tree::ElementKind::Edge: {
            MarkStyle style = EdgeStyle(owned.fColor, category);
            style.fFill = style.fStroke;
            return style;
        }
        default:
            return SeriesStyle(*owned.fColor, category);
    }
}

}  // namespace

MarkStyle EdgeStyle(const tree::Color* color, std::size_t category)
{
    MarkStyle style;
    style.fStroke = {Paint::Quiet, {}};
    if (color) style.fStroke = SeriesStyle(*color, category).fFill;
    style.fStrokeWidth = category == 0 ? 2.4 : 1.2;
    if (category > 0) style.fDash = {5.0, 4.0};
    return style;
}

std::vector<ResolvedLegend> MakeLegends(ChartContext& context)
{
    std::vector<ResolvedLegend> legends;
    if (!context.fTree.fExtension) return legends;
    for (const std::string& id : context.fTree.fExtension->fLegends) {
        const tree::Legend* declared = context.fTree.FindLegend(id);
        if (!declared) continue;
        for (const tree::LegendTarget& target : declared->fTargets) {
            const OwnedColor owned = FindColor(context, target.fTarget);
            const DataVariable* variable =
                owned.fColor ? context.fData.Find(owned.fColor->fVariable) : nullptr;
            if (!variable) continue;
            const CategoryList categories(*variable, context.fTree.fOrders, kMostCategories);
            NoteCut(context.fNotes, context.fWords.fCutEntries, categories.Count(),
                    categories.Cut());
            ResolvedLegend legend;
            legend.fTitle = declared->fLabel ? declared->fLabel->Shown() : variable->Title();
            for (std::size_t category = 0; category < categories.Count(); ++category) {
                const CategoryLabel& entry = categories.All()[category];
                legend.fEntries.push_back({entry.fKey, entry.fLabel, EntryStyle(owned, category)});
            }
            if (!legend.fEntries.empty()) legends.push_back(std::move(legend));
        }
    }
    return legends;
}

}  // namespace refhost
