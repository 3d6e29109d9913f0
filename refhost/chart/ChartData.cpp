#include "refhost/chart/ChartData.h"

#include <algorithm>
#include <cstring>
#include <stdexcept>
#include <utility>
#include <vector>

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

const char* TextOf(const char* text) { return text ? text : ""; }

bool Equals(const std::string& name, const char* other)
{
    return std::strcmp(name.c_str(), other) == 0;
}

}  // namespace

refhost::ChartSource* VarDataProcessor::Impl::Find(const char* source)
{
    std::vector<refhost::ChartSource>& sources = fSources.Own();
    if (fRecentSource < sources.size() && Equals(sources[fRecentSource].fName, source))
        return &sources[fRecentSource];
    const auto found = std::ranges::find_if(
        sources, [source](const auto& candidate) { return Equals(candidate.fName, source); });
    if (found == sources.end()) return nullptr;
    fRecentSource = static_cast<std::size_t>(found - sources.begin());
    return &*found;
}

refhost::ChartSource::Column* VarDataProcessor::Impl::FindColumn(refhost::ChartSource& source,
                                                                 const char* name)
{
    const std::size_t count = source.fColumns.size();
    std::size_t place = fNextColumn;
    for (std::size_t step = 0; step < count; ++step, ++place) {
        if (place >= count) place = 0;
        if (!Equals(source.fColumns[place].fName, name)) continue;
        fNextColumn = place + 1;
        return &source.fColumns[place];
    }
    return nullptr;
}

void VarDataProcessor::Impl::AddSource(const char* source)
{
    if (!Find(source)) fSources.Own().push_back({source, {}, 0});
}

void VarDataProcessor::Impl::AddColumn(const char* source, const char* column)
{
    refhost::ChartSource* const found = Find(source);
    if (!found) return;
    for (const auto& existing : found->fColumns) {
        if (Equals(existing.fName, column)) return;
    }
    found->fColumns.push_back({column, {}});
}

refhost::ChartValue* VarDataProcessor::Impl::PlaceFor(const char* source, const char* column,
                                                      int row)
{
    refhost::ChartSource* const found = Find(source);
    if (!found || row < 0) return nullptr;
    const auto place = static_cast<std::size_t>(row);
    if (place > found->fRows + kLargestGap) return nullptr;
    refhost::ChartSource::Column* const entry = FindColumn(*found, column);
    if (!entry) return nullptr;
    if (place >= found->fRows) found->fRows = place + 1;
    std::vector<refhost::ChartValue>& values = entry->fValues;
    if (place < values.size()) return &values[place];
    if (values.empty()) values.reserve(kUsualRows);
    if (place > values.size()) values.resize(place);
    return &values.emplace_back();
}

template <class Value>
void VarDataProcessor::Impl::Set(const char* source, const char* column, int row,
                                 const Value& value)
{
    if (refhost::ChartValue* const place = PlaceFor(source, column, row)) *place = value;
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
    if (info) *info = {TextOf(source), TextOf(variable)};
}

void VarDataProcessor::SetVariableValue(const char* source, const char* variable, int row,
                                        double value)
{
    fImpl->Set(TextOf(source), TextOf(variable), row, value);
}

void VarDataProcessor::SetVariableValue(const _varinfo* info, int row, double value)
{
    if (info) fImpl->Set(info->fSource.c_str(), info->fVariable.c_str(), row, value);
}

void VarDataProcessor::SetStringVariableValue(const char* source, const char* variable, int row,
                                              const std::string& text)
{
    Impl::CountText(text);
    fImpl->Set(TextOf(source), TextOf(variable), row, text);
}
