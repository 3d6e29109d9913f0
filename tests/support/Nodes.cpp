#include "support/Nodes.h"

#include "refhost/writers/ByteOutput.h"
#include "refhost/writers/HtmlWriter.h"

namespace refhost::test {

TextRef Words(std::string text)
{
    Text words;
    words.fPassed = TextString{text};
    words.fShown = std::move(text);
    return std::make_shared<const Text>(std::move(words));
}

TextRef Number(double number, std::string shown)
{
    Text text;
    text.fPassed = TextNumber{number, NumberFormat::Coefficient, 3};
    text.fShown = std::move(shown);
    return std::make_shared<const Text>(std::move(text));
}

PivotItem Category(std::string label, std::vector<TextRef> notes)
{
    PivotItem item;
    item.fLabel = Words(std::move(label));
    item.fNotes = std::move(notes);
    return item;
}

PivotItem Group(std::string label, std::vector<PivotItem> items)
{
    PivotItem group;
    group.fIsGroup = true;
    group.fLabel = Words(std::move(label));
    group.fItems = std::move(items);
    return group;
}

PivotDimension Dimension(std::string title, PivotPlace place, std::vector<PivotItem> items)
{
    PivotDimension dimension;
    dimension.fTitle = Words(std::move(title));
    dimension.fSort = 1;
    dimension.fPlace = place;
    dimension.fItems = std::move(items);
    return dimension;
}

PivotCell Cell(std::vector<std::uint32_t> at, TextRef content, std::vector<TextRef> notes)
{
    return {std::move(at), std::move(content), std::move(notes)};
}

TableNode PlainTable(std::string title, const std::vector<std::string>& labels)
{
    TableNode table;
    table.fTitle = Words(std::move(title));
    std::vector<PivotItem> rows;
    for (std::uint32_t row = 0; row < labels.size(); ++row) {
        rows.push_back(Category(labels[row]));
        table.fCells.push_back(Cell({row, 0}, Number(row, std::to_string(row) + ".5")));
    }
    table.fDimensions.push_back(Dimension("Rows", PivotPlace::Rows, std::move(rows)));
    table.fDimensions.push_back(Dimension("Columns", PivotPlace::Columns, {Category("Value")}));
    return table;
}

std::string Report(std::vector<OutputTreeNode> nodes, const RunStart& start, const RunEnd& end)
{
    std::string text;
    const std::unique_ptr<OutputSink> writer = MakeHtmlWriter(std::make_unique<ByteOutput>(text));
    writer->Begin(start);
    Replay(std::move(nodes), *writer);
    writer->End(end);
    return text;
}

}  // namespace refhost::test
