#include "refhost/chart/ChartData.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

#include <fmt/format.h>

#include "refhost/document/HostRun.h"
#include "refhost/document/OutputBuilder.h"

namespace {

// Rows are filled one after the other. A number far beyond them is no row but a mistake, and must
// not cost the memory of all the rows before it.
constexpr std::size_t kLargestGap = 4096;

// Room for the rows of most charts, so that their columns grow once.
constexpr std::size_t kUsualRows = 32;

// A stacked bar says at each of its segments what the whole bar holds, so texts grow with the
// square of a document. Labels don't count.
constexpr std::size_t kMostText = std::size_t{64} << 20U;
constexpr std::size_t kLongestLabel = 256;
constexpr int kShown = 2;    // as the plug-in reports
constexpr int kWarning = 2;  // likewise

std::string_view TextOf(const char* text) { return text ? text : ""; }

}  // namespace

refhost::ChartSource* VarDataProcessor::Impl::Find(std::string_view source)
{
    if (fRecentSource < fSources.size() && fSources[fRecentSource].fName == source)
        return &fSources[fRecentSource];
    const auto found = std::ranges::find(fSources, source, &refhost::ChartSource::fName);
    if (found == fSources.end()) return nullptr;
    fRecentSource = static_cast<std::size_t>(found - fSources.begin());
    return &*found;
}

refhost::ChartSource::Column* VarDataProcessor::Impl::FindColumn(refhost::ChartSource& source,
                                                                 std::string_view name)
{
    const std::size_t count = source.fColumns.size();
    std::size_t place = fNextColumn;
    for (std::size_t step = 0; step < count; ++step, ++place) {
        if (place >= count) place = 0;
        if (source.fColumns[place].fName != name) continue;
        fNextColumn = place + 1;
        return &source.fColumns[place];
    }
    return nullptr;
}

void VarDataProcessor::Impl::AddSource(std::string_view source)
{
    if (!Find(source)) fSources.push_back({std::string(source), {}, 0});
}

void VarDataProcessor::Impl::AddColumn(std::string_view source, std::string_view column)
{
    refhost::ChartSource* const found = Find(source);
    if (!found) return;
    for (const auto& existing : found->fColumns) {
        if (existing.fName == column) return;
    }
    found->fColumns.push_back({std::string(column), {}});
}

refhost::ChartValue* VarDataProcessor::Impl::PlaceFor(std::string_view source,
                                                      std::string_view column, int row)
{
    refhost::ChartSource* const found = Find(source);
    if (!found || row < 0) return nullptr;
    const auto place = static_cast<std::size_t>(row);
    if (place > found->fRows + kLargestGap) return nullptr;
    refhost::ChartSource::Column* const entry = FindColumn(*found, column);
    if (!entry) return nullptr;
    found->fRows = std::max(found->fRows, place + 1);
    std::vector<refhost::ChartValue>& values = entry->fValues;
    if (values.empty()) values.reserve(kUsualRows);
    if (place == values.size()) return &values.emplace_back();
    if (place > values.size()) values.resize(place + 1);
    return &values[place];
}

void VarDataProcessor::Impl::CountText(const std::string& text)
{
    if (text.size() <= kLongestLabel) return;
    refhost::HostRun& run = refhost::HostRun::Current();
    run.fChartText += text.size();
    if (run.fChartText <= kMostText) return;
    run.fChartText -= std::min(run.fChartText, text.size());
    const std::string reason = fmt::format(
        "A chart is left out: the texts of the charts would "
        "take more than {} MB.",
        kMostText >> 20U);
    if (run.fOutput) {
        auto node = std::make_unique<refhost::OutputNode>();
        node->fContent = refhost::ErrorNode{reason, kShown, kWarning};
        run.fOutput->Add(std::move(node));
    }
    throw std::length_error(reason);
}

VarDataProcessor::VarDataProcessor() : fImpl(std::make_unique<Impl>()) {}

VarDataProcessor::~VarDataProcessor() = default;

void VarDataProcessor::AddDataSource(const char* source, int /*kind*/)
{
    fImpl->AddSource(TextOf(source));
}

void VarDataProcessor::AddVariable(const char* source, const char* variable, _varinfo* info)
{
    fImpl->AddColumn(TextOf(source), TextOf(variable));
    if (info) *info = {std::string(TextOf(source)), std::string(TextOf(variable))};
}

void VarDataProcessor::SetVariableValue(const char* source, const char* variable, int row,
                                        double value)
{
    if (auto* const place = fImpl->PlaceFor(TextOf(source), TextOf(variable), row)) *place = value;
}

void VarDataProcessor::SetVariableValue(const _varinfo* info, int row, double value)
{
    if (!info) return;
    if (auto* const place = fImpl->PlaceFor(info->fSource, info->fVariable, row)) *place = value;
}

void VarDataProcessor::SetStringVariableValue(const char* source, const char* variable, int row,
                                              const std::string& text)
{
    Impl::CountText(text);
    if (auto* const place = fImpl->PlaceFor(TextOf(source), TextOf(variable), row)) *place = text;
}
