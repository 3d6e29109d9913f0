#include "support/DocumentBuilder.h"

#include <gtest/gtest.h>

#include <array>
#include <charconv>
#include <limits>

namespace {

constexpr double kMissing = std::numeric_limits<double>::lowest();

// A character that would be markup, or lost as a blank, and the reference that stands for it.
constexpr std::pair<char, std::string_view> kReferences[] = {
    {'&', "&amp;"}, {'<', "&lt;"}, {'>', "&gt;"}, {'"', "&quot;"}, {'\n', "&#10;"}};

std::string Escaped(std::string_view text)
{
    std::string escaped;
    for (const char character : text) {
        std::string_view written(&character, 1);
        for (const auto& [plain, reference] : kReferences)
            if (plain == character) written = reference;
        escaped += written;
    }
    return escaped;
}

const char* ClassificationOf(std::string_view algorithm)
{
    switch (algorithm.empty() ? ' ' : algorithm.front()) {
        case 'O':
            return "One_Sample";
        case 'R':
            return "Related_Samples";
        case 'I':
            return "Independent_Samples";
        default:
            return "";
    }
}

void AddNumbers(Element& table, const NamedNumbers& numbers)
{
    for (const auto& [name, number] : numbers)
        table.Add(Attribute(name, number));
}

void AddParameters(Element& table, const std::vector<std::vector<double>>& parameters)
{
    for (std::size_t index = 0; index < parameters.size(); ++index)
        table.Add(Attribute("%" + std::to_string(index), NumberList(parameters[index])));
}

Element DataField(const FieldSpec& field, std::size_t index)
{
    Element element("DataField");
    element.Set("index", static_cast<double>(index)).Set("name", field.name);
    if (!field.label.empty()) element.Set("displayName", field.label);
    element.Set("optype", field.optype).Set("dataType", field.dataType);
    for (std::size_t value = 0; value < field.values.size(); ++value) {
        Element child("Value");
        child.Set("index", static_cast<double>(value)).Set("value", field.values[value].value);
        if (!field.values[value].label.empty())
            child.Set("displayValue", field.values[value].label);
        element.Add(child);
    }
    return element;
}

}  // namespace

Element& Element::Set(std::string_view attribute, std::string_view value)
{
    fAttributes.append(" ").append(attribute).append("=\"").append(Escaped(value)).append("\"");
    return *this;
}

Element& Element::Set(std::string_view attribute, double value)
{
    return Set(attribute, NumberToken(value));
}

Element& Element::Add(const Element& child)
{
    fContent += child.Text();
    return *this;
}

Element& Element::Add(const std::vector<Element>& children)
{
    for (const Element& child : children)
        Add(child);
    return *this;
}

Element& Element::Body(std::string_view text)
{
    fContent += Escaped(text);
    return *this;
}

std::string Element::Text() const
{
    if (fContent.empty()) return "<" + fTag + fAttributes + "/>";
    return "<" + fTag + fAttributes + ">" + fContent + "</" + fTag + ">";
}

std::string NumberToken(double number)
{
    if (number == kMissing) return "__MISSING__";
    std::array<char, 32> text;
    const auto end = std::to_chars(text.data(), text.data() + text.size(), number).ptr;
    return {text.data(), end};
}

std::string NumberList(const std::vector<double>& numbers)
{
    std::string list;
    for (const double number : numbers) {
        if (!list.empty()) list += ' ';
        list += NumberToken(number);
    }
    return list;
}

Element Attribute(std::string_view name, std::string_view value)
{
    return Element("Attribute").Set("name", name).Set("value", value);
}

Element Attribute(std::string_view name, double value)
{
    return Element("Attribute").Set("name", name).Set("value", value);
}

Element SimpleTable(std::string_view name, std::string_view rowNames, std::string_view columnNames,
                    const Rows& rows)
{
    Element table("SimpleTable");
    table.Set("name", name);
    table.Add(Element("RowNames").Body(rowNames));
    table.Add(Element("ColumnNames").Body(columnNames));
    for (const auto& row : rows)
        table.Add(Element("Row").Body(NumberList(row)));
    return table;
}

Element StructuredTable(std::string_view name, const Children& children)
{
    return Element("StructuredTable").Set("name", name).Add(children);
}

Element Condition(std::string_view key, const std::vector<std::vector<double>>& parameters,
                  const Children& further)
{
    Element table = StructuredTable("Condition", {Attribute("ConditionKey", key)});
    AddParameters(table, parameters);
    return table.Add(further);
}

Element WarningMessages(const std::vector<Message>& messages)
{
    Element table = StructuredTable("WarningMessages");
    for (const Message& message : messages) {
        Element entry = StructuredTable("Message");
        entry.Add(Attribute("code", message.code));
        entry.Add(Attribute("type", message.type));
        entry.Add(Attribute("paramNum", static_cast<double>(message.parameters.size())));
        AddParameters(entry, message.parameters);
        if (!message.group.empty()) entry.Add(Attribute("group", message.group));
        table.Add(entry);
    }
    return table;
}

Element Statistics(const NamedNumbers& numbers,
                   const std::vector<std::pair<std::string, NamedNumbers>>& blocks)
{
    Element table = StructuredTable("StatisticsResult");
    AddNumbers(table, numbers);
    for (const auto& [name, values] : blocks) {
        Element block = StructuredTable(name);
        AddNumbers(block, values);
        table.Add(block);
    }
    return table;
}

Element Algorithm(std::string_view name, std::string_view decision, const Children& children)
{
    Element algorithm("Algorithm");
    algorithm.Set("name", name).Set("classification", ClassificationOf(name));
    if (!decision.empty()) algorithm.Set("decision", decision);
    return algorithm.Add(children);
}

DocumentBuilder& DocumentBuilder::AddField(const FieldSpec& field)
{
    fFields.push_back(field);
    return *this;
}

DocumentBuilder& DocumentBuilder::AddTest(const Element& algorithm)
{
    fTests.Add(algorithm);
    return *this;
}

DocumentBuilder& DocumentBuilder::AddFieldInfo(const FieldInfoSpec& info)
{
    Element table =
        StructuredTable(info.categorical ? "CategoricalDistribution" : "ContinuousDistribution");
    AddNumbers(table, info.numbers);
    table.Add(SimpleTable("Interval", "", "", info.distribution));
    fFieldInfos.Add(Element("FieldInfo").Set("varIndex", info.field).Add(table));
    return *this;
}

DocumentBuilder& DocumentBuilder::SetTests(std::string_view attribute, std::string_view value)
{
    fTests.Set(attribute, value);
    return *this;
}

DocumentBuilder& DocumentBuilder::SetCounts(std::string_view attribute, std::string_view value)
{
    fCounts.Set(attribute, value);
    return *this;
}

std::string DocumentBuilder::Text() const
{
    Element output("NPAROutput");
    if (!fFields.empty()) {
        Element dictionary("DataDictionary");
        for (std::size_t index = 0; index < fFields.size(); ++index)
            dictionary.Add(DataField(fFields[index], index));
        dictionary.Add(DataField({.name = "behind the last"}, fFields.size()));
        output.Add(dictionary);
    }
    output.Add(fTests).Add(fFieldInfos);

    Element root("StatXML");
    root.Add(Element("PMMLModel").Set("modelType", "NonParametricTests"));
    root.Add(Element("DescriptiveModel").Add(Element("DescriptiveSummary").Add(fCounts)));
    root.Add(Element("Extension").Add(output));
    return root.Text();
}

std::string Replaced(std::string text, std::string_view part, std::string_view by)
{
    const auto position = text.find(part);
    EXPECT_NE(position, std::string::npos) << "the document has no " << part;
    if (position != std::string::npos) text.replace(position, part.size(), by);
    return text;
}
