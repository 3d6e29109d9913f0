#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "refhost/document/OutputNode.h"

#include "host/chart/VarDataProcessor.h"

/// The sources, column by column, as the output has them.
class VarDataProcessor::Impl {
public:
    void AddSource(std::string_view source);
    void AddColumn(std::string_view source, std::string_view column);

    /// Where a value goes; null where it is passed over. Rows up to it are made.
    refhost::ChartValue* PlaceFor(std::string_view source, std::string_view column, int row);

    /// Throws, with a report, where the charts of the split hold too much text.
    static void CountText(const std::string& text);

    const std::vector<refhost::ChartSource>& Sources() const { return fSources; }

private:
    /// Null where there is none of that name.
    refhost::ChartSource* Find(std::string_view source);
    refhost::ChartSource::Column* FindColumn(refhost::ChartSource& source, std::string_view name);

    std::vector<refhost::ChartSource> fSources;
    std::size_t fRecentSource = 0;  // of the last value, and most likely of the next
    std::size_t fNextColumn = 0;    // likewise: rows are set from left to right
};
