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
    const auto found = std::find_if(fSources.begin(), fSources.end(),
                                    [&](const auto& entry) { return entry.fName == source; });
    return found == fSources.end() ? nullptr : &*found;
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

void VarDataProcessor::Impl::Set(std::string_view source, std::string_view column, int row,
                                 refhost::ChartValue value)
{
    refhost::ChartSource* const found = Find(source);
    if (!found || row < 0) return;
    const auto place = static_cast<std::size_t>(row);
    if (place > found->fRows + kLargestGap) return;
    refhost::ChartSource::Column* const entry = FindColumn(*found, column);
    if (!entry) return;
    found->fRows = std::max(found->fRows, place + 1);
    if (place == entry->fValues.size()) {
        entry->fValues.push_back(std::move(value));
        return;
    }
    if (place > entry->fValues.size()) entry->fValues.resize(place + 1);
    entry->fValues[place] = std::move(value);
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
    fImpl->Set(TextOf(source), TextOf(variable), row, value);
}

void VarDataProcessor::SetVariableValue(const _varinfo* info, int row, double value)
{
    if (info) fImpl->Set(info->fSource, info->fVariable, row, value);
}

void VarDataProcessor::SetStringVariableValue(const char* source, const char* variable, int row,
                                              const std::string& text)
{
    Impl::CountText(text);
    fImpl->Set(TextOf(source), TextOf(variable), row, text);
}
