#pragma once

#include <cstddef>
#include <limits>
#include <memory>
#include <string>
#include <vector>

#include "refhost/plot/Lettering.h"

/// A chart as it is drawn: every number worked out, every text finished, every colour settled.
/// A pen that draws it computes nothing and asks nothing about where the chart came from.
/// All texts are UTF-8; lines are parted by line feeds.

namespace refhost {

/// A place that a mark leaves open: a rule without one spans the whole plot.
constexpr double kOpen = std::numeric_limits<double>::quiet_NaN();

enum class ScaleKind {
    Linear,
    Time,     ///< milliseconds from 1970, without a time zone
    Category  ///< category i stands at i; its room goes from i - 0.5 to i + 0.5
};

/// Two categories may share a label, never a key.
struct CategoryLabel {
    std::string fKey;
    std::string fLabel;
};

struct ResolvedScale {
    ScaleKind fKind = ScaleKind::Linear;
    double fMin = 0.0;
    double fMax = 1.0;
    bool fReversed = false;
    std::vector<CategoryLabel> fCategories;
};

enum class AxisSide { Left, Right, Bottom, Top };

struct AxisTick {
    double fAt = 0.0;
    std::string fLabel;
};

struct ResolvedAxis {
    AxisSide fSide = AxisSide::Bottom;
    std::string fTitle;
    std::vector<AxisTick> fTicks;
    bool fLabels = true;
    bool fGrid = false;
    bool fSlanted = false;
    double fExtent = 0.0;  ///< pixels that ticks and labels take, by an estimate of their width
};

enum class FillPattern { Solid, Rising, Falling, Crossed, Level, Upright, Dotted, Grid };

/// Colours that follow the theme of the page, and fixed ones.
enum class Paint {
    None,
    Ink,      ///< of text
    Outline,  ///< of boxes and whiskers
    Quiet,    ///< of helping lines
    Ground,   ///< of the page
    Fixed     ///< the colour stands beside it
};

struct PaintedColor {
    Paint fPaint = Paint::None;
    std::string fColor;  ///< "#2F6DB5", for `Fixed`

    bool operator==(const PaintedColor&) const = default;
};

enum class TextAlign { Left, Center, Right };
enum class TextBaseline { Top, Middle, Bottom };

/// How marks of a layer look. What a kind of mark has no use for is left alone.
struct MarkStyle {
    PaintedColor fFill;
    PaintedColor fStroke;
    double fStrokeWidth = 1.0;
    double fOpacity = 1.0;
    std::vector<double> fDash;  ///< empty: solid
    FillPattern fPattern = FillPattern::Solid;
    double fSize = 34.0;  ///< of a point: its area in square pixels
    double fGapX = 0.0;   ///< pixels by which a rect is drawn narrower
    double fGapY = 0.0;   ///< pixels by which a rect is drawn lower
    double fCorner = 0.0;

    double fFontSize = kLabelFont;
    bool fBold = false;
    bool fItalic = false;
    bool fHalo = false;  ///< a text stands on a margin of the ground's colour
    TextAlign fAlign = TextAlign::Left;
    TextBaseline fBaseline = TextBaseline::Top;
    double fShiftX = 0.0;  ///< pixels
    double fShiftY = 0.0;

    bool operator==(const MarkStyle&) const = default;
};

enum class MarkKind { Rect, Line, Area, Rule, Point, Text };

struct ResolvedMark {
    double fX = kOpen;
    double fY = kOpen;
    double fX2 = kOpen;
    double fY2 = kOpen;
    std::string fKey;     ///< of the category that it stands for; may be empty
    std::string fSeries;  ///< of the legend's entry that it belongs to; may be empty
    std::string fText;    ///< of a text mark
    std::string fPopup;   ///< whole and finished; empty where there is none
};

/// Marks of one kind and look, in drawing order. Of a line or an area they are its points.
struct MarkLayer {
    MarkKind fKind = MarkKind::Rect;
    MarkStyle fStyle;
    bool fInPixels = false;  ///< places are pixels from the plot's top left corner
    bool fHelper = false;    ///< a screen reader passes over it
    std::vector<ResolvedMark> fMarks;
};

/// What names a plot: a name in strong letters, and what is told of it.
struct PlotHeader {
    std::vector<std::string> fLines;
    std::size_t fStrongLines = 0;  ///< the first of them
    std::string fPopup;            ///< the whole text where the lines leave out some of it
};

struct ResolvedPlot {
    int fRow = 0;  ///< place in the grid of plots
    int fColumn = 0;
    double fWidth = 0.0;  ///< pixels of the area that the scales fill
    double fHeight = 0.0;
    bool fFramed = false;
    ResolvedScale fX;
    ResolvedScale fY;
    std::vector<ResolvedAxis> fAxes;
    std::vector<MarkLayer> fLayers;
    PlotHeader fHeader;               ///< above the plot
    PlotHeader fSideHeader;           ///< turned, left of the plot
    bool fSideHeaderUpright = false;  ///< the side header stands right of the plot, not turned
};

struct LegendEntry {
    std::string fKey;
    std::string fLabel;
    MarkStyle fStyle;
};

struct ResolvedLegend {
    std::string fTitle;
    std::vector<LegendEntry> fEntries;
};

/// What is drawn as a table: what a reader without the picture gets.
struct DataSummary {
    std::vector<std::string> fColumns;
    std::vector<std::vector<std::string>> fRows;
};

struct ResolvedChart {
    std::string fTitle;
    std::string fSubtitle;
    std::string fFootnote;
    std::string fDescription;
    std::vector<std::string> fNotes;  ///< what the picture leaves out, one sentence each

    double fWidth = 0.0;  ///< pixels of the whole picture without its texts, by estimate
    double fHeight = 0.0;
    std::vector<ResolvedPlot> fPlots;  ///< row by row
    int fColumns = 1;
    double fRowSpacing = 20.0;  ///< pixels between the areas of plots
    double fColumnSpacing = 20.0;
    std::string fColumnTitle;  ///< of the field whose categories stand above the plots
    std::string fRowTitle;     ///< of the field whose categories stand beside the plots
    std::vector<ResolvedLegend> fLegends;
    DataSummary fData;
};

}  // namespace refhost
