#include "refhost/writers/ChartFiles.h"

#include <cstdio>
#include <filesystem>
#include <string_view>

#include <fmt/format.h>

#include "refhost/document/WriteFailure.h"
#include "refhost/plot/ResolveChart.h"
#include "refhost/plot/ResolvedChart.h"
#include "refhost/vega/VegaLiteWriter.h"
#include "refhost/writers/ByteOutput.h"
#include "refhost/writers/ReportWords.h"

namespace refhost {

namespace {

constexpr std::size_t kLongestName = 60;

/// Lower-case letters and digits of a title, parted by hyphens; other characters are no part of a
/// file's name.
std::string NamePart(std::string_view title)
{
    std::string name;
    for (const char character : title.substr(0, kLongestName)) {
        const bool isUpper = character >= 'A' && character <= 'Z';
        const bool isLower = character >= 'a' && character <= 'z';
        const bool isDigit = character >= '0' && character <= '9';
        if (isUpper)
            name += static_cast<char>(character - 'A' + 'a');
        else if (isLower || isDigit)
            name += character;
        else if (!name.empty() && name.back() != '-')
            name += '-';
    }
    while (name.ends_with('-'))
        name.pop_back();
    return name.empty() ? "chart" : name;
}

/// Beside its place and then into it, so that no half file is taken for a whole one.
void WriteWhole(const std::string& file, std::string_view text)
{
    const std::string unfinished = file + ".part";
    try {
        ByteOutput output(unfinished, file);
        output.Write(text);
        output.Put('\n');
        output.Close();
        std::error_code error;
        std::filesystem::rename(unfinished, file, error);
        if (error) throw WriteFailure(fmt::format("can't write {}: {}", file, error.message()));
    } catch (...) {
        std::remove(unfinished.c_str());
        throw;
    }
}

}  // namespace

ChartFiles::ChartFiles(const std::string& folder, std::unique_ptr<OutputSink> next)
    : fFolder(folder), fNext(std::move(next))
{
    std::error_code error;
    std::filesystem::create_directories(folder, error);
    if (error) throw WriteFailure(fmt::format("{} can't be made: {}", folder, error.message()));
}

void ChartFiles::Begin(const RunStart& start)
{
    fLanguage = start.fLanguage;
    fNext->Begin(start);
}

void ChartFiles::BeginSplit(std::size_t split) { fNext->BeginSplit(split); }

void ChartFiles::EndSplit() { fNext->EndSplit(); }

void ChartFiles::OpenHeading(TextRef label) { fNext->OpenHeading(std::move(label)); }

void ChartFiles::CloseHeading() { fNext->CloseHeading(); }

void ChartFiles::Node(OutputNodePtr&& node)
{
    if (const auto* chart = std::get_if<ChartNode>(&node->fContent)) WriteChart(*chart);
    fNext->Node(std::move(node));
}

void ChartFiles::End(const RunEnd& end) { fNext->End(end); }

void ChartFiles::WriteChart(const ChartNode& chart)
{
    ++fCharts;
    const std::unique_ptr<ResolvedChart> resolved = ResolveChart(chart, WordsOfPlots(fLanguage));
    if (!resolved) return;
    const std::string name = fmt::format("{:03}-{}.vl.json", fCharts, NamePart(chart.fTitle));
    WriteWhole((std::filesystem::path(fFolder) / name).string(), VegaLiteFile(*resolved));
}

}  // namespace refhost
