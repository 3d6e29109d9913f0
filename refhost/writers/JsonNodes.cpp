#include "refhost/writers/JsonNodes.h"

#include <algorithm>
#include <string>
#include <vector>

#include "refhost/data/JsonEscape.h"
#include "refhost/writers/JsonEmitter.h"

namespace refhost {

namespace {

struct FormatNameRow {
    NumberFormat fFormat;
    std::string_view fName;
};

// clang-format off
constexpr FormatNameRow kFormatNames[] = {
    {NumberFormat::Significance,       "Significance"},
    {NumberFormat::Proportion,         "Proportion"},
    {NumberFormat::Count,              "Count"},
    {NumberFormat::Coefficient,        "Coefficient"},
    {NumberFormat::Percent,            "Percent"},
    {NumberFormat::CountOrCoefficient, "CountOrCoefficient"},
    {NumberFormat::StdDev,             "StdDev"},
};
// clang-format on

std::string_view FormatName(NumberFormat format)
{
    const auto* row = std::ranges::find(kFormatNames, format, &FormatNameRow::fFormat);
    return row != std::end(kFormatNames) ? row->fName : std::string_view();
}

/// Writes a heading's beginning or a whole node from a new line on, which `depth` indents.
class NodeWriter {
public:
    NodeWriter(JsonEmitter& json, unsigned depth) : fJson(json), fDepth(depth) {}

    void Open(const TextRef& label)
    {
        Begin("heading");
        Member("label", label);
        fJson.Key("children");
        fJson.BeginArray();
    }

    void Write(const OutputNode& node)
    {
        std::visit([this](const auto& content) { Members(content); }, node.fContent);
        fJson.EndObject();
    }

private:
    void Members(const ErrorNode& error)
    {
        Begin("error");
        Member("text", error.fText);
        Member("show", error.fShow);
        Member("level", error.fLevel);
    }

    void Members(const TableNode& table)
    {
        Begin("table");
        Member("title", table.fTitle);
        Line(1);
        Member("subtype", table.fSubtype);
        Line(1);
        fJson.Key("caption");
        WriteOrNull(table.fCaption);
        Line(1);
        Width("minDataColumnWidth", table.fMinDataColumnWidth);
        Width("maxDataColumnWidth", table.fMaxDataColumnWidth);
        Line(1);
        Array("dimensions", table.fDimensions);
        Line(1);
        Array("cells", table.fCells);
    }

    void Members(const ChartNode& chart)
    {
        Begin("chart");
        Member("template", chart.fTemplate);
        Line(1);
        Member("text", chart.fText);
        Line(1);
        Array("sources", chart.fSources);
        Line(1);
        Array("calls", chart.fCalls);
    }

    // --- tables ---

    void Write(const PivotDimension& dimension)
    {
        fJson.BeginObject();
        Member("title", dimension.fTitle);
        Member("sort", dimension.fSort);
        Member("place",
               std::string_view(dimension.fPlace == PivotPlace::Rows ? "rows" : "columns"));
        fJson.Key("flags");
        fJson.BeginArray();
        for (const bool flag : dimension.fFlags)
            fJson.Bool(flag);
        fJson.EndArray();
        Items(dimension.fItems, 3);
        fJson.EndObject();
    }

    void Items(const std::vector<PivotItem>& items, unsigned deeper)
    {
        fJson.Key("items");
        fJson.BeginArray();
        for (const PivotItem& item : items) {
            Line(deeper);
            fJson.BeginObject();
            Member(item.fIsGroup ? "group" : "category", item.fLabel);
            Notes(item.fNotes);
            if (item.fIsGroup) Items(item.fItems, deeper + 1);
            fJson.EndObject();
        }
        fJson.EndArray();
    }

    void Write(const PivotCell& cell)
    {
        fJson.BeginObject();
        fJson.Key("at");
        fJson.BeginArray();
        for (const std::uint32_t place : cell.fAt)
            fJson.Integer(place);
        fJson.EndArray();
        fJson.Key("content");
        WriteOrNull(cell.fContent);
        Notes(cell.fNotes);
        fJson.EndObject();
    }

    void Notes(const std::vector<TextRef>& notes)
    {
        fJson.Key("notes");
        fJson.BeginArray();
        for (const TextRef& note : notes)
            Write(note);
        fJson.EndArray();
    }

    void Width(std::string_view name, int width)
    {
        fJson.Key(name);
        if (width < 0) {
            fJson.Null();
        } else {
            fJson.Integer(width);
        }
    }

    // --- texts ---

    void Write(const TextRef& text)
    {
        static const Text kNoText;
        Write(text ? *text : kNoText);
    }

    void WriteOrNull(const TextRef& text)
    {
        if (text) {
            Write(*text);
        } else {
            fJson.Null();
        }
    }

    void Write(const Text& text)
    {
        fJson.BeginObject();
        std::visit([this](const auto& passed) { Passed(passed); }, text.fPassed);
        Member("text", text.fShown);
        fJson.EndObject();
    }

    void Passed(const TextString& string)
    {
        Member("string", string.fString);
        Member("lookup", string.fLookup);
    }

    void Passed(const TextNumber& number)
    {
        Member("number", number.fNumber);
        Member("format", FormatName(number.fFormat));
    }

    void Passed(const TextVariable& variable) { Member("variable", variable.fName); }

    void Passed(const TextValue& value)
    {
        Member("value", value.fValue);
        Member("of", value.fOf);
    }

    void Passed(const TextComposite& composite)
    {
        Member("composite", composite.fString);
        Member("lookup", composite.fLookup);
        fJson.Key("parts");
        fJson.BeginArray();
        for (const auto& part : composite.fParts)
            std::visit([this](const auto& content) { Write(content); }, part);
        fJson.EndArray();
    }

    void Write(const TextSublist& list)
    {
        fJson.BeginObject();
        fJson.Key("sublist");
        fJson.BeginArray();
        for (const TextRef& item : list.fItems)
            Write(item);
        fJson.EndArray();
        fJson.EndObject();
    }

    // --- charts ---

    void Write(const ChartSource& source)
    {
        fJson.BeginObject();
        Member("name", source.fName);
        fJson.Key("variables");
        fJson.BeginArray();
        for (const ChartSource::Column& column : source.fColumns)
            Write(column.fName);
        fJson.EndArray();
        fJson.Key("rows");
        fJson.BeginArray();
        std::vector<std::string> names;  // every row repeats them
        names.reserve(source.fColumns.size());
        for (const ChartSource::Column& column : source.fColumns)
            names.push_back(EscapedJson(column.fName));
        for (std::size_t row = 0; row < source.fRows; ++row) {
            Line(3);
            Row(source, names, row);
        }
        fJson.EndArray();
        fJson.EndObject();
    }

    void Row(const ChartSource& source, const std::vector<std::string>& names, std::size_t row)
    {
        fJson.BeginObject();
        for (std::size_t place = 0; place < source.fColumns.size(); ++place) {
            const std::vector<ChartValue>& values = source.fColumns[place].fValues;
            if (row >= values.size() || std::holds_alternative<std::monostate>(values[row]))
                continue;
            fJson.Key(names[place]);
            Write(values[row]);
        }
        fJson.EndObject();
    }

    void Write(const ChartCall& call)
    {
        fJson.BeginArray();
        Write(call.fOperation);
        for (const ChartArgument& argument : call.fArguments)
            Write(argument);
        fJson.EndArray();
    }

    void Write(const ChartHostValue& value)
    {
        fJson.BeginObject();
        Member("value", value.fValue);
        fJson.EndObject();
    }

    // --- plain values ---

    void Write(std::monostate) { fJson.Null(); }
    void Write(bool flag) { fJson.Bool(flag); }
    void Write(int number) { fJson.Integer(number); }
    void Write(std::int64_t number) { fJson.Integer(number); }
    void Write(double number) { fJson.Number(number); }
    void Write(std::string_view text) { fJson.String(text); }
    void Write(const std::string& text) { fJson.String(text); }

    template <class... Values>
    void Write(const std::variant<Values...>& value)
    {
        std::visit([this](const auto& content) { this->Write(content); }, value);
    }

    // --- frame ---

    void Begin(std::string_view type)
    {
        fJson.BreakLine(fDepth);
        fJson.BeginObject();
        Member("type", type);
    }

    template <class Value>
    void Member(std::string_view name, const Value& value)
    {
        fJson.Key(name);
        Write(value);
    }

    /// An array with a line for each element.
    template <class Elements>
    void Array(std::string_view name, const Elements& elements)
    {
        fJson.Key(name);
        fJson.BeginArray();
        for (const auto& element : elements) {
            Line(2);
            Write(element);
        }
        fJson.EndArray();
    }

    void Line(unsigned deeper) { fJson.BreakLine(fDepth + deeper); }

    JsonEmitter& fJson;
    const unsigned fDepth;
};

}  // namespace

void JsonNodes::Open(const TextRef& label)
{
    NodeWriter(fJson, fDepth).Open(label);
    ++fDepth;
}

void JsonNodes::Close()
{
    --fDepth;
    fJson.EndArray();
    fJson.EndObject();
}

void JsonNodes::Write(const OutputNode& node) { NodeWriter(fJson, fDepth).Write(node); }

}  // namespace refhost
