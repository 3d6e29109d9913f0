#pragma once

#include <string>

#include "refhost/document/OutputSink.h"
#include "refhost/writers/XlsxBook.h"

namespace refhost {

/// Writes a workbook: first a sheet that lists all headings, tables and charts with links, then a
/// sheet for each table and each chart.
class XlsxWriter : public OutputSink {
public:
    explicit XlsxWriter(const std::string& file) : fBook(file) {}

    void Begin(const RunStart& start) override;
    void Node(OutputNodePtr node) override;
    void End(const RunEnd& end) override;

private:
    void Write(const OutputNode& node, const std::string& path, int depth);
    void WriteHeading(const HeadingNode& heading, const std::string& path, int depth);
    void WriteTable(const TableNode& table, const std::string& path, int depth);
    void WriteChart(const ChartNode& chart, const std::string& path, int depth);

    void List(const std::string& text, int depth);
    void ListSheet(const lxw_worksheet* sheet, const std::string& text, int depth);

    XlsxBook fBook;
    lxw_worksheet* fOutline = nullptr;
    lxw_row_t fRow = 0;
    std::size_t fLinks = 0;
    std::string fLanguage;
};

}  // namespace refhost
