#include "refhost/writers/HtmlChart.h"

#include <algorithm>
#include <charconv>
#include <cmath>

#include "refhost/document/OutputNode.h"
#include "refhost/plot/ResolveChart.h"
#include "refhost/vega/VegaLiteWriter.h"
#include "refhost/writers/Escape.h"
#include "refhost/writers/HtmlTable.h"
#include "refhost/writers/ReportWords.h"

namespace refhost {

namespace {

/// Bounds for the reserved box, in pixels, whatever size a chart asks for.
constexpr double kSmallestSide = 40.0;
constexpr double kLargestSide = 20000.0;

void AppendParagraph(std::string& out, std::string_view name, std::string_view text)
{
    if (text.empty()) return;
    out.append("<p class=\"").append(name).append("\">");
    AppendMarkupText(out, text);
    out.append("</p>\n");
}

std::string Pixels(double side)
{
    const double bounded =
        std::isfinite(side) ? std::clamp(side, kSmallestSide, kLargestSide) : kSmallestSide;
    return std::to_string(static_cast<int>(std::ceil(bounded)));
}

/// A grid of so many pixels can't be read on paper at the height of a single plot.
constexpr double kTallPicture = 420;

/// Room for the picture; until it is drawn, and without script, the description stands there.
void AppendPicture(std::string& out, const ResolvedChart& picture, std::string_view description)
{
    const std::string width = Pixels(picture.fWidth);
    const std::string height = Pixels(picture.fHeight);
    out += picture.fHeight > kTallPicture ? R"(<div class="picture tall waiting">)"
                                          : R"(<div class="picture waiting">)";
    out.append("<svg width=\"").append(width);
    out.append("\" height=\"").append(height).append("\" viewBox=\"0 0 ").append(width) += ' ';
    out.append(height).append("\" aria-hidden=\"true\"></svg>");
    AppendParagraph(out, "stand-in", description);
    out.append("</div>\n");
}

std::string ShownValue(const ChartValue& value)
{
    if (const auto* text = std::get_if<std::string>(&value)) return *text;
    const auto* number = std::get_if<double>(&value);
    if (!number || !std::isfinite(*number)) return ".";
    char digits[32];
    return {digits, std::to_chars(digits, digits + sizeof digits, *number).ptr};
}

/// The data as they were given, for a chart that has no picture.
DataSummary SourceData(const ChartSource& source)
{
    DataSummary data;
    data.fRows.resize(source.fRows);
    for (const ChartSource::Column& column : source.fColumns) {
        data.fColumns.push_back(column.fName);
        for (std::size_t row = 0; row < source.fRows; ++row)
            data.fRows[row].push_back(row < column.fValues.size() ? ShownValue(column.fValues[row])
                                                                  : ".");
    }
    return data;
}

void AppendData(std::string& out, const ChartNode& chart, const ResolvedChart* picture,
                std::string_view language)
{
    if (picture ? picture->fData.fRows.empty() : chart.fSources.empty()) return;
    out.append("<details class=\"data\"><summary>").append(ReportWord(language, "data"));
    out.append("</summary>\n");
    if (picture)
        AppendDataTable(out, picture->fData);
    else
        for (const ChartSource& source : chart.fSources)
            AppendDataTable(out, SourceData(source));
    out.append("</details>\n");
}

/// Most descriptions only join title and subtitle, which stand there already.
bool AddsToTitles(const ChartNode& chart)
{
    const std::string_view description = chart.fDescription;
    return description != chart.fTitle && description != chart.fTitle + "; " + chart.fSubtitle;
}

}  // namespace

void AppendChart(std::string& out, const ChartNode& chart, std::string_view id,
                 std::string_view language, std::string_view body)
{
    out.append("<figure class=\"chart\" id=\"").append(id).append("\" aria-labelledby=\"");
    out.append(id).append("-name\">\n<p class=\"title\" id=\"").append(id);
    out.append("-name\"><a href=\"#").append(id).append("\">");
    AppendMarkupText(out, chart.fTitle.empty() ? ReportWord(language, "untitled") : chart.fTitle);
    out.append("</a></p>\n");
    if (body.empty())
        AppendChartBody(out, chart, language);
    else
        out.append(body);
}

void AppendChartBody(std::string& out, const ChartNode& chart, std::string_view language)
{
    const std::unique_ptr<ResolvedChart> picture = ResolveChart(chart, WordsOfPlots(language));
    AppendParagraph(out, "subtitle", chart.fSubtitle);
    if (picture)
        AppendPicture(out, *picture, chart.fDescription);
    else
        AppendParagraph(out, "not-drawn", ReportWord(language, "not-drawn"));

    out.append("<div class=\"below\">\n");
    AppendParagraph(out, "footnote", chart.fFootnote);
    if (AddsToTitles(chart)) AppendParagraph(out, "description", chart.fDescription);
    if (picture)
        for (const std::string& note : picture->fNotes)
            AppendParagraph(out, "left-out", note);
    out.append("</div>\n");
    AppendData(out, chart, picture.get(), language);
    if (picture) {
        out.append("<script type=\"application/json\">");
        AppendVegaLite(out, *picture);
        out.append("</script>\n");
    }
    out.append("</figure>\n");
}

}  // namespace refhost
