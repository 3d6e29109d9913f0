#include "refhost/writers/TerminalTable.h"

#include <algorithm>
#include <numeric>

#include "refhost/document/OutputNode.h"
#include "refhost/writers/BoxDrawing.h"
#include "refhost/writers/ByteOutput.h"
#include "refhost/writers/Footnotes.h"
#include "refhost/writers/TableGrid.h"
#include "refhost/writers/TerminalText.h"

namespace refhost {

namespace {

constexpr std::size_t kWordThatIsKept = 20;  // longer ones may be broken to make a column narrow
constexpr std::size_t kLeastWidth = 4;

/// What a column takes at its best, and at least.
struct ColumnNeed {
    std::size_t fNatural = 0;
    std::size_t fLeast = 0;
    std::size_t fNumber = 0;  // widest number, without marks
    std::size_t fMarks = 0;   // widest marks of a number
    bool fHasTexts = false;

    void Take(std::size_t natural, std::size_t least)
    {
        fNatural = std::max(fNatural, natural);
        fLeast = std::max(fLeast, std::min(least, natural));
    }
};

/// Widths between what is best and what is least that sum up to no more than `available`, where
/// that can be; the widest columns give way first.
std::vector<std::size_t> FitWidths(const std::vector<ColumnNeed>& needs, std::size_t available)
{
    const auto sumAt = [&needs](std::size_t limit) {
        return std::accumulate(needs.begin(), needs.end(), std::size_t{0},
                               [limit](std::size_t sum, const ColumnNeed& need) {
                                   return sum +
                                          std::min(need.fNatural, std::max(need.fLeast, limit));
                               });
    };
    std::size_t fits = 0;
    std::size_t tooMuch = 1;
    for (const ColumnNeed& need : needs)
        tooMuch = std::max(tooMuch, need.fNatural + 1);
    while (tooMuch - fits > 1) {
        const std::size_t limit = std::midpoint(fits, tooMuch);
        (sumAt(limit) <= available ? fits : tooMuch) = limit;
    }
    std::vector<std::size_t> widths;
    widths.reserve(needs.size());
    for (const ColumnNeed& need : needs)
        widths.push_back(
            std::max<std::size_t>(1, std::min(need.fNatural, std::max(need.fLeast, fits))));
    return widths;
}

/// Gives the last of some columns what their common header needs beyond all of them.
void WidenForSpan(std::vector<ColumnNeed>& needs, std::size_t first, std::size_t count,
                  std::size_t natural, std::size_t least)
{
    std::size_t best = kCellFrame * (count - 1);
    std::size_t smallest = best;
    for (std::size_t column = first; column < first + count; ++column) {
        best += needs[column].fNatural;
        smallest += needs[column].fLeast;
    }
    ColumnNeed& last = needs[first + count - 1];
    if (natural > best) last.fNatural += natural - best;
    if (least > smallest) last.fLeast = std::min(last.fNatural, last.fLeast + least - smallest);
}

class TableDrawing {
public:
    TableDrawing(const TableNode& table, std::size_t width, ByteOutput& output)
        : fTable(table),
          fWidth(width),
          fOutput(output),
          fGrid(table),
          fFootnotes(fGrid),
          fLevels(fGrid.Rows().fLevels),
          fKeptWord(std::clamp(width / (fLevels + 1), kLeastWidth + kCellFrame,
                               kWordThatIsKept + kCellFrame) -
                    kCellFrame)
    {
    }

    void Write()
    {
        if (fTable.fTitle) Paragraph("", Printable(fTable.fTitle->fShown));
        if (fGrid.Rows().fLines > 0 && fGrid.Columns().fLines > 0) WriteBoxes();
        if (fTable.fCaption) Paragraph("", Printable(fTable.fCaption->fShown));
        for (std::size_t place = 0; place < fFootnotes.Notes().size(); ++place)
            Paragraph(FootnoteLetter(place) + ". ", Printable(fFootnotes.Notes()[place]->fShown));
    }

private:
    /// Columns of the grid that are drawn in one box: from the first up to the last, exclusive.
    struct Band {
        std::size_t fFirst;
        std::size_t fLast;
    };

    // --- texts ---

    std::string Marks(const std::vector<TextRef>* notes) const
    {
        const std::string letters = notes ? fFootnotes.Marks(*notes) : std::string();
        return letters.empty() ? letters : "[" + letters + "]";
    }

    std::string Label(const GridHeader& header) const
    {
        return Printable(header.fLabel->fShown) + Marks(header.fNotes);
    }

    static std::string Content(const PivotCell& cell)
    {
        return cell.fContent ? Printable(cell.fContent->fShown) : std::string();
    }

    static bool HoldsNumber(const PivotCell& cell)
    {
        return cell.fContent && IsNumber(*cell.fContent);
    }

    void Paragraph(const std::string& lead, const std::string& text)
    {
        const std::size_t room = fWidth > lead.size() ? fWidth - lead.size() : 1;
        std::string before = lead;
        for (const std::string& line : WrapText(text, room)) {
            fOutput.Write(before);
            fOutput.Write(line);
            fOutput.Put('\n');
            before.assign(lead.size(), ' ');
        }
    }

    // --- widths ---

    std::size_t Least(std::string_view text) const
    {
        return std::min(LongestWord(text), fKeptWord);
    }

    void MeasureHeader(const GridHeader& header, std::size_t first, std::size_t count, bool mayWrap)
    {
        const std::string label = Label(header);
        const std::size_t least = Least(label);
        const std::size_t natural = mayWrap ? least : DisplayWidth(label);
        if (count == 1) {
            fNeeds[first].Take(natural, least);
        } else {
            WidenForSpan(fNeeds, first, count, natural, least);
        }
    }

    void MeasureCell(const TableGrid::PlacedCell& placed)
    {
        ColumnNeed& need = fNeeds[fLevels + placed.fColumn];
        const std::string content = Content(*placed.fCell);
        const std::string marks = Marks(&placed.fCell->fNotes);
        if (HoldsNumber(*placed.fCell)) {
            need.fNumber = std::max(need.fNumber, DisplayWidth(content));
            need.fMarks = std::max(need.fMarks, marks.size());
        } else {
            need.fHasTexts = true;
            need.Take(DisplayWidth(content) + marks.size(), Least(content + marks));
        }
    }

    /// Headers that reach over several columns come last: they add to what these have.
    void Measure()
    {
        fNeeds.resize(fLevels + fGrid.Columns().fLines);
        for (std::size_t row = 0; row < fGrid.Rows().fLines; ++row)
            for (const TableGrid::PlacedCell& cell : fGrid.RowCells(row))
                MeasureCell(cell);
        for (ColumnNeed& need : fNeeds) {
            const std::size_t numbers = need.fNumber + need.fMarks;
            need.Take(numbers, numbers);
        }
        for (const bool spans : {false, true}) {
            for (const auto* headers : {&fGrid.Rows().fHeaders, &fGrid.Rows().fCorner})
                for (const GridHeader& header : *headers)
                    if ((header.fLevels > 1) == spans)
                        MeasureHeader(header, header.fLevel, header.fLevels, /*mayWrap=*/false);
            for (const GridHeader& header : fGrid.Columns().fHeaders)
                if ((header.fLines > 1) == spans)
                    MeasureHeader(header, fLevels + header.fLine, header.fLines, spans);
        }
    }

    /// The columns that fit beside the row headers, at least one.
    Band NextBand(std::size_t first) const
    {
        std::size_t taken = 1;
        for (std::size_t level = 0; level < fLevels; ++level)
            taken += fNeeds[level].fLeast + kCellFrame;
        std::size_t last = first;
        while (last < fGrid.Columns().fLines) {
            taken += fNeeds[fLevels + last].fLeast + kCellFrame;
            if (taken > fWidth && last > first) break;
            ++last;
        }
        return {first, last};
    }

    std::vector<ColumnNeed> NeedsOf(const Band& band) const
    {
        const auto begin = fNeeds.begin();
        const auto at = [begin](std::size_t place) {
            return begin + static_cast<std::ptrdiff_t>(place);
        };
        std::vector<ColumnNeed> needs(begin, at(fLevels));
        needs.insert(needs.end(), at(fLevels + band.fFirst), at(fLevels + band.fLast));
        return needs;
    }

    // --- boxes ---

    void WriteBoxes()
    {
        Measure();
        SortHeadersByLevel();
        for (Band band{0, 0}; band.fLast < fGrid.Columns().fLines;) {
            band = NextBand(band.fLast);
            WriteBox(band);
        }
    }

    void WriteBox(const Band& band)
    {
        const std::vector<ColumnNeed> needs = NeedsOf(band);
        const std::size_t frame = kCellFrame * needs.size() + 1;
        const std::vector<std::size_t> widths =
            FitWidths(needs, fWidth > frame ? fWidth - frame : 0);
        fWraps = false;
        for (std::size_t column = 0; column < needs.size(); ++column)
            fWraps = fWraps || widths[column] < needs[column].fNatural;
        const BoxDrawing drawing(widths);
        BoxRow above;
        for (std::size_t level = 0; level < fGrid.HeadRows(); ++level)
            Draw(drawing, HeaderRow(drawing, band, level), /*ruled=*/true, above);
        WriteBody(drawing, band, above);
        fLine.clear();
        drawing.AppendRule(&above, nullptr, fLine);
        fOutput.Write(fLine);
    }

    /// Draws a row, with a rule before it or not; it becomes the row above of the next one.
    void Draw(const BoxDrawing& drawing, BoxRow row, bool ruled, BoxRow& above)
    {
        fLine.clear();
        if (ruled) drawing.AppendRule(above.empty() ? nullptr : &above, &row, fLine);
        drawing.AppendRow(row, fLine);
        fOutput.Write(fLine);
        above = std::move(row);
    }

    void SortHeadersByLevel()
    {
        fHeadersOfLevel.resize(fGrid.Columns().fLevels);
        for (const GridHeader& header : fGrid.Columns().fHeaders)
            for (unsigned level = 0; level < header.fLevels; ++level)
                fHeadersOfLevel[header.fLevel + level].push_back(&header);
        for (auto& headers : fHeadersOfLevel)
            std::ranges::sort(headers, {}, [](const GridHeader* header) { return header->fLine; });
    }

    BoxRow HeaderRow(const BoxDrawing& drawing, const Band& band, std::size_t level) const
    {
        BoxRow row = CornerRow(drawing, level + 1 == fGrid.HeadRows());
        if (level >= fHeadersOfLevel.size()) {  // titles of rows only
            row.push_back({.fColumn = fLevels, .fColumns = band.fLast - band.fFirst, .fLines = {}});
            return row;
        }
        for (const GridHeader* header : fHeadersOfLevel[level]) {
            const std::size_t first = std::max(header->fLine, band.fFirst);
            const std::size_t last = std::min(header->fLine + header->fLines, band.fLast);
            if (first >= last) continue;
            BoxCell& cell = row.emplace_back();
            cell.fColumn = fLevels + first - band.fFirst;
            cell.fColumns = last - first;
            cell.fJoinsBelow = level + 1 < header->fLevel + header->fLevels;
            const ColumnNeed& need = fNeeds[fLevels + first];
            cell.fAlign = need.fHasTexts || need.fNumber == 0 ? BoxAlign::Left : BoxAlign::Right;
            if (cell.fColumns > 1) cell.fAlign = BoxAlign::Center;
            if (cell.fJoinsBelow) continue;  // the label stands at the bottom
            cell.fLines = WrapText(Label(*header), drawing.InnerWidth(cell.fColumn, cell.fColumns));
        }
        return row;
    }

    /// The part of a header row above the row headers; titles stand in the last one.
    BoxRow CornerRow(const BoxDrawing& drawing, bool isLast) const
    {
        BoxRow row;
        std::size_t level = 0;
        const auto fill = [&row, &level, isLast](std::size_t upTo) {
            if (level >= upTo) return;
            row.push_back(
                {.fColumn = level, .fColumns = upTo - level, .fJoinsBelow = !isLast, .fLines = {}});
            level = upTo;
        };
        for (const GridHeader& title : fGrid.Rows().fCorner) {
            fill(title.fLevel);
            fill(title.fLevel + title.fLevels);
            if (isLast)
                row.back().fLines =
                    WrapText(Label(title), drawing.InnerWidth(title.fLevel, title.fLevels));
        }
        fill(fLevels);
        return row;
    }

    // --- body ---

    /// A row header whose label is being written beside the rows that it reaches over.
    struct RunningHeader {
        const GridHeader* fHeader = nullptr;
        std::vector<std::string> fLines;
        std::size_t fWritten = 0;

        bool EndsAt(std::size_t row) const { return fHeader->fLine + fHeader->fLines == row + 1; }
        std::size_t Rest() const { return fLines.size() - fWritten; }
    };

    void WriteBody(const BoxDrawing& drawing, const Band& band, BoxRow& above)
    {
        std::vector<RunningHeader> running;
        auto next = fGrid.Rows().fHeaders.begin();
        std::size_t outerLines = 1;  // rows of the outermost header before
        for (std::size_t row = 0; row < fGrid.Rows().fLines; ++row) {
            std::erase_if(running, [row](const RunningHeader& header) {
                return header.fHeader->fLine + header.fHeader->fLines <= row;
            });
            bool outerBegins = false;
            for (; next != fGrid.Rows().fHeaders.end() && next->fLine == row; ++next) {
                const std::size_t room = drawing.InnerWidth(next->fLevel, next->fLevels);
                running.push_back({&*next, WrapText(Label(*next), room)});
                if (next->fLevel > 0) continue;
                outerBegins = next->fLines > 1 || outerLines > 1;
                outerLines = next->fLines;
            }
            std::ranges::sort(running, {},
                              [](const RunningHeader& header) { return header.fHeader->fLevel; });
            Draw(drawing, BodyRow(drawing, band, row, running), row == 0 || fWraps || outerBegins,
                 above);
        }
    }

    BoxRow BodyRow(const BoxDrawing& drawing, const Band& band, std::size_t row,
                   std::vector<RunningHeader>& running) const
    {
        BoxRow cells = DataCells(drawing, band, row);
        std::size_t height = 1;
        for (const BoxCell& cell : cells)
            height = std::max(height, cell.fLines.size());
        for (const RunningHeader& header : running)
            if (header.EndsAt(row)) height = std::max(height, header.Rest());
        BoxRow drawn;
        for (RunningHeader& header : running) {
            BoxCell& cell = drawn.emplace_back();
            cell.fColumn = header.fHeader->fLevel;
            cell.fColumns = header.fHeader->fLevels;
            cell.fJoinsBelow = !header.EndsAt(row);
            const std::size_t count = std::min(height, header.Rest());
            for (std::size_t line = 0; line < count; ++line)
                cell.fLines.push_back(std::move(header.fLines[header.fWritten++]));
        }
        drawn.insert(drawn.end(), std::make_move_iterator(cells.begin()),
                     std::make_move_iterator(cells.end()));
        return drawn;
    }

    BoxRow DataCells(const BoxDrawing& drawing, const Band& band, std::size_t row) const
    {
        BoxRow cells(band.fLast - band.fFirst);
        for (std::size_t column = 0; column < cells.size(); ++column)
            cells[column].fColumn = fLevels + column;
        const auto placed = fGrid.RowCells(row);
        for (auto at =
                 std::ranges::lower_bound(placed, band.fFirst, {}, &TableGrid::PlacedCell::fColumn);
             at != placed.end() && at->fColumn < band.fLast; ++at) {
            BoxCell& cell = cells[at->fColumn - band.fFirst];
            std::string marks = Marks(&at->fCell->fNotes);
            if (HoldsNumber(*at->fCell)) {
                cell.fAlign = BoxAlign::Right;
                marks.resize(fNeeds[fLevels + at->fColumn].fMarks, ' ');  // numbers stand in line
                cell.fLines = {Content(*at->fCell) + marks};
            } else {
                cell.fLines =
                    WrapText(Content(*at->fCell) + marks, drawing.InnerWidth(cell.fColumn, 1));
            }
        }
        return cells;
    }

    const TableNode& fTable;
    std::size_t fWidth;
    ByteOutput& fOutput;
    TableGrid fGrid;
    Footnotes fFootnotes;
    std::size_t fLevels;    // of row headers
    std::size_t fKeptWord;  // words up to this width are not broken
    std::vector<ColumnNeed> fNeeds;
    std::vector<std::vector<const GridHeader*>> fHeadersOfLevel;
    bool fWraps = false;  // a cell of the box takes several lines
    std::string fLine;
};

}  // namespace

void WriteTerminalTable(const TableNode& table, int terminalWidth, ByteOutput& output)
{
    TableDrawing(table, static_cast<std::size_t>(std::max(terminalWidth, 1)), output).Write();
}

}  // namespace refhost
