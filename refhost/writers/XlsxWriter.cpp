#include "refhost/writers/XlsxWriter.h"

#include <fmt/format.h>
#include <algorithm>

#include "refhost/writers/ReportWords.h"
#include "refhost/writers/XlsxTable.h"

namespace refhost {

namespace {

constexpr std::size_t kMostLinks = 65530;  // the file format's limit for a sheet
constexpr lxw_row_t kEndRows = 4;          // of the outline, for what the end has to say
constexpr std::size_t kDeepestIndent = 15;
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

void XlsxWriter::OpenHeading(TextRef label)
{
    std::string text = label ? label->fShown : std::string();
    List(text);
    fPaths.push_back(fPaths.empty() ? std::move(text) : Below(fPaths.back(), text));
}

void XlsxWriter::CloseHeading() { fPaths.pop_back(); }

void XlsxWriter::Node(OutputNodePtr&& node)
{
    std::visit([this](const auto& content) { Write(content); }, node->fContent);
}

void XlsxWriter::End(const RunEnd& end)
{
    std::vector<std::string> lines = NoticeLines(end, fLanguage);
    if (fLeftOut > 0)
        lines.push_back(ReportSentence(fLanguage, "held-rows",
                                       {std::to_string(fRow), std::to_string(fRow + fLeftOut)}));
    for (const std::string& line : lines)
        WriteText(fOutline, fRow++, 0, line, fBook.Format(XlsxBook::Style::Plain));
    fBook.Close();
}

void XlsxWriter::Write(const TableNode& table)
{
    const std::string title = table.fTitle ? table.fTitle->fShown : std::string();
    lxw_worksheet* sheet = fBook.AddSheet(title);
    ListSheet(sheet, title);
    WriteTableSheet(fBook, sheet, table, Path(), fLanguage);
}

void XlsxWriter::Write(const ChartNode& chart)
{
    lxw_worksheet* sheet = fBook.AddSheet(chart.fTitle);
    ListSheet(sheet, chart.fTitle);
    WriteChartSheet(fBook, sheet, chart, Path(), fLanguage);
}

void XlsxWriter::Write(const ErrorNode& error) { List(error.fText); }

std::string XlsxWriter::Path() const { return fPaths.empty() ? std::string() : fPaths.back(); }

lxw_col_t XlsxWriter::Indent() const
{
    return static_cast<lxw_col_t>(std::min(fPaths.size(), kDeepestIndent));
}

bool XlsxWriter::HasRoom()
{
    if (fRow + kEndRows < LXW_ROW_MAX) return true;
    ++fLeftOut;
    return false;
}

void XlsxWriter::List(const std::string& text)
{
    if (!HasRoom()) return;
    WriteText(fOutline, fRow++, Indent(), text, fBook.Format(XlsxBook::Style::Plain));
}

void XlsxWriter::ListSheet(const lxw_worksheet* sheet, const std::string& text)
{
    if (fLinks == kMostLinks) {
        List(text);
        return;
    }
    if (!HasRoom()) return;
    ++fLinks;
    const std::string target = fmt::format("internal:'{}'!A1", sheet->name);
    worksheet_write_url(fOutline, fRow, Indent(), target.c_str(), nullptr);
    WriteText(fOutline, fRow++, Indent(), text, fBook.Format(XlsxBook::Style::Link));
}

}  // namespace refhost
