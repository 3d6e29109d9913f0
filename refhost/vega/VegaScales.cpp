#include "refhost/vega/VegaScales.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "refhost/plot/Lettering.h"
#include "refhost/vega/JsonStream.h"

namespace refhost {
namespace {

constexpr double kTitlePadding = 10.0;
constexpr double kTitleLine = 14.0;

const char* SideName(AxisSide side)
{
    switch (side) {
        case AxisSide::Left:
            return "left";
        case AxisSide::Right:
            return "right";
        case AxisSide::Bottom:
            return "bottom";
        case AxisSide::Top:
            return "top";
    }
    return "bottom";
}

bool IsUpright(const ResolvedAxis& axis)
{
    return axis.fSide == AxisSide::Left || axis.fSide == AxisSide::Right;
}

const ResolvedAxis* FindAxis(const ResolvedPlot& plot, bool upright)
{
    const auto found =
        std::find_if(plot.fAxes.begin(), plot.fAxes.end(),
                     [upright](const ResolvedAxis& axis) { return IsUpright(axis) == upright; });
    return found == plot.fAxes.end() ? nullptr : &*found;
}

void WriteScale(JsonStream& json, const ResolvedScale& scale)
{
    json.Key("scale");
    json.BeginObject();
    json.Key("domain");
    json.BeginArray();
    json.Value(scale.fMin);
    json.Value(scale.fMax);
    json.EndArray();
    json.Member("nice", false);
    json.Member("zero", false);
    if (scale.fReversed) json.Member("reverse", true);
    json.EndObject();
}

void WriteAxis(JsonStream& json, const ResolvedAxis& axis, const ResolvedScale& scale,
               const std::string& expression)
{
    json.Key("axis");
    json.BeginObject();
    json.Member("orient", SideName(axis.fSide));
    json.Key("title");
    if (axis.fTitle.empty()) {
        json.Null();
    } else {
        json.Lines(axis.fTitle);
    }
    json.Key("values");
    json.BeginArray();
    for (const AxisTick& tick : axis.fTicks) {
        json.Value(tick.fAt);
    }
    json.EndArray();
    json.Member("labelOverlap", false);
    json.Member("grid", axis.fGrid);
    if (axis.fGrid && scale.fKind != ScaleKind::Category) {
        json.Member("domain", false);
        json.Member("ticks", false);
    }
    if (!axis.fLabels) {
        json.Member("labels", false);
        json.Member("ticks", false);
    } else if (!axis.fTicks.empty()) {
        json.Member("labelExpr", std::string_view(expression));
    }
    if (scale.fKind == ScaleKind::Category) json.Member("labelLimit", kLabelLimit);
    if (axis.fSlanted) {
        json.Member("labelAngle", -40);
        json.Member("labelAlign", axis.fSide == AxisSide::Top ? "left" : "right");
    }
    if (axis.fSide == AxisSide::Left) {  // the row header stands at a place that hangs on it
        json.Member("minExtent", axis.fExtent);
        json.Member("maxExtent", axis.fExtent);
    }
    json.EndObject();
}

}  // namespace

LabelParameters::LabelParameters(const ResolvedChart& chart)
{
    for (std::size_t plot = 0; plot < chart.fPlots.size(); ++plot) {
        for (const ResolvedAxis& axis : chart.fPlots[plot].fAxes) {
            std::vector<Entry> entries;
            entries.reserve(axis.fTicks.size());
            for (const AxisTick& tick : axis.fTicks) {
                entries.push_back({"=" + ScriptNumber(tick.fAt), tick.fLabel});
            }
            const std::string dimension = IsUpright(axis) ? "labels_y" : "labels_x";
            Add(&axis, dimension + (plot == 0 ? "" : std::to_string(plot)), std::move(entries));
        }
    }
    for (std::size_t legend = 0; legend < chart.fLegends.size(); ++legend) {
        std::vector<Entry> entries;
        for (const LegendEntry& entry : chart.fLegends[legend].fEntries) {
            entries.push_back({"=" + entry.fKey, entry.fLabel});
        }
        Add(&chart.fLegends[legend],
            std::string("labels_legend") + (legend == 0 ? "" : std::to_string(legend)),
            std::move(entries));
    }
}

void LabelParameters::Add(const void* owner, const std::string& name, std::vector<Entry> entries)
{
    const auto same = std::find_if(fLists.begin(), fLists.end(), [&entries](const List& list) {
        return list.fEntries == entries;
    });
    fListOf[owner] = static_cast<std::size_t>(same - fLists.begin());
    if (same == fLists.end()) fLists.push_back({name, std::move(entries)});
}

const std::string& LabelParameters::NameOf(const void* owner) const
{
    return fLists[fListOf.at(owner)].fName;
}

std::string LabelParameters::Expression(const ResolvedAxis& axis) const
{
    return NameOf(&axis) + "[\"=\" + toNumber(datum.value)]";
}

std::string LabelParameters::Expression(const ResolvedLegend& legend) const
{
    return NameOf(&legend) + "[\"=\" + datum.value]";
}

void LabelParameters::Write(JsonStream& json) const
{
    if (fLists.empty()) return;
    json.Key("params");
    json.BeginArray();
    for (const List& list : fLists) {
        json.BeginObject();
        json.Member("name", std::string_view(list.fName));
        json.Key("value");
        json.BeginObject();
        for (const Entry& entry : list.fEntries) {
            json.ForeignKey(entry.fKey);
            json.Lines(entry.fLabel);
        }
        json.EndObject();
        json.EndObject();
    }
    json.EndArray();
}

void WritePositions(JsonStream& json, const ResolvedPlot& plot, const LabelParameters& labels)
{
    struct Row {
        const char* fChannel;
        const ResolvedScale& fScale;
        const ResolvedAxis* fAxis;
    };
    for (const Row& row : {Row{"x", plot.fX, FindAxis(plot, /*upright=*/false)},
                           Row{"y", plot.fY, FindAxis(plot, /*upright=*/true)}}) {
        json.Key(row.fChannel);
        json.BeginObject();
        json.Member("field", row.fChannel);
        json.Member("type", "quantitative");  // also times: their ticks have texts already
        json.Key("sort");
        json.Null();
        WriteScale(json, row.fScale);
        if (row.fAxis) {
            WriteAxis(json, *row.fAxis, row.fScale, labels.Expression(*row.fAxis));
        } else {
            json.Key("axis");
            json.Null();
        }
        json.EndObject();
    }
}

double LeftStrip(const ResolvedPlot& plot)
{
    const ResolvedAxis* axis = FindAxis(plot, /*upright=*/true);
    if (!axis || axis->fSide != AxisSide::Left) return 0.0;
    if (axis->fTitle.empty()) return axis->fExtent;
    const auto lines = static_cast<double>(SplitLines(axis->fTitle).size());
    return axis->fExtent + kTitlePadding + kTitleLine * lines;
}

}  // namespace refhost
