#include "refhost/writers/Writers.h"

#include <algorithm>

#include "refhost/writers/ByteOutput.h"
#include "refhost/writers/HtmlWriter.h"
#include "refhost/writers/JsonWriter.h"
#include "refhost/writers/TextWriter.h"
#include "refhost/writers/XlsxWriter.h"

namespace refhost {

namespace {

std::unique_ptr<ByteOutput> OutputOf(const WriterSettings& settings)
{
    return std::make_unique<ByteOutput>(settings.fFile, settings.fName);
}

std::unique_ptr<OutputSink> Html(const WriterSettings& settings)
{
    return MakeHtmlWriter(OutputOf(settings));
}

std::unique_ptr<OutputSink> Text(const WriterSettings& settings)
{
    return MakeTextWriter(OutputOf(settings), settings.fTerminalWidth);
}

std::unique_ptr<OutputSink> Json(const WriterSettings& settings)
{
    return MakeJsonWriter(OutputOf(settings));
}

std::unique_ptr<OutputSink> Xlsx(const WriterSettings& settings)
{
    return std::make_unique<XlsxWriter>(settings.fFile, settings.fName);
}

// clang-format off
constexpr WriterRow kWriters[] = {
    {"html", ".html", /*fToStandardOutput=*/false, /*fShowsCharts=*/true,  Html},
    {"text", ".txt",  /*fToStandardOutput=*/true,  /*fShowsCharts=*/true,  Text},
    {"json", ".json", /*fToStandardOutput=*/true,  /*fShowsCharts=*/false, Json},
    {"xlsx", ".xlsx", /*fToStandardOutput=*/false, /*fShowsCharts=*/true,  Xlsx},
};
// clang-format on

}  // namespace

std::span<const WriterRow> Writers() { return kWriters; }

const WriterRow* FindWriter(std::string_view format)
{
    const auto* row = std::ranges::find(kWriters, format, &WriterRow::fFormat);
    return row != std::end(kWriters) ? row : nullptr;
}

}  // namespace refhost
