#include "views/onesample/OneSampleWilcoxonSignedRanks.h"

#include "charts/ChartWords.h"
#include "charts/NumberText.h"
#include "charts/TemplateText.h"
#include "model/NOPRTestRecords.h"

#include "host/chart/ViZ.h"
#include "host/chart/XDocument.h"

namespace {

using Test = NOPROutputStats::HTOWilcoxonSignedRanks;

constexpr char kTitle[] = "One-Sample Wilcoxon Signed Rank Test";

constexpr int kBold = 2;

constexpr char16_t kGraphRight[] = u"80%";
constexpr char16_t kTopWithoutSubtitle[] = u"10%";
constexpr char16_t kTopWithSubtitle[] = u"15%";
constexpr char16_t kChartRight[] = u"100%";

/// A line guide and a label of the same colour.
struct MedianRow {
    double Test::*fMedian;
    const char16_t* fColor;
    const char16_t* fGuideStyle;
    const char16_t* fFrame;
    const char16_t* fLabelStyle;
    const char* fText;
};

constexpr MedianRow kHypothesized = {
    &Test::fHypotheticalMedian, u"green",       u"lineGuide1Style",
    u"frameHypotheticalMedian", u"label1Style", "OWilcoxonSignedRanksHypotheticalMedian"};
constexpr MedianRow kObserved = {&Test::fObservedMedian, u"blue",
                                 u"lineGuide2Style",     u"frameObservedMedian",
                                 u"label2Style",         "OWilcoxonSignedRanksObservedMedian"};

ViZStyle* AddStyle(ViZVisualization& visualization, const char16_t* id, const char16_t* color)
{
    ViZStyle* style = visualization.addStyle(id);
    style->setColor(color);
    return style;
}

void AddGuide(ViZGraph& graph, double median, const ViZStyle* style)
{
    ViZLineGuide* guide = graph.addLineGuide();
    guide->setX(ExactText(median).xc_str());
    guide->setStyle(style);
}

bool HasSubtitle(ViZVisualization& visualization)
{
    ViZExtension* extension = visualization.getExtension();
    return extension && extension->getSubtitle();
}

/// Leaves a strip right of the graph for the labels.
void PlaceGraph(ViZVisualization& visualization, ViZGraph& graph)
{
    ViZLocation* right = graph.addLocation();
    right->setPart(ENUM_part::Right);
    right->setMethod(ENUM_method::Fixed);
    right->setValue(kGraphRight);
    right->setSpecifiedByUser(true);

    ViZLocation* top = graph.addLocation();
    top->setPart(ENUM_part::Top);
    top->setValue(HasSubtitle(visualization) ? kTopWithSubtitle : kTopWithoutSubtitle);
    top->setSpecifiedByUser(true);
}

ViZLocation* AddLocation(ViZLabelFrame& frame, ENUM_part part, ENUM_method method)
{
    ViZLocation* location = frame.addLocation();
    location->setPart(part);
    location->setMethod(method);
    return location;
}

void PlaceBesideGraph(ViZLabelFrame& frame, const ViZGraph& graph)
{
    AddLocation(frame, ENUM_part::Top, ENUM_method::Same)->setTarget(&graph);
    AddLocation(frame, ENUM_part::Left, ENUM_method::Against)->setTarget(&graph);
    AddLocation(frame, ENUM_part::Height, ENUM_method::SizeToContent);
    AddLocation(frame, ENUM_part::Right, ENUM_method::Fixed)->setValue(kChartRight);
}

void PlaceBelow(ViZLabelFrame& frame, const ViZLabelFrame& upper)
{
    AddLocation(frame, ENUM_part::Top, ENUM_method::Against)->setTarget(&upper);
    AddLocation(frame, ENUM_part::Left, ENUM_method::Same)->setTarget(&upper);
    AddLocation(frame, ENUM_part::Height, ENUM_method::SizeToContent);
    AddLocation(frame, ENUM_part::Right, ENUM_method::Same)->setTarget(&upper);
}

void AddLabel(ViZVisualization& visualization, ViZLabelFrame& frame, const MedianRow& row,
              const ChartString& text)
{
    ViZLabel* label = frame.addLabel();
    ViZStyle* style = AddStyle(visualization, row.fLabelStyle, row.fColor);
    style->setFont_weight(kBold);
    label->setStyle(style);
    label->addText()->setText(text.xc_str());
}

ChartString LabelText(const FacSTDictionary* dictionary, const MedianRow& row, double median,
                      const QORT_Variable* variable)
{
    ChartString text = LookUpText(dictionary, row.fText);
    text.append(variable ? FormatForVariable(median, *variable) : FormatValue(median, nullptr));
    BreakLines(text);
    return text;
}

}  // namespace

OneSampleWilcoxonSignedRanks::OneSampleWilcoxonSignedRanks(const FacSTDictionary* dictionary,
                                                           const NOPROutputStats* stats,
                                                           const Test* test)
    : NOPRHistogramChart(dictionary, test ? stats : nullptr), fTest(test)
{
    SetTitle(LookUpText(dictionary, kTitle));
}

void OneSampleWilcoxonSignedRanks::EditTemplate(std::string& text)
{
    if (!GetVariable()) return;
    NameAxes(text);
    ReplaceToken(text, "labelText", "");
}

void OneSampleWilcoxonSignedRanks::EditDocument(XDocument& document)
{
    ViZVisualization& visualization = document.getVisualization();
    const std::vector<ViZGraph*> graphs = visualization.getGraphs();
    if (!graphs.empty() && graphs.front()) {
        AddGuides(visualization, *graphs.front());
        PlaceGraph(visualization, *graphs.front());
        AddFrames(visualization, *graphs.front());
    }
    BindValues(document);
}

void OneSampleWilcoxonSignedRanks::AddGuides(ViZVisualization& visualization, ViZGraph& graph) const
{
    const ViZStyle* green =
        AddStyle(visualization, kHypothesized.fGuideStyle, kHypothesized.fColor);
    const ViZStyle* blue = AddStyle(visualization, kObserved.fGuideStyle, kObserved.fColor);
    AddGuide(graph, fTest->*kHypothesized.fMedian, green);
    AddGuide(graph, fTest->*kObserved.fMedian, blue);
}

void OneSampleWilcoxonSignedRanks::AddFrames(ViZVisualization& visualization,
                                             const ViZGraph& graph) const
{
    const auto textOf = [&](const MedianRow& row) {
        return LabelText(GetDictionary(), row, fTest->*row.fMedian, GetVariable());
    };
    ViZLabelFrame* upper = visualization.addLabelFrame(kHypothesized.fFrame);
    PlaceBesideGraph(*upper, graph);
    AddLabel(visualization, *upper, kHypothesized, textOf(kHypothesized));

    ViZLabelFrame* lower = visualization.addLabelFrame(kObserved.fFrame);
    PlaceBelow(*lower, *upper);
    AddLabel(visualization, *lower, kObserved, textOf(kObserved));
}
