#pragma once

#include <string>
#include <vector>

#include "refhost/document/OutputSink.h"
#include "refhost/writers/XlsxBook.h"

namespace refhost {

/// Writes a workbook: first a sheet that lists all headings, tables and charts with links, then a
/// sheet for each table and each chart.
class XlsxWriter : public OutputSink {
public:
    /// Failures call the file by its `name`.
    XlsxWriter(const std::string& file, std::string name) : fBook(file, std::move(name)) {}

    void Begin(const RunStart& start) override;
    void BeginSplit(std::size_t) override {}
    void EndSplit() override {}
    void OpenHeading(TextRef label) override;
    void CloseHeading() override;
    void Node(OutputNodePtr&& node) override;
    void End(const RunEnd& end) override;

private:
    void Write(const TableNode& table);
    void Write(const ChartNode& chart);
    void Write(const ErrorNode& error);

    /// The labels of the open headings, joined.
    std::string Path() const;
    lxw_col_t Indent() const;

    /// Whether the outline has a row left for one more entry; counts those for which it hasn't.
    bool HasRoom();
    void List(const std::string& text);
    void ListSheet(const lxw_worksheet* sheet, const std::string& text);

    XlsxBook fBook;
    lxw_worksheet* fOutline = nullptr;
    lxw_row_t fRow = 0;
    std::size_t fLinks = 0;
    std::size_t fLeftOut = 0;  // entries of the outline
    std::string fLanguage;
    std::vector<std::string> fPaths;  // of the open headings, outermost first
};

}  // namespace refhost
