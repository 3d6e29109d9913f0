#pragma once

#include <string>
#include <vector>

#include "refhost/document/OutputNode.h"

#include "host/chart/VarDataProcessor.h"

/// The sources, column by column, as the output has them.
class VarDataProcessor::Impl {
public:
    void AddSource(const char* source);
    void AddColumn(const char* source, const char* column);

    /// Sets a value, unless it is passed over. Rows up to it are made.
    template <class Value>
    void Set(const char* source, const char* column, int row, const Value& value);

    /// Throws, with a report, where the charts of the split hold too much text.
    static void CountText(const std::string& text);

    const refhost::SharedList<refhost::ChartSource>& Sources() const { return fSources; }

private:
    // Null where there is none of that name. Names end with a zero byte, which saves a look at
    // their length for every value.
    refhost::ChartSource* Find(const char* source);
    refhost::ChartSource::Column* FindColumn(refhost::ChartSource& source, const char* name);

    /// Where a value for this row is to be put; null where it is passed over.
    refhost::ChartValue* PlaceFor(const char* source, const char* column, int row);

    refhost::SharedList<refhost::ChartSource> fSources;
    std::size_t fRecentSource = 0;  // of the last value, and most likely of the next
    std::size_t fNextColumn = 0;    // likewise: rows are set from left to right
};
