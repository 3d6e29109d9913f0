#include "refhost/plot/Guides.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>

#include "refhost/plot/Lettering.h"
#include "refhost/plot/Palette.h"
#include "refhost/plot/PlotScales.h"
#include "refhost/plot/TextWidth.h"

namespace refhost {
namespace {

constexpr double kEndGap = 10.0;  // between a line's end and its text
constexpr double kSample = 22.0;  // of a line, beside its name
constexpr double kSampleGap = 6.0;
constexpr double kInset = 8.0;       // of texts that stand in the data area
constexpr double kFarAway = 1000.0;  // ranges; a guide beyond would leave nothing of the marks

/// Guides that say nothing of their look are told apart all the same: wide and solid below, narrow
/// and dashed on top.
MarkStyle GuideStyle(const tree::Style* style, std::size_t place)
{
    MarkStyle usual;
    usual.fStroke = FixedColor(kAccent);
    usual.fStrokeWidth = 1.8;
    usual.fDash = {6.0, 3.0};
    const bool leavesOpen = style && style->fWidth <= 0.0 && !style->fDash;
    if (leavesOpen && place == 0) usual.fStrokeWidth = 3.5;
    if (leavesOpen && place > 0) usual.fStrokeWidth = 2.0;
    if (style && place == 0) usual.fDash.clear();
    if (style && style->fWidth > 0.0 && !style->fDash) usual.fDash.clear();
    return LineStyle(style, usual);
}

bool IsFarAway(const Extent& extent, double place)
{
    if (extent.IsEmpty()) return false;
    const double range = std::max(extent.fHigh - extent.fLow, 1.0);
    return place < extent.fLow - kFarAway * range || place > extent.fHigh + kFarAway * range;
}

/// A little beyond the guide, so that it isn't the plot's edge.
void Widen(PlotDirection& direction, double place)
{
    Extent& extent = direction.fExtent;
    if (extent.IsEmpty() || (place >= extent.fLow && place <= extent.fHigh)) {
        return extent.Take(place);
    }
    const double air = 0.03 * (std::max(extent.fHigh, place) - std::min(extent.fLow, place));
    extent.Take(place < extent.fLow ? place - air : place + air);
}

MarkLayer TextLayer(const MarkStyle& style, double x, double y, std::string text)
{
    MarkLayer layer;
    layer.fKind = MarkKind::Text;
    layer.fStyle = style;
    layer.fInPixels = true;
    layer.fHelper = true;
    ResolvedMark mark;
    mark.fX = x;
    mark.fY = y;
    mark.fText = std::move(text);
    layer.fMarks.push_back(std::move(mark));
    return layer;
}

/// The text at the upper end of an upright line, moved inwards at the edges of the plot; or behind
/// the right end of a lying one.
MarkLayer GuideText(const ChartContext& context, const PlacedGuide& guide, const ResolvedPlot& plot)
{
    const tree::Label& label = *guide.fGuide->fLabel;
    MarkStyle style = TextStyle(FindStyle(context, label.fStyle));
    if (style.fFill.fPaint == Paint::Ink) style.fFill = guide.fStyle.fStroke;
    style.fFontSize = kLabelFont;
    const std::string text = label.Shown();
    if (guide.fGuide->fDimension == tree::Dimension::Y) {
        style.fBaseline = TextBaseline::Middle;
        const double y = PixelAt(plot.fY, plot.fHeight, /*downwards=*/true, guide.fPlace);
        return TextLayer(style, plot.fWidth + kEndGap, y, text);
    }
    style.fBaseline = TextBaseline::Bottom;
    style.fAlign = TextAlign::Center;
    const double half = TextBlockWidth(text, kLabelFont) / 2;
    const double x = PixelAt(plot.fX, plot.fWidth, /*downwards=*/false, guide.fPlace);
    const double inside = std::max(half, std::min(x, plot.fWidth - half));
    return TextLayer(style, inside, -kEndGap + 4.0, text);
}

const tree::Style* ColoredStyle(const ChartContext& context, const tree::Label& label)
{
    const tree::Style* style = FindStyle(context, label.fStyle);
    return style && !style->fColor.empty() ? style : nullptr;
}

/// The one guide of the text's colour; null where there is none, or several.
const PlacedGuide* GuideOf(const ChartContext& context, const std::vector<PlacedGuide>& guides,
                           const tree::Label& label)
{
    const tree::Style* style = ColoredStyle(context, label);
    if (!style) return nullptr;
    const PlacedGuide* found = nullptr;
    for (const PlacedGuide& guide : guides) {
        const tree::Style* own = FindStyle(context, guide.fGuide->fStyle);
        if (!own || own->fColor != style->fColor) continue;
        if (found) return nullptr;
        found = &guide;
    }
    return found;
}

MarkLayer SampleOf(const PlacedGuide& guide, double x, double y)
{
    MarkLayer layer;
    layer.fKind = MarkKind::Rule;
    layer.fStyle = guide.fStyle;
    layer.fInPixels = true;
    layer.fHelper = true;
    ResolvedMark mark;
    mark.fX = x;
    mark.fX2 = x + kSample;
    mark.fY = mark.fY2 = y;
    layer.fMarks.push_back(mark);
    return layer;
}

FrameSize ContentOf(const ChartContext& context, const std::vector<PlacedGuide>& guides,
                    const tree::LabelFrame& frame)
{
    FrameSize size;
    for (const tree::Label& label : frame.fLabels) {
        const std::string text = label.Shown();
        const double sample = GuideOf(context, guides, label) ? kSample + kSampleGap : 0.0;
        size.fWidth = std::max(size.fWidth, TextBlockWidth(text, kLabelFont) + sample);
        size.fHeight += kLabelLine * static_cast<double>(CountLines(text));
    }
    return size;
}

/// A frame within the data area keeps clear of its edges; one that is tied to the right edge only
/// moves out of the area rather than cover marks, to the end of the line where there is just one.
FrameBox Eased(const tree::LabelFrame& frame, FrameBox box, const FrameBox& area,
               const std::optional<double>& lineEnd)
{
    const auto isTied = [&frame](ENUM_part part) {
        return std::any_of(frame.fLocations.begin(), frame.fLocations.end(),
                           [part](const tree::Location& location) {
                               return location.fPart == part &&
                                      location.fMethod == ENUM_method::Same;
                           });
    };
    const double width = box.fRight - box.fLeft;
    const double height = box.fBottom - box.fTop;
    if (isTied(ENUM_part::Bottom)) {
        box.fTop = box.fBottom - kInset - height;
        if (isTied(ENUM_part::Left)) box.fLeft += kInset;
        if (isTied(ENUM_part::Right)) box.fLeft = box.fRight - kInset - width;
    } else if (isTied(ENUM_part::Right) && box.fTop > area.fTop && box.fLeft < area.fRight) {
        box.fLeft = area.fRight + kEndGap;
        if (lineEnd) box.fTop = area.fTop + *lineEnd - height / 2;
    }
    box.fRight = box.fLeft + width;
    box.fBottom = box.fTop + height;
    return box;
}

/// Where the only line ends at the right edge of the plot, in pixels from its top.
std::optional<double> LineEnd(const std::vector<PlacedGuide>& guides, const ResolvedPlot& plot)
{
    if (guides.size() != 1 || guides.front().fGuide->fDimension != tree::Dimension::Y) {
        return std::nullopt;
    }
    return PixelAt(plot.fY, plot.fHeight, /*downwards=*/true, guides.front().fPlace);
}

}  // namespace

std::vector<PlacedGuide> PlaceGuides(ChartContext& context, PlotSpace& space)
{
    std::vector<PlacedGuide> guides;
    for (const tree::LineGuide& guide : context.fGraph.fLineGuides) {
        PlotDirection& direction = space.Of(guide.fDimension);
        auto place = guide.Place();
        if (!place || !std::isfinite(*place) || !IsVisible(context, guide.fStyle)) continue;
        if (direction.fKind == ScaleKind::Category) continue;
        if (direction.fKind == ScaleKind::Time) place = direction.fVariable->PlaceOf(*place);
        if (IsFarAway(direction.fExtent, *place)) {
            const std::string text = direction.fKind == ScaleKind::Time
                                         ? direction.fVariable->NumberText(*place)
                                         : ReadableNumber(*place, 0);
            AddNote(context.fNotes, FillSentence(context.fWords.fFarLine, {text}));
            continue;
        }
        Widen(direction, *place);
        guides.push_back(
            {&guide, *place, GuideStyle(FindStyle(context, guide.fStyle), guides.size())});
    }
    return guides;
}

void AddGuides(const ChartContext& context, const std::vector<PlacedGuide>& guides,
               ResolvedPlot& plot)
{
    for (const PlacedGuide& guide : guides) {
        MarkLayer layer;
        layer.fKind = MarkKind::Rule;
        layer.fStyle = guide.fStyle;
        ResolvedMark mark;
        const bool isUpright = guide.fGuide->fDimension == tree::Dimension::X;
        (isUpright ? mark.fX : mark.fY) = guide.fPlace;
        if (guide.fGuide->fLabel) mark.fPopup = guide.fGuide->fLabel->Shown();
        layer.fHelper = mark.fPopup.empty();
        layer.fMarks.push_back(std::move(mark));
        plot.fLayers.push_back(std::move(layer));
    }
    for (const PlacedGuide& guide : guides) {
        if (!guide.fGuide->fLabel || guide.fGuide->fLabel->Shown().empty()) continue;
        plot.fLayers.push_back(GuideText(context, guide, plot));
    }
}

void AddLabelFrames(const ChartContext& context, const std::vector<PlacedGuide>& guides,
                    const FrameBox& picture, const FrameBox& area, ResolvedPlot& plot)
{
    FramePlaces places(picture.fRight, picture.fBottom);
    places.Add(context.fGraph.fId, area);
    for (const tree::LabelFrame& frame : context.fTree.fLabelFrames) {
        if (frame.Shown().empty()) continue;
        const FrameSize content = ContentOf(context, guides, frame);
        const FrameBox box =
            Eased(frame, places.Place(frame, content), area, LineEnd(guides, plot));
        double y = box.fTop - area.fTop;
        const double x = box.fLeft - area.fLeft;
        for (const tree::Label& label : frame.fLabels) {
            const std::string text = label.Shown();
            if (text.empty() || !IsVisible(context, label.fStyle)) continue;
            const bool isOutside = box.fLeft >= area.fRight;
            const PlacedGuide* guide = isOutside ? GuideOf(context, guides, label) : nullptr;
            if (guide) plot.fLayers.push_back(SampleOf(*guide, x, y + kLabelLine / 2));
            MarkStyle style = TextStyle(FindStyle(context, label.fStyle));
            if (guides.size() == 1 && !FindStyle(context, label.fStyle)) {
                style.fFill = guides.front().fStyle.fStroke;
                style.fBold = true;
            }
            style.fFontSize = kLabelFont;
            style.fHalo = !isOutside && !guides.empty();
            plot.fLayers.push_back(TextLayer(style, guide ? x + kSample + kSampleGap : x, y, text));
            y += kLabelLine * static_cast<double>(CountLines(text));
        }
    }
}

}  // namespace refhost
