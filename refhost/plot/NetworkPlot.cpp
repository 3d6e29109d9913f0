#include "refhost/plot/NetworkPlot.h"

#include <algorithm>
#include <utility>

#include "refhost/plot/Legends.h"
#include "refhost/plot/Lettering.h"
#include "refhost/plot/Marks.h"
#include "refhost/plot/NetworkLayout.h"
#include "refhost/plot/Palette.h"
#include "refhost/plot/Popups.h"
#include "refhost/plot/TextWidth.h"

namespace refhost {
namespace {

constexpr std::size_t kMostNodes = 60;
constexpr double kNodeRadius = 9.0;
constexpr double kLabelGap = 12.0;       // from the middle of a node to the top of its label
constexpr std::size_t kLineLength = 24;  // characters after which a name goes on below

struct Node {
    std::string fKey;
    std::string fText;   ///< as the data have it
    std::string fLabel;  ///< its lines as the picture shows them
    std::size_t fRow = 0;
};

struct Edge {
    NetworkEdge fEnds;
    std::size_t fRow = 0;
};

/// Breaks long lines at blanks.
std::string Wrapped(const std::string& text)
{
    std::string wrapped = text;
    std::size_t lineStart = 0, blank = std::string::npos;
    for (std::size_t at = 0; at < wrapped.size(); ++at) {
        if (wrapped[at] == '\n') {
            lineStart = at + 1;
            blank = std::string::npos;
            continue;
        }
        if (wrapped[at] == ' ') blank = at;
        if (at - lineStart < kLineLength || blank == std::string::npos) continue;
        wrapped[blank] = '\n';
        lineStart = blank + 1;
        blank = std::string::npos;
    }
    return wrapped;
}

std::vector<Node> ReadNodes(ChartContext& context, const DataVariable& variable)
{
    const CategoryList categories(variable, context.fTree.fOrders, kMostNodes);
    NoteCut(context.fNotes, context.fWords.fCutNodes, categories.Count(), categories.Cut());
    std::vector<Node> nodes;
    std::vector<bool> isSeen(categories.Count(), false);
    for (std::size_t row = 0; row < variable.Rows(); ++row) {
        const auto place = categories.Find(variable.Key(row));
        if (!place || isSeen[*place]) continue;
        isSeen[*place] = true;
        const std::string text = variable.Text(row);
        nodes.push_back({variable.Key(row), text, Wrapped(text), row});
    }
    return nodes;
}

std::optional<std::size_t> FindNode(const std::vector<Node>& nodes, const std::string& key)
{
    const auto found = std::find_if(nodes.begin(), nodes.end(),
                                    [&key](const Node& node) { return node.fKey == key; });
    if (key.empty() || found == nodes.end()) return std::nullopt;
    return static_cast<std::size_t>(found - nodes.begin());
}

std::vector<Edge> ReadEdges(ChartContext& context, const tree::Element& element,
                            const std::vector<Node>& nodes)
{
    std::vector<Edge> edges;
    const DataVariable* from = context.fData.Find(element.fFrom);
    const DataVariable* to = context.fData.Find(element.fTo);
    const DataVariable* weight =
        context.fGraph.fLayout ? context.fData.Find(context.fGraph.fLayout->fWeight) : nullptr;
    if (!from || !to) return edges;
    for (std::size_t row = 0; row < from->Rows(); ++row) {
        const auto first = FindNode(nodes, from->Key(row));
        const auto second = FindNode(nodes, to->Key(row));
        if (!first || !second || *first == *second) continue;
        if (edges.size() == kMostMarks) {
            NoteCutMarks(context);
            break;
        }
        const double heavy = weight ? weight->Number(row).value_or(1.0) : 1.0;
        edges.push_back({{*first, *second, heavy}, row});
    }
    return edges;
}

std::vector<NodeRoom> RoomsOf(const std::vector<Node>& nodes)
{
    std::vector<NodeRoom> rooms;
    for (const Node& node : nodes) {
        const double half = TextBlockWidth(node.fLabel, kLabelFont) * kBoldness / 2;
        const auto lines = static_cast<double>(CountLines(node.fLabel));
        rooms.push_back({std::max(kNodeRadius, half), kNodeRadius, kLabelGap + kLabelLine * lines});
    }
    return rooms;
}

std::string FirstLine(const std::string& text) { return text.substr(0, text.find('\n')); }

std::string InOneLine(std::string_view text)
{
    std::string line;
    for (const char character : text)
        character == '\n' ? line.append(", ") : line.append(1, character);
    return line;
}

/// A row of the data's table: two nodes and what the popup says of them under its first line. That
/// is a value with its name, "Adj. Sig. = 0.012", and the name heads the column.
void SummarizeEdge(ChartContext& context, const Node& from, const Node& to, std::string_view popup)
{
    constexpr std::string_view kEquals = " = ";
    const std::size_t firstEnd = popup.find('\n');
    std::string_view told = firstEnd == popup.npos ? "" : popup.substr(firstEnd + 1);
    const std::size_t equals = told.find(kEquals);
    std::vector<std::string>& columns = context.fSummary.fColumns;
    if (columns.empty())
        columns = {std::string(context.fWords.fFirstSample),
                   std::string(context.fWords.fSecondSample),
                   std::string(equals == told.npos ? "" : told.substr(0, equals))};
    if (equals != told.npos && columns.back() == told.substr(0, equals))
        told.remove_prefix(equals + kEquals.size());
    Summarize(context, {}, {InOneLine(from.fText), InOneLine(to.fText), InOneLine(told)});
}

void AddEdges(ChartContext& context, const tree::Element& element, const std::vector<Node>& nodes,
              const std::vector<Edge>& edges, const NetworkPlan& plan, ResolvedPlot& plot)
{
    const tree::Color* color = ColorOf(context, element);
    const DataVariable* type = color ? context.fData.Find(color->fVariable) : nullptr;
    const CategoryList types =
        type ? CategoryList(*type, context.fTree.fOrders, kMostCategories) : CategoryList();
    const tree::Popup* popup = FindPopup(context, element, {});
    std::vector<MarkLayer> layers;
    for (const Edge& edge : edges) {
        const NodePlace& from = plan.fNodes[edge.fEnds.fFrom];
        const NodePlace& to = plan.fNodes[edge.fEnds.fTo];
        ResolvedMark mark;
        mark.fX = from.fX, mark.fY = from.fY, mark.fX2 = to.fX, mark.fY2 = to.fY;
        if (type) mark.fSeries = type->Key(edge.fRow);
        const std::string pair = FirstLine(nodes[edge.fEnds.fFrom].fLabel) + " - " +
                                 FirstLine(nodes[edge.fEnds.fTo].fLabel);
        mark.fPopup = popup ? PopupText(context, *popup, edge.fRow) : pair;
        SummarizeEdge(context, nodes[edge.fEnds.fFrom], nodes[edge.fEnds.fTo], mark.fPopup);
        const std::size_t category = types.Find(mark.fSeries).value_or(0);
        LayerOf(layers, 0, MarkKind::Rule, EdgeStyle(color, category))
            .fMarks.push_back(std::move(mark));
    }
    // What is significant lies on top of what is not.
    plot.fLayers.insert(plot.fLayers.end(), layers.rbegin(), layers.rend());
    std::stable_sort(plot.fLayers.begin(), plot.fLayers.end(),
                     [](const MarkLayer& a, const MarkLayer& b) {
                         return a.fStyle.fStrokeWidth < b.fStyle.fStrokeWidth;
                     });
}

void AddNodes(ChartContext& context, const tree::Element& element, const std::vector<Node>& nodes,
              const NetworkPlan& plan, ResolvedPlot& plot)
{
    const tree::Popup* popup = FindPopup(context, element, {});
    MarkLayer dots, names;
    dots.fKind = MarkKind::Point;
    dots.fStyle.fFill = FixedColor(kFirstSeries);
    dots.fStyle.fStroke = {Paint::Ground, {}};
    dots.fStyle.fStrokeWidth = 2.0;
    dots.fStyle.fSize = 260.0;
    names.fKind = MarkKind::Text;
    names.fHelper = true;
    names.fStyle.fFill = {Paint::Ink, {}};
    names.fStyle.fBold = true;
    names.fStyle.fHalo = true;
    names.fStyle.fAlign = TextAlign::Center;
    names.fStyle.fShiftY = kLabelGap;
    for (std::size_t node = 0; node < nodes.size(); ++node) {
        ResolvedMark mark;
        mark.fX = plan.fNodes[node].fX;
        mark.fY = plan.fNodes[node].fY;
        mark.fKey = nodes[node].fKey;
        mark.fPopup = popup ? PopupText(context, *popup, nodes[node].fRow) : nodes[node].fLabel;
        dots.fMarks.push_back(mark);
        mark.fPopup.clear();
        mark.fText = nodes[node].fLabel;
        names.fMarks.push_back(std::move(mark));
    }
    plot.fLayers.push_back(std::move(dots));
    plot.fLayers.push_back(std::move(names));
}

}  // namespace

const tree::Element* FindNodes(const tree::Graph& graph)
{
    for (const tree::Element& element : graph.fElements) {
        if (element.fKind == tree::ElementKind::Node) return &element;
    }
    return nullptr;
}

std::optional<ResolvedPlot> MakeNetworkPlot(ChartContext& context, double width, double height)
{
    const tree::Element* element = FindNodes(context.fGraph);
    const DataVariable* variable = element ? context.fData.Find(element->fVariable) : nullptr;
    if (!variable) return std::nullopt;
    const std::vector<Node> nodes = ReadNodes(context, *variable);
    if (nodes.empty()) return std::nullopt;

    std::vector<NetworkEdge> ends;
    std::vector<std::pair<const tree::Element*, std::vector<Edge>>> drawn;
    for (const tree::Element& edge : context.fGraph.fElements) {
        if (edge.fKind != tree::ElementKind::Edge || !IsVisible(context, edge.fStyle)) continue;
        drawn.emplace_back(&edge, ReadEdges(context, edge, nodes));
        for (const Edge& read : drawn.back().second) {
            ends.push_back(read.fEnds);
        }
    }
    const bool lying = context.fGraph.fLayout && context.fGraph.fLayout->fSwap;
    const NetworkPlan plan = LayOutNetwork(RoomsOf(nodes), ends, width, height, lying);
    ResolvedPlot plot;
    plot.fWidth = plan.fWidth;
    plot.fHeight = plan.fHeight;
    plot.fX.fMax = plan.fWidth;
    plot.fY.fMax = plan.fHeight;
    plot.fY.fReversed = true;
    for (const auto& [edge, edges] : drawn) {
        AddEdges(context, *edge, nodes, edges, plan, plot);
    }
    AddNodes(context, *element, nodes, plan, plot);
    return plot;
}

}  // namespace refhost
