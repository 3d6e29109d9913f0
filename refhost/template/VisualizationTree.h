#pragma once

#include <cstddef>
#include <list>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/chart/ViZ.h"

/// A visualization as plain records: what a template says after it was read, and what the object
/// model works on. Records refer to each other by id, so a tree can be copied; what the object
/// model adds to is a `std::list`, so that a record keeps its place.
///
/// An id may be empty where nothing refers to the record. A reference to an id that isn't there is
/// no reference. All texts are UTF-8; all numbers are finite.
namespace refhost::tree {

/// Directions as seen in the picture: x runs to the right, y upwards.
enum class Dimension { X, Y };

// --- appearance --------------------------------------------------------------------------------

enum class Dash { Solid, Dashed, Dotted };

/// What is not set is left to the theme.
struct Style {
    std::string fId;
    std::string fColor;  ///< a name or "#rrggbb", of lines and text; empty: the theme's
    std::string fFill;   ///< of areas; empty: the theme's
    std::optional<Dash> fDash;
    double fWidth = 0.0;  ///< of lines, in pixels; 0: the theme's
    int fFontWeight = 0;  ///< 2 is bold
    bool fItalic = false;
    bool fVisible = true;  ///< false: what has this style is not drawn
};

/// Settles one edge or extent of a frame. Places are percentages of the picture, from its left or
/// its top: right at "80%" ends at 80% of the width, bottom at "35%" ends 35% down.
struct Location {
    std::string fId;
    std::optional<ENUM_part> fPart;      ///< without one the location settles nothing
    std::optional<ENUM_method> fMethod;  ///< not set: fixed where there is a value
    std::string fValue;                  ///< see `Fraction`
    std::string fTarget;                 ///< id of a graph or a label frame
};

/// "35%" is 0.35; nothing for what is no percentage. Not clamped.
std::optional<double> Fraction(std::string_view percentage);

struct Text {
    std::string fId;
    std::string fText;
};

struct Label {
    std::string fId;
    std::string fStyle;
    std::list<Text> fTexts;

    /// The texts one behind the other; may hold line feeds.
    std::string Shown() const;
};

/// Text at a place of its own. A frame without locations stands where its owner puts it.
struct LabelFrame {
    std::string fId;
    std::list<Location> fLocations;
    std::list<Label> fLabels;

    /// The labels, a line for each.
    std::string Shown() const;
};

// --- variables ---------------------------------------------------------------------------------

/// A column of the chart's data.
struct SourceVariable {
    std::string fId;          ///< the name by which elements and settings call it
    std::string fSource;      ///< name of the data source
    std::string fColumn;      ///< name of the column in the data source
    std::string fLabel;       ///< shown where nothing else names the variable
    std::string fLabelsFrom;  ///< id of the variable whose relabels and format this one shares
    int fDecimals = -1;       ///< digits of its numbers where no format was set; -1: as they are
    bool fCategorical = false;
    bool fHoldsLabels = false;  ///< its texts show as they are; only its numbers have labels
};

struct Relabel {
    std::string fFrom;
    std::string fTo;
};

/// How values of a derived variable show.
struct Format {
    std::string fId;
    std::vector<Relabel> fRelabels;  ///< a later one for the same key replaces an earlier one
};

/// The first case whose bounds all hold gives the value.
struct DerivedCase {
    std::optional<double> fAbove;
    std::optional<double> fBelow;
    std::string fValue;
};

/// Values made from those of another variable: by the cases, or the same where there are none. A
/// value that answers to no case is absent.
struct DerivedVariable {
    std::string fId;
    std::string fValue;  ///< id of the variable that it is made from
    std::vector<DerivedCase> fCases;
    std::list<Format> fFormats;
};

/// The order of a variable's categories, by value (the key, not the label). Data that hold a value
/// which the order does not name keep their own order: then the list was cut at the wrong places,
/// or nobody filled it in.
struct CategoryOrder {
    std::string fVariable;
    std::vector<std::string> fValues;
    bool fComplete = false;  ///< legends list every value, also one that the data don't hold
};

// --- elements ----------------------------------------------------------------------------------

enum class Summary { None, Sum };

/// What an element takes along a dimension.
struct Position {
    std::string fVariable;
    bool fBinned = false;              ///< numbers are put into bins of equal width
    Summary fSummary = Summary::None;  ///< of the rows that share the other position
    double fScalingFactor = 1.0;       ///< values are divided by it; positive
};

/// Colour by a variable, or pattern.
struct Color {
    std::string fId;
    std::string fVariable;              ///< of either kind
    std::vector<std::string> fPalette;  ///< by category, in order; empty or too short: the theme's
    bool fPattern = false;              ///< by pattern rather than by colour
};

/// Text beside each mark: bars and points show the variable's text; boxes show it beside outliers
/// only. Equal labelings of an element count once.
struct Labeling {
    std::string fId;
    std::string fVariable;
};

enum class Distribution { Normal, Uniform, Poisson, Exponential };

enum class ParameterKind {
    Number,
    Date,     ///< seconds since 14 October 1582, as the rows of a date variable have them
    Duration  ///< seconds
};

struct Parameter {
    ParameterKind fKind = ParameterKind::Number;
    double fValue = 0.0;
};

/// The curve of a distribution: over bars its area is that of the bars (rows times bin width);
/// in a graph without bars it is the density. A parameter that is absent leaves no curve.
struct DistributionStatistic {
    Distribution fDistribution = Distribution::Normal;
    std::optional<Parameter> fParameter;  ///< mean; minimum of uniform; rate of exponential
    std::optional<Parameter> fSecondary;  ///< standard deviation; maximum of uniform
};

enum class ElementKind {
    Interval,  ///< bars
    Line,      ///< with a distribution: its curve
    Point,
    Schema,  ///< boxes: quartiles, median, whiskers, outliers of y for each x
    Edge,    ///< lines between nodes: `fFrom`, `fTo`
    Node,    ///< a node for each value of `fVariable`
    Caption  ///< the text of `fVariable` in the middle of its facet, or at x and y
};

/// How elements of one place and several colours stand.
enum class Arrangement { Overlay, Stack, Cluster };

struct Element {
    ElementKind fKind = ElementKind::Interval;
    std::string fId;
    std::string fStyle;
    std::string fVariable;
    std::string fFrom;
    std::string fTo;
    std::optional<Position> fX;
    std::optional<Position> fY;
    Dimension fExtent = Dimension::Y;  ///< along which bars grow from 0
    Arrangement fArrangement = Arrangement::Overlay;
    std::optional<DistributionStatistic> fDistribution;
    std::list<Color> fColors;  ///< the last one that names a variable counts
    std::list<Labeling> fLabelings;
};

// --- the graph ---------------------------------------------------------------------------------

enum class Scale {
    Data,  ///< a category for text and for variables set categorical, else a number
    Number,
    Category
};

/// One dimension of the coordinates.
struct DimensionSpec {
    Dimension fDimension = Dimension::X;
    Scale fScale = Scale::Data;
    std::optional<double> fMin;  ///< the end of the range; not set: by the data
    std::optional<double> fMax;
};

enum class AxisPlace {
    Near,  ///< left or bottom
    Far    ///< right or top; drawn only where the facets alternate on this axis
};

struct Axis {
    Dimension fDimension = Dimension::X;
    AxisPlace fPlace = AxisPlace::Near;
    std::string fStyle;
    std::optional<Label> fLabel;  ///< without one, or empty: the label of the variable
    bool fTicks = true;           ///< ticks and their numbers
    bool fGrid = false;
};

/// A line across the plot, at a place of one dimension.
struct LineGuide {
    std::string fId;
    Dimension fDimension = Dimension::X;  ///< on which the place lies: a guide at x is upright
    std::string fPlace;                   ///< as exact text; see `Place`
    std::string fStyle;
    std::optional<Label> fLabel;  ///< at the line's end, outside of the plot

    /// Nothing where the text is no number.
    std::optional<double> Place() const;
};

/// A grid direction of the facets, one plot for each value of the variable.
struct Facet {
    enum class Direction {
        Columns,  ///< side by side, headers above
        Rows      ///< one below the other, headers at the side
    };
    Direction fDirection = Direction::Columns;
    std::string fVariable;
    std::string fHeader;          ///< id of a variable that is told below the value; may be empty
    std::optional<Label> fLabel;  ///< stands along all headers
};

/// Neighbouring facets share a border. Where they alternate, the axis across the border runs
/// backwards on one side of it, and the axis `fSide` stands at both outer edges of the facets: the
/// near axis at the left or lower one, the far axis at the right or upper one.
struct FacetLayout {
    bool fAlternating = false;
    Dimension fSide = Dimension::X;
    bool fInvert = false;  ///< bars grow towards the common border rather than away from it
};

/// Places for nodes: the heavier an edge, the nearer its ends.
struct GraphLayoutStatistic {
    std::string fNode;
    std::string fFrom;
    std::string fTo;
    std::string fWeight;
    bool fSwap = false;  ///< the main axis lies rather than stands
};

struct Graph {
    std::string fId;
    std::list<Location> fLocations;  ///< of the data area; axes and headers stand outside of it
    std::vector<DimensionSpec> fDimensions;
    std::list<Element> fElements;  ///< in the order in which they are drawn
    std::vector<Axis> fAxes;
    std::list<LineGuide> fLineGuides;  ///< over the elements, in order
    std::vector<Facet> fFacets;        ///< none, one, or one of each direction
    std::optional<FacetLayout> fFacetLayout;
    std::optional<GraphLayoutStatistic> fLayout;
};

// --- around the graph --------------------------------------------------------------------------

struct LegendTarget {
    std::string fId;
    std::string fTarget;  ///< id of a `Color`
};

struct Legend {
    std::string fId;
    std::vector<LegendTarget> fTargets;
    std::optional<Label> fLabel;  ///< without one: the label of the variable; empty: no title
};

struct TokenMapping {
    std::string fToken;  ///< $[fToken]$ in the template stands for the variable's text
    std::string fVariable;
    bool fFirstLine = false;  ///< of a text of several lines only the first
};

/// What shows when the pointer rests on a mark. One without a template is none.
struct Popup {
    std::string fId;
    std::string fTarget;  ///< id of an element
    std::string fPart;    ///< "median" of a schema; empty: the whole mark
    std::string fTokenTemplate;
    std::vector<TokenMapping> fMappings;
};

struct Extension {
    std::string fId;
    std::optional<LabelFrame> fTitle;
    std::optional<LabelFrame> fSubtitle;
    std::optional<LabelFrame> fFootnote;
    std::vector<std::string> fLegends;  ///< ids of the legends that are drawn
};

struct Visualization {
    std::string fId;
    std::list<SourceVariable> fSourceVariables;
    std::list<DerivedVariable> fDerivedVariables;
    std::vector<CategoryOrder> fOrders;
    std::list<Style> fStyles;
    std::list<Graph> fGraphs;  ///< the first is drawn
    std::list<LabelFrame> fLabelFrames;
    std::list<Legend> fLegends;  ///< those that the extension names are drawn
    std::vector<Popup> fPopups;
    std::optional<Extension> fExtension;

    /// Null for an empty id and one that isn't there. Where an id is given twice the last counts.
    const Style* FindStyle(std::string_view id) const;
    const SourceVariable* FindSourceVariable(std::string_view id) const;
    const DerivedVariable* FindDerivedVariable(std::string_view id) const;
    const Legend* FindLegend(std::string_view id) const;
};

}  // namespace refhost::tree
