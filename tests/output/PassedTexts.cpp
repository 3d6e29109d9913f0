#include "PassedTexts.h"

#include <charconv>
#include <limits>

namespace {

using namespace refhost;

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

std::string Passed(const TextRef& text);

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

std::string Passed(const TextRef& text)
{
    return text ? std::visit(PassedText(), text->fPassed) : "none";
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
    if (const auto* error = node.As<ErrorNode>()) text += indent + "error " + error->fText + "\n";
}

}  // namespace

std::string Outline(const CollectedOutput& output)
{
    std::string text;
    for (const OutputTreeNode& node : output.Nodes())
        AddOutline(node, "", text);
    return text;
}

std::string FirstCell(const CollectedOutput& output)
{
    return Passed(output.Table().fCells.at(0).fContent);
}
