#include "refhost/writers/HtmlTable.h"

#include <algorithm>
#include <vector>

#include "refhost/data/CharacterSet.h"
#include "refhost/document/OutputNode.h"
#include "refhost/plot/ResolvedChart.h"
#include "refhost/writers/Escape.h"
#include "refhost/writers/Footnotes.h"
#include "refhost/writers/ReportWords.h"
#include "refhost/writers/TableGrid.h"

namespace refhost {

using namespace std::string_view_literals;

namespace {

/// From so many rows on a figure is of the next size, by which the page reserves room for it.
constexpr std::size_t kSizeSteps[] = {4, 12, 25};

/// A text of more bytes may be broken into lines, but keeps some width where a table is squeezed.
constexpr std::size_t kLongLabel = 26;
constexpr std::size_t kLongText = 40;

void AppendSpan(std::string& out, std::string_view name, std::size_t span)
{
    if (span > 1) out.append(" ").append(name).append("=\"").append(std::to_string(span)) += '"';
}

void AppendClass(std::string& out, std::initializer_list<std::pair<bool, std::string_view>> classes)
{
    std::string names;
    for (const auto& [applies, name] : classes)
        if (applies) names.append(names.empty() ? "" : " ").append(name);
    if (!names.empty()) out.append(" class=\"").append(names) += '"';
}

/// Writes one table; holds what its parts share.
class TableMarkup {
public:
    TableMarkup(std::string& out, const TableNode& table, std::string_view id)
        : fOut(out), fId(id), fGrid(table), fNotes(fGrid)
    {
        fMarkCounts.resize(fNotes.Notes().size());
        fNumberColumns.resize(fGrid.Columns().fLines);
        for (std::size_t row = 0; row < fGrid.Rows().fLines; ++row)
            for (const TableGrid::PlacedCell& cell : fGrid.RowCells(row))
                if (cell.fCell->fContent && IsNumber(*cell.fCell->fContent))
                    fNumberColumns[cell.fColumn] = true;
    }

    std::size_t Rows() const { return fGrid.Rows().fLines; }
    bool IsEmpty() const { return fGrid.Rows().fLines == 0 || fGrid.Columns().fLines == 0; }

    void AppendGrid()
    {
        AppendColumnGroups();
        AppendHead();
        AppendBody();
    }

    void AppendNotes()
    {
        const auto& notes = fNotes.Notes();
        if (notes.empty()) return;
        fOut.append("<ul class=\"notes\">\n");
        for (std::size_t place = 0; place < notes.size(); ++place) {
            const std::string letter = FootnoteLetter(place);
            fOut.append("<li id=\"").append(NoteId(letter)).append("\"><a href=\"#");
            fOut.append(NoteId(letter)).append("-1\">").append(letter).append(".</a><span>");
            AppendMarkupText(fOut, notes[place]->fShown);
            fOut.append("</span></li>\n");
        }
        fOut.append("</ul>\n");
    }

private:
    std::string NoteId(std::string_view letter) const
    {
        return std::string(fId).append("-").append(letter);
    }

    void AppendMarks(const std::vector<TextRef>* notes)
    {
        if (!notes || notes->empty()) return;
        const std::vector<std::size_t> places = fNotes.Places(*notes);
        if (places.empty()) return;
        fOut.append("<sup>");
        for (const std::size_t place : places) {
            const std::string letter = FootnoteLetter(place);
            const std::string id = NoteId(letter);
            if (place != places.front()) fOut += ',';
            fOut.append("<a id=\"").append(id).append("-");
            fOut.append(std::to_string(++fMarkCounts[place])).append("\" href=\"#").append(id);
            fOut.append("\">").append(letter).append("</a>");
        }
        fOut.append("</sup>");
    }

    void AppendLabel(const GridHeader& header)
    {
        AppendMarkupText(fOut, header.fLabel->fShown);
        AppendMarks(header.fNotes);
    }

    /// The outermost level of the columns that parts them.
    unsigned GroupLevel() const
    {
        for (const GridHeader& header : fGrid.Columns().fHeaders)
            if (!header.fIsTitle) return header.fLevel;
        return 0;
    }

    void AppendColumnGroups()
    {
        if (fGrid.Rows().fLevels > 0) {
            fOut.append("<colgroup");
            AppendSpan(fOut, "span", fGrid.Rows().fLevels);
            fOut += '>';
        }
        const unsigned level = GroupLevel();
        for (const GridHeader& header : fGrid.Columns().fHeaders) {
            if (header.fLevel != level) continue;
            fOut.append("<colgroup");
            AppendSpan(fOut, "span", header.fLines);
            fOut += '>';
        }
        fOut += '\n';
    }

    void AppendColumnHeader(const GridHeader& header)
    {
        const bool isLast = header.fLevel + header.fLevels == fGrid.Columns().fLevels;
        const bool isOver = header.fLines > 1;
        const bool isGroup = isOver && header.fLevel == GroupLevel();
        fOut.append("<th scope=\"").append(isGroup ? "colgroup" : "col") += '"';
        AppendClass(fOut, {{isLast, "last"},
                           {isOver, "over"},
                           {header.fIsTitle, "name"},
                           {!isOver && fNumberColumns[header.fLine], "number"}});
        AppendSpan(fOut, "colspan", header.fLines);
        AppendSpan(fOut, "rowspan", header.fLevels);
        fOut += '>';
        AppendLabel(header);
        fOut.append("</th>");
    }

    void AppendBlank(std::size_t columns, std::size_t rows, bool isLast)
    {
        if (columns == 0 || rows == 0) return;
        fOut.append("<td");
        AppendClass(fOut, {{isLast, "last"}});
        AppendSpan(fOut, "colspan", columns);
        AppendSpan(fOut, "rowspan", rows);
        fOut.append("></td>");
    }

    /// The last row of the corner: titles of the row dimensions above their levels.
    void AppendCornerTitles()
    {
        unsigned level = 0;
        for (const GridHeader& title : fGrid.Rows().fCorner) {
            if (title.fLevel < level) continue;
            AppendBlank(title.fLevel - level, 1, /*isLast=*/true);
            fOut.append("<th scope=\"col\" class=\"last name\"");
            AppendSpan(fOut, "colspan", title.fLevels);
            fOut += '>';
            AppendLabel(title);
            fOut.append("</th>");
            level = title.fLevel + title.fLevels;
        }
        if (level < fGrid.Rows().fLevels)
            AppendBlank(fGrid.Rows().fLevels - level, 1, /*isLast=*/true);
    }

    void AppendHead()
    {
        const GridAxis& columns = fGrid.Columns();
        const bool hasTitles = !fGrid.Rows().fCorner.empty();
        const unsigned rows = fGrid.HeadRows();
        if (rows == 0) return;
        fOut.append("<thead>\n");
        auto header = columns.fHeaders.begin();
        for (unsigned level = 0; level < rows; ++level) {
            fOut.append("<tr>");
            if (level == 0)
                AppendBlank(fGrid.Rows().fLevels, hasTitles ? rows - 1 : rows, !hasTitles);
            if (hasTitles && level + 1 == rows) AppendCornerTitles();
            for (; header != columns.fHeaders.end() && header->fLevel == level; ++header)
                AppendColumnHeader(*header);
            if (columns.fLevels == 0) AppendBlank(columns.fLines, 1, /*isLast=*/true);
            fOut.append("</tr>\n");
        }
        fOut.append("</thead>\n");
    }

    void AppendRowHeader(const GridHeader& header)
    {
        const bool isOver = header.fLines > 1;
        fOut.append("<th scope=\"").append(isOver ? "rowgroup" : "row") += '"';
        AppendClass(fOut, {{isOver && header.fLine + header.fLines == Rows(), "end"},
                           {header.fLabel->fShown.size() > kLongLabel, "long"},
                           {header.fIsTitle, "name"}});
        AppendSpan(fOut, "colspan", header.fLevels);
        AppendSpan(fOut, "rowspan", header.fLines);
        fOut += '>';
        AppendLabel(header);
        fOut.append("</th>");
    }

    void AppendCells(std::size_t row)
    {
        std::size_t column = 0;
        for (const TableGrid::PlacedCell& placed : fGrid.RowCells(row)) {
            for (; column < placed.fColumn; ++column)
                fOut.append("<td></td>");
            const Text* content = placed.fCell->fContent.get();
            const bool isNumber = content ? IsNumber(*content) : fNumberColumns[column];
            const bool isLong = content && content->fShown.size() > kLongText;
            fOut.append("<td");
            AppendClass(fOut, {{isNumber, "number"}, {!isNumber, "text"}, {isLong, "long"}});
            fOut += '>';
            if (content) AppendMarkupText(fOut, content->fShown);
            AppendMarks(&placed.fCell->fNotes);
            fOut.append("</td>");
            ++column;
        }
        for (; column < fGrid.Columns().fLines; ++column)
            fOut.append("<td></td>");
    }

    /// Rows that an outermost header joins are a body of their own.
    void AppendBody()
    {
        const GridAxis& rows = fGrid.Rows();
        auto header = rows.fHeaders.begin();
        std::size_t joined = 0;  // rows under the last outermost header; 0 before the first
        for (std::size_t row = 0; row < rows.fLines; ++row) {
            const bool startsAny = header != rows.fHeaders.end() && header->fLine == row;
            const bool startsOuter = startsAny && header->fLevel == 0;
            const bool startsBody = startsOuter && (header->fLines > 1 || joined > 1);
            if (row == 0 || startsBody) fOut.append(row == 0 ? "<tbody>\n" : "</tbody>\n<tbody>\n");
            if (startsOuter) joined = header->fLines;
            const bool isPart = row > 0 && startsAny && header->fLines > 1;
            fOut.append(isPart ? "<tr class=\"part\">" : "<tr>");
            for (; header != rows.fHeaders.end() && header->fLine == row; ++header)
                AppendRowHeader(*header);
            AppendCells(row);
            fOut.append("</tr>\n");
        }
        fOut.append("</tbody>\n");
    }

    std::string& fOut;
    std::string_view fId;
    TableGrid fGrid;
    Footnotes fNotes;
    std::vector<std::size_t> fMarkCounts;  ///< of each note, for the ids of its marks
    std::vector<bool> fNumberColumns;
};

void AppendTitleLink(std::string& out, const TableNode& table, std::string_view id,
                     std::string_view language)
{
    out.append("<a href=\"#").append(id).append("\">");
    const std::string_view title = table.fTitle ? std::string_view(table.fTitle->fShown) : "";
    AppendMarkupText(out, title.empty() ? ReportWord(language, "untitled") : title);
    out.append("</a>");
}

std::size_t SizeOf(std::size_t rows)
{
    return 1 + static_cast<std::size_t>(std::ranges::count_if(
                   kSizeSteps, [rows](std::size_t step) { return rows >= step; }));
}

/// A number, or what one is below.
bool LooksNumeric(std::string_view text)
{
    static constexpr CharacterSet kOfNumbers("<+-.0123456789eE");
    return kOfNumbers.HasAll(text);
}

}  // namespace

void AppendTable(std::string& out, const TableNode& table, std::string_view id,
                 std::string_view language)
{
    TableMarkup markup(out, table, id);
    out.append("<figure class=\"table size").append(std::to_string(SizeOf(markup.Rows())));
    out.append("\" id=\"")
        .append(id)
        .append("\" aria-labelledby=\"")
        .append(id)
        .append("-name\">\n");
    if (markup.IsEmpty()) {
        out.append("<p class=\"title\" id=\"").append(id).append("-name\">");
        AppendTitleLink(out, table, id, language);
        out.append("</p>\n<p class=\"empty\">").append(ReportWord(language, "no-cells"));
        out.append("</p>\n");
    } else {
        out.append("<div class=\"box\"><table>\n<caption id=\"").append(id).append("-name\">");
        AppendTitleLink(out, table, id, language);
        out.append("</caption>\n");
        markup.AppendGrid();
        out.append("</table></div>\n");
    }
    out.append("<figcaption>");
    if (table.fCaption && !table.fCaption->fShown.empty()) {
        out.append("<p>");
        AppendMarkupText(out, table.fCaption->fShown);
        out.append("</p>\n");
    }
    markup.AppendNotes();
    out.append("</figcaption>\n</figure>\n");
}

void AppendDataTable(std::string& out, const DataSummary& data)
{
    std::vector<bool> numeric(data.fColumns.size(), true);
    for (const std::vector<std::string>& row : data.fRows)
        for (std::size_t column = 0; column < std::min(row.size(), numeric.size()); ++column)
            if (!LooksNumeric(row[column])) numeric[column] = false;
    out.append("<div class=\"box\" tabindex=\"0\"><table>\n<thead><tr>");
    for (std::size_t column = 0; column < numeric.size(); ++column) {
        out.append("<th scope=\"col\"").append(numeric[column] ? " class=\"number\">" : ">");
        AppendMarkupText(out, data.fColumns[column]);
        out.append("</th>");
    }
    out.append("</tr></thead>\n<tbody>\n");
    for (const std::vector<std::string>& row : data.fRows) {
        out.append("<tr>");
        for (std::size_t column = 0; column < numeric.size(); ++column) {
            out += numeric[column] ? "<td class=\"number\">"sv : "<td class=\"text\">"sv;
            if (column < row.size()) AppendMarkupText(out, row[column]);
            out += "</td>"sv;
        }
        out.append("</tr>\n");
    }
    out.append("</tbody></table></div>\n");
}

}  // namespace refhost
