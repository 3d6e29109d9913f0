#include "refhost/writers/XlsxBook.h"

#include <fcntl.h>
#include <sys/resource.h>
#include <unistd.h>

#include <fmt/format.h>
#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <new>

#include "refhost/data/Characters.h"
#include "refhost/document/WriteFailure.h"
#include "refhost/writers/WellFormed.h"

namespace refhost {

namespace {

constexpr std::size_t kLongestSheetName = 31;
constexpr std::size_t kLongestCellText = 32767;
constexpr time_t kMade = 315532800;  // 1980, as its archive says: one job, the same bytes
constexpr std::uint32_t kHeaderGround = 0xEEF2F7;
constexpr std::uint32_t kLineColour = 0xB8C4D6;
constexpr std::uint32_t kFaintColour = 0x5A6675;
constexpr int kMostDecimals = 30;  // the file format's own limit

constexpr rlim_t kOtherFiles = 32;  // that the run and the library have open, and some more

/// Every sheet keeps a file open until the workbook ends. As many as may be open in this process,
/// whose limit is raised as far as it may be.
rlim_t MostSheets()
{
    rlimit limit{};
    if (getrlimit(RLIMIT_NOFILE, &limit) != 0) return RLIM_INFINITY;
    limit.rlim_cur = limit.rlim_max;
    setrlimit(RLIMIT_NOFILE, &limit);
    getrlimit(RLIMIT_NOFILE, &limit);
    return limit.rlim_cur > kOtherFiles ? limit.rlim_cur - kOtherFiles : 0;
}

/// The library says on standard error, in lines of its own, what it also returns.
class Silence {
public:
    Silence() : fKept(dup(STDERR_FILENO))
    {
        const int nothing = open("/dev/null", O_WRONLY | O_CLOEXEC);
        if (nothing >= 0) dup2(nothing, STDERR_FILENO);
        if (nothing >= 0) close(nothing);
    }
    ~Silence()
    {
        if (fKept >= 0) dup2(fKept, STDERR_FILENO);
        if (fKept >= 0) close(fKept);
    }
    Silence(const Silence&) = delete;
    Silence& operator=(const Silence&) = delete;

private:
    int fKept;
};

/// Empty where the file is a device or the like.
std::string FolderOfFile(const std::string& file)
{
    if (!std::filesystem::is_regular_file(file)) return {};
    const std::string folder = std::filesystem::path(file).parent_path().string();
    return folder.empty() ? "." : folder;
}

/// The front of a text that `units` hold, as the file format counts: a character beyond the basic
/// plane is two.
std::string_view Leading(std::string_view text, std::size_t units)
{
    if (text.size() <= units) return text;  // no character takes more units than bytes
    std::size_t end = 0;
    while (end < text.size()) {
        const Character character = FirstCharacter(text.substr(end));
        const std::size_t taken = character.fCode > 0xFFFF ? 2 : 1;
        if (taken > units) break;
        units -= taken;
        end += character.fBytes;
    }
    return text.substr(0, end);
}

/// A name holds none of these, and quotes only inside.
std::string SheetName(std::size_t number, std::string_view title)
{
    std::string name = fmt::format("{} {}", number, title);
    for (char& character : name)
        if (std::string_view("[]:*?/\\'").find(character) != std::string_view::npos ||
            static_cast<unsigned char>(character) < ' ')
            character = ' ';
    std::string scratch;
    std::string_view leading = Leading(WellFormed(name, scratch), kLongestSheetName);
    while (leading.ends_with(' '))
        leading.remove_suffix(1);
    return std::string(leading);
}

}  // namespace

XlsxBook::XlsxBook(const std::string& file, std::string name)
    : fName(std::move(name)), fMostSheets(MostSheets())
{
    std::string folder = FolderOfFile(file);
    lxw_workbook_options options{};
    options.constant_memory = LXW_TRUE;
    if (!folder.empty()) options.tmpdir = folder.data();
    fBook.reset(workbook_new_opt(file.c_str(), &options));
    if (!fBook) Fail("it can't be made");
    lxw_doc_properties properties{};
    properties.created = kMade;
    workbook_set_properties(fBook.get(), &properties);
    for (const Style style : {Style::Plain, Style::Title, Style::Faint, Style::Caption,
                              Style::ColumnHeader, Style::RowHeader, Style::Cell, Style::Link})
        fStyles.emplace(style, MakeStyle(style));
}

XlsxBook::~XlsxBook() = default;

lxw_worksheet* XlsxBook::AddSheet(std::string_view title)
{
    const std::string name =
        fSheets == 0 ? std::string(Leading(title, kLongestSheetName)) : SheetName(fSheets, title);
    // The library would say so in lines of its own.
    if (fSheets >= fMostSheets)
        Fail(fmt::format("it has a file open for each table, and no more than {} may be open",
                         fMostSheets));
    lxw_worksheet* sheet = workbook_add_worksheet(fBook.get(), name.c_str());
    if (!sheet) Fail("there is no room for one more table");
    ++fSheets;
    return sheet;
}

lxw_format* XlsxBook::MakeStyle(Style style)
{
    lxw_format* format = workbook_add_format(fBook.get());
    format_set_align(format, LXW_ALIGN_VERTICAL_TOP);
    switch (style) {
        case Style::Plain:
            break;
        case Style::Title:
            format_set_bold(format);
            format_set_font_size(format, 14);
            break;
        case Style::Faint:
            format_set_font_color(format, kFaintColour);
            break;
        case Style::Caption:
            format_set_italic(format);
            break;
        case Style::ColumnHeader:
        case Style::RowHeader:
            format_set_bold(format);
            format_set_bg_color(format, kHeaderGround);
            if (style == Style::ColumnHeader) format_set_align(format, LXW_ALIGN_CENTER);
            [[fallthrough]];
        case Style::Cell:
            format_set_text_wrap(format);
            format_set_border(format, LXW_BORDER_THIN);
            format_set_border_color(format, kLineColour);
            break;
        case Style::Link:
            format_set_font_color(format, LXW_COLOR_BLUE);
            format_set_underline(format, LXW_UNDERLINE_SINGLE);
            break;
    }
    return format;
}

lxw_format* XlsxBook::Format(Style style) const { return fStyles.at(style); }

lxw_format* XlsxBook::NumberFormat(int decimals, const std::string& marks)
{
    auto [place, isNew] = fNumberFormats.try_emplace({decimals, marks}, nullptr);
    if (!isNew) return place->second;
    std::string pattern = "0";
    if (decimals > 0)
        pattern +=
            "." + std::string(static_cast<std::size_t>(std::min(decimals, kMostDecimals)), '0');
    if (!marks.empty()) pattern += fmt::format("\" ({})\"", marks);
    lxw_format* format = MakeStyle(Style::Cell);
    format_set_num_format(format, pattern.c_str());
    format_set_align(format, LXW_ALIGN_RIGHT);
    place->second = format;
    return format;
}

/// The library doesn't look at what becomes of its writes.
void XlsxBook::CheckSheets() const
{
    const lxw_worksheet* sheet = nullptr;
    STAILQ_FOREACH(sheet, fBook->worksheets, list_pointers)
    {
        std::FILE* const rows = sheet->optimize_tmpfile;
        if (rows && (std::fflush(rows) != 0 || std::ferror(rows) != 0)) Fail(std::strerror(errno));
    }
}

void XlsxBook::Fail(std::string_view reason) const
{
    throw WriteFailure(fmt::format("{} can't be written: {}", fName, reason));
}

void XlsxBook::Close()
{
    CheckSheets();
    const lxw_error error = [this] {
        const Silence silence;
        return workbook_close(fBook.release());
    }();
    if (error != LXW_NO_ERROR) Fail(lxw_strerror(error));
}

void WriteText(lxw_worksheet* sheet, lxw_row_t row, lxw_col_t column, std::string_view text,
               lxw_format* format)
{
    std::string scratch;
    text = WellFormed(text, scratch);
    std::string content(Leading(text, kLongestCellText));
    if (content.size() < text.size()) content.assign(Leading(text, kLongestCellText - 1)) += "…";
    worksheet_write_string(sheet, row, column, content.c_str(), format);
}

void JoinCells(lxw_worksheet* sheet, lxw_row_t firstRow, lxw_col_t firstColumn, lxw_row_t lastRow,
               lxw_col_t lastColumn)
{
    if (firstRow == lastRow && firstColumn == lastColumn) return;
    // The library's own call writes blanks into all cells of the range, and a row that is on disk
    // takes none; the list of ranges is all that the file needs. The library frees the entry.
    auto* range = static_cast<lxw_merged_range*>(std::calloc(1, sizeof(lxw_merged_range)));
    if (!range) throw std::bad_alloc();
    range->first_row = firstRow;
    range->first_col = firstColumn;
    range->last_row = lastRow;
    range->last_col = lastColumn;
    STAILQ_INSERT_TAIL(sheet->merged_ranges, range, list_pointers);
    sheet->merged_range_count++;
}

}  // namespace refhost
