#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "refhost/document/OutputNode.h"
#include "refhost/document/OutputSink.h"

#include "support/OutputTree.h"

/// Output nodes by hand, and the report of a few of them.

namespace refhost::test {

TextRef Words(std::string text);
TextRef Number(double number, std::string shown);

PivotItem Category(std::string label, std::vector<TextRef> notes = {});
PivotItem Group(std::string label, std::vector<PivotItem> items);
PivotDimension Dimension(std::string title, PivotPlace place, std::vector<PivotItem> items);
PivotCell Cell(std::vector<std::uint32_t> at, TextRef content, std::vector<TextRef> notes = {});

/// A row for each label and one column of numbers.
TableNode PlainTable(std::string title, const std::vector<std::string>& labels);

template <class Content>
OutputNodePtr NodeOf(Content content)
{
    return std::make_unique<OutputNode>(OutputNode{std::move(content)});
}

inline OutputTreeNode InTree(OutputTreeNode heading) { return heading; }

template <class Content>
OutputTreeNode InTree(Content content)
{
    return {{}, {}, NodeOf(std::move(content))};
}

template <class... Nodes>
OutputTreeNode Heading(std::string label, Nodes... nodes)
{
    OutputTreeNode heading{Words(std::move(label)), {}, {}};
    (heading.fChildren.push_back(InTree(std::move(nodes))), ...);
    return heading;
}

/// The whole report, as it would stand in a file.
std::string Report(std::vector<OutputTreeNode> nodes, const RunStart& start = {},
                   const RunEnd& end = {.fResult = true, .fFailure = {}, .fNotice = {}});

template <class... Nodes>
std::string ReportOf(Nodes... nodes)
{
    std::vector<OutputTreeNode> list;
    (list.push_back(InTree(std::move(nodes))), ...);
    return Report(std::move(list));
}

}  // namespace refhost::test
