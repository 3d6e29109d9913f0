#include "support/OutputRecorder.h"

#include <algorithm>
#include <charconv>
#include <functional>
#include <limits>

#include "refhost/pivot/PivotProcedure.h"

#include "host/pivot/BpProcedure.h"

namespace {

using namespace refhost;

constexpr char kNone[] = "none";

constexpr const char* kFormats[] = {"Significance", "Proportion",         "Count", "Coefficient",
                                    "Percent",      "CountOrCoefficient", "StdDev"};

std::string NumberText(double number)
{
    if (number == std::numeric_limits<double>::lowest()) return "missing";
    char buffer[32];
    const auto end = std::to_chars(std::begin(buffer), std::end(buffer), number).ptr;
    return {buffer, end};
}

template <class List, class Show>
std::string Joined(const List& list, const char* separator, Show show)
{
    std::string text;
    for (const auto& item : list) {
        if (!text.empty()) text += separator;
        text += show(item);
    }
    return text;
}

std::string Keyed(const std::string& string, bool lookup)
{
    return lookup ? "@" + string : "'" + string + "'";
}

struct PassedText {
    std::string operator()(const TextString& text) const
    {
        return Keyed(text.fString, text.fLookup);
    }
    std::string operator()(const TextNumber& number) const
    {
        return NumberText(number.fNumber) + ":" + kFormats[static_cast<int>(number.fFormat)];
    }
    std::string operator()(const TextVariable& variable) const
    {
        return "<" + variable.fName + ">";
    }
    std::string operator()(const TextValue& value) const
    {
        const auto* number = std::get_if<double>(&value.fValue);
        const std::string shown =
            number ? NumberText(*number) : "'" + std::get<std::string>(value.fValue) + "'";
        return "<" + value.fOf + ">=" + shown;
    }
    std::string operator()(const TextComposite& text) const
    {
        return Keyed(text.fString, text.fLookup) + "(" + Joined(text.fParts, "; ", Part) + ")";
    }

    static std::string Part(const std::variant<TextRef, TextSublist>& part)
    {
        if (const auto* text = std::get_if<TextRef>(&part)) return Passed(*text);
        const auto show = [](const TextRef& item) { return Passed(item); };
        return "[" + Joined(std::get<TextSublist>(part).fItems, ", ", show) + "]";
    }
};

/// A category with its label behind those of its groups, and its place among all categories.
struct FlatLabel {
    std::string fText;
    const PivotItem* fItem;
    bool fIsGroup;
};

void Flatten(const std::vector<PivotItem>& items, const std::string& before,
             std::vector<FlatLabel>& labels)
{
    for (const PivotItem& item : items) {
        const std::string text = before + item.fLabel->fShown;
        labels.push_back({text, &item, item.fIsGroup});
        Flatten(item.fItems, text + "/", labels);
    }
}

std::vector<FlatLabel> AllLabels(const TableNode& table, std::size_t dimension)
{
    std::vector<FlatLabel> labels;
    if (dimension < table.fDimensions.size())
        Flatten(table.fDimensions[dimension].fItems, "", labels);
    return labels;
}

std::vector<FlatLabel> Categories(const TableNode& table, std::size_t dimension)
{
    auto labels = AllLabels(table, dimension);
    std::erase_if(labels, [](const FlatLabel& label) { return label.fIsGroup; });
    return labels;
}

void AddOutline(const OutputTreeNode& node, const std::string& indent, std::string& text)
{
    if (node.IsHeading()) {
        text += indent + "heading " + Passed(node.fLabel) + "\n";
        for (const OutputTreeNode& child : node.fChildren)
            AddOutline(child, indent + "  ", text);
    }
    if (const auto* table = node.As<TableNode>())
        text += indent + "table " + Passed(table->fTitle) + "\n";
    if (const auto* chart = node.As<ChartNode>())
        text += indent + "chart " + chart->fTemplate + "\n";
    if (const auto* error = node.As<ErrorNode>()) text += indent + "error " + error->fText + "\n";
}

}  // namespace

std::string Passed(const TextRef& text)
{
    return text ? std::visit(PassedText(), text->fPassed) : kNone;
}

std::vector<std::string> Passed(const std::vector<TextRef>& texts)
{
    std::vector<std::string> all;
    all.reserve(texts.size());
    for (const TextRef& text : texts)
        all.push_back(Passed(text));
    return all;
}

std::string RecordedTable::Title() const { return fTable ? Passed(fTable->fTitle) : kNone; }

std::string RecordedTable::Subtype() const { return fTable ? Passed(fTable->fSubtype) : kNone; }

std::string RecordedTable::Caption() const { return fTable ? Passed(fTable->fCaption) : kNone; }

std::string RecordedTable::Widths() const
{
    if (!fTable) return kNone;
    const auto limit = [](int width) { return width < 0 ? "" : std::to_string(width); };
    return limit(fTable->fMinDataColumnWidth) + ".." + limit(fTable->fMaxDataColumnWidth);
}

std::vector<std::string> RecordedTable::Dimensions() const
{
    std::vector<std::string> lines;
    if (!fTable) return lines;
    for (const PivotDimension& dimension : fTable->fDimensions) {
        lines.push_back(Passed(dimension.fTitle) + " sort " + std::to_string(dimension.fSort) +
                        (dimension.fPlace == PivotPlace::Rows ? " rows" : " columns") +
                        (dimension.fFlags[0] ? " true" : " false") +
                        (dimension.fFlags[1] ? " true" : " false"));
    }
    return lines;
}

std::vector<std::string> RecordedTable::LabelsOf(std::size_t dimension) const
{
    std::vector<std::string> texts;
    if (!fTable) return texts;
    for (const FlatLabel& label : Categories(*fTable, dimension))
        texts.push_back(label.fText);
    return texts;
}

std::vector<std::string> RecordedTable::PassedLabels(std::size_t dimension) const
{
    std::vector<std::string> texts;
    if (!fTable) return texts;
    for (const FlatLabel& label : AllLabels(*fTable, dimension))
        texts.push_back(Passed(label.fItem->fLabel));
    return texts;
}

std::vector<std::string> RecordedTable::LabelNotes(std::size_t dimension,
                                                   const std::string& text) const
{
    if (!fTable) return {kNone};
    for (const FlatLabel& label : AllLabels(*fTable, dimension)) {
        if (label.fText == text) return Passed(label.fItem->fNotes);
    }
    return {kNone};
}

const PivotCell* RecordedTable::Find(Labels labels) const
{
    if (!fTable || labels.size() != fTable->fDimensions.size()) return nullptr;
    std::vector<std::uint32_t> at;
    for (const std::string& text : labels) {
        const auto categories = Categories(*fTable, at.size());
        const auto found = std::ranges::find(categories, text, &FlatLabel::fText);
        if (found == categories.end()) return nullptr;
        at.push_back(static_cast<std::uint32_t>(found - categories.begin()));
    }
    const auto cell = std::ranges::find(fTable->fCells, at, &PivotCell::fAt);
    return cell == fTable->fCells.end() ? nullptr : &*cell;
}

std::string RecordedTable::Cell(Labels labels) const
{
    const PivotCell* cell = Find(labels);
    return cell ? Passed(cell->fContent) : "no cell";
}

std::vector<std::string> RecordedTable::CellNotes(Labels labels) const
{
    const PivotCell* cell = Find(labels);
    return cell ? Passed(cell->fNotes) : std::vector<std::string>();
}

std::size_t RecordedTable::CellCount() const { return fTable ? fTable->fCells.size() : 0; }

OutputRecorder::OutputRecorder(const QORT_DataSource* source, const std::string& templateFolder)
    : fBuilder(fTree),
      fRun{.fOutput = &fBuilder, .fTemplateFolder = templateFolder},
      fScope(fRun),
      fProcedure(MakeProcedure(source))
{
}

OutputRecorder::~OutputRecorder() = default;

std::string OutputRecorder::Outline() const
{
    std::string text;
    for (const OutputTreeNode& node : fTree.fNodes)
        AddOutline(node, "", text);
    return text;
}

RecordedTable OutputRecorder::Table(const std::string& title, std::size_t place) const
{
    std::vector<const TableNode*> tables;
    ForEachNode(fTree.fNodes, [&](const OutputTreeNode& node) {
        const auto* table = node.As<TableNode>();
        if (table && table->fTitle->fShown == title) tables.push_back(table);
    });
    return RecordedTable(place < tables.size() ? tables[place] : nullptr);
}
