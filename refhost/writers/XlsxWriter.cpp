#include "refhost/writers/XlsxWriter.h"

#include <fmt/format.h>
#include <algorithm>

#include "refhost/writers/ReportWords.h"
#include "refhost/writers/XlsxTable.h"

namespace refhost {

namespace {

constexpr std::size_t kMostLinks = 65530;  // the file format's limit for a sheet
constexpr lxw_row_t kMostRows = 1048576;   // likewise
constexpr int kDeepestIndent = 15;
constexpr double kOutlineWidth = 3;

std::string Below(const std::string& path, const std::string& label)
{
    return path.empty() ? label : path + " › " + label;
}

}  // namespace

void XlsxWriter::Begin(const RunStart& start)
{
    fLanguage = start.fLanguage;
    fOutline = fBook.AddSheet(ReportWord(fLanguage, "outline"));
    worksheet_set_column(fOutline, 0, kDeepestIndent, kOutlineWidth, nullptr);
    if (start.fTitle.empty()) return;
    WriteText(fOutline, fRow, 0, start.fTitle, fBook.Format(XlsxBook::Style::Title));
    fRow += 2;
}

void XlsxWriter::Node(OutputNodePtr node) { Write(*node, {}, 0); }

void XlsxWriter::End(const RunEnd& end)
{
    const std::string& notice = end.fFailure.empty() ? end.fNotice : end.fFailure;
    if (!notice.empty())
        List(fmt::format("{} {}", ReportWord(fLanguage, "incomplete"), notice), 0);
    else if (!end.fResult)
        List(std::string(ReportWord(fLanguage, "not-read")), 0);
    fBook.Close();
}

void XlsxWriter::Write(const OutputNode& node, const std::string& path, int depth)
{
    if (const auto* heading = std::get_if<HeadingNode>(&node.fContent))
        WriteHeading(*heading, path, depth);
    else if (const auto* table = std::get_if<TableNode>(&node.fContent))
        WriteTable(*table, path, depth);
    else if (const auto* chart = std::get_if<ChartNode>(&node.fContent))
        WriteChart(*chart, path, depth);
    else if (const auto* error = std::get_if<ErrorNode>(&node.fContent))
        List(error->fText, depth);
}

void XlsxWriter::WriteHeading(const HeadingNode& heading, const std::string& path, int depth)
{
    const std::string label = heading.fLabel ? heading.fLabel->fShown : std::string();
    List(label, depth);
    for (const OutputNodePtr& child : heading.fChildren)
        Write(*child, Below(path, label), depth + 1);
}

void XlsxWriter::WriteTable(const TableNode& table, const std::string& path, int depth)
{
    const std::string title = table.fTitle ? table.fTitle->fShown : std::string();
    lxw_worksheet* sheet = fBook.AddSheet(title);
    ListSheet(sheet, title, depth);
    WriteTableSheet(fBook, sheet, table, path);
}

void XlsxWriter::WriteChart(const ChartNode& chart, const std::string& path, int depth)
{
    lxw_worksheet* sheet = fBook.AddSheet(chart.fTitle);
    ListSheet(sheet, chart.fTitle, depth);
    WriteChartSheet(fBook, sheet, chart, path);
}

void XlsxWriter::List(const std::string& text, int depth)
{
    if (fRow >= kMostRows) return;
    WriteText(fOutline, fRow++, static_cast<lxw_col_t>(std::min(depth, kDeepestIndent)), text,
              fBook.Format(XlsxBook::Style::Plain));
}

void XlsxWriter::ListSheet(const lxw_worksheet* sheet, const std::string& text, int depth)
{
    if (fLinks == kMostLinks) {
        List(text, depth);
        return;
    }
    ++fLinks;
    const std::string target = fmt::format("internal:'{}'!A1", sheet->name);
    const auto column = static_cast<lxw_col_t>(std::min(depth, kDeepestIndent));
    worksheet_write_url(fOutline, fRow, column, target.c_str(), nullptr);
    WriteText(fOutline, fRow++, column, text, fBook.Format(XlsxBook::Style::Link));
}

}  // namespace refhost
