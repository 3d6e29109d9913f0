#include "support/ViewRecorder.h"

#include "support/CollectedOutput.h"

#include <fstream>

#include <fmt/format.h>
#include <gtest/gtest.h>

#include "refhost/data/VariableData.h"

#include "host/framework/CFMetaData.h"

namespace {

void Write(const std::filesystem::path& path, const std::string& text)
{
    std::ofstream(path, std::ios::binary) << text;
}

std::string JsonText(const std::string& text)
{
    std::string json = "\"";
    for (const char letter : text) {
        if (letter == '"' || letter == '\\') json += '\\';
        json += letter;
    }
    return json + "\"";
}

CFValue TextValue(const std::string& text)
{
    return {CFDatum(text, false), text, CFValue::kNoFlag, CFValue::kNoPartition};
}

template <class Number>
std::string Shown(Number number)
{
    return fmt::format("{}", number);
}
std::string Shown(std::monostate) { return "null"; }
std::string Shown(const std::string& text) { return "\"" + text + "\""; }
std::string Shown(const refhost::ChartHostValue& value)
{
    return "{" + std::visit([](const auto& held) { return Shown(held); }, value.fValue) + "}";
}

}  // namespace

ViewRecorder::ViewRecorder()
{
    std::string name = (std::filesystem::temp_directory_path() / "nonpar-views-XXXXXX").string();
    if (!::mkdtemp(name.data())) ADD_FAILURE() << "no temporary folder";
    fFolder = name;
    refhost::TextTable::Activate(&fTexts);
    fStats.CreateMetaData();
}

ViewRecorder::~ViewRecorder()
{
    refhost::TextTable::Activate(nullptr);
    std::error_code ignored;
    std::filesystem::remove_all(fFolder, ignored);
}

FieldInfoData& ViewRecorder::AddField(const VariableSpec& variable,
                                      const std::vector<ValueAndLabel>& values)
{
    refhost::VariableData data;
    data.fName = variable.fName;
    data.fLabel = variable.fLabel;
    data.fIsString = variable.fFormat.fType == 1;
    data.fFormat = variable.fFormat;
    fVariables.push_back(refhost::MakeDataSource({data}));
    FieldInfoData& field = *fStats.AddFieldInfo();
    field.fIsRead = true;
    field.fFieldIndex = static_cast<int>(fStats.GetFieldInfos().size()) - 1;
    field.fVariable = fVariables.back()->GetVariable(0);

    std::vector<CFValue> labels;
    for (const auto& [text, label] : values) {
        FieldValue& value = field.fValues.emplace_back();
        value.fValueIndex = static_cast<int>(field.fValues.size()) - 1;
        value.fValue.SetCompleteValue(text, *field.fVariable, 0);
        value.fLabel = label;
        labels.push_back(TextValue(label));
    }
    CFField entry(variable.fName, CFField::FieldType{}, CFField::StorageType{},
                  CFField::RoleType{});
    entry.SetLabel(variable.fLabel);
    entry.SetValueLabels(labels);
    fStats.GetMetaData()->AppendField(entry);
    return field;
}

FieldInfoData& ViewRecorder::AddFieldWithoutVariable()
{
    FieldInfoData& field = AddField({.fName = "unknown"});
    field.fVariable = nullptr;
    return field;
}

void ViewRecorder::SetTemplate(const std::string& file, const std::string& text)
{
    Write(fFolder / file, text);
}

void ViewRecorder::SetWords(const std::vector<std::pair<std::string, std::string>>& words)
{
    std::string json;
    for (const auto& [key, text] : words)
        json += (json.empty() ? "" : ", ") + JsonText(key) + ": " + JsonText(text);
    const std::filesystem::path file = fFolder / "words.json";
    Write(file, "{\"pivot\": {}, \"charts\": {" + json + "}}");
    std::string reason;
    EXPECT_TRUE(fTexts.Load(file.string(), reason)) << reason;
}

std::optional<refhost::ChartNode> ViewRecorder::Draw(const std::function<void()>& draw)
{
    OutputTree output;
    refhost::OutputBuilder builder(output);
    refhost::HostRun run;
    run.fOutput = &builder;
    run.fTemplateFolder = fFolder.string();
    const refhost::HostRun::Scope scope(run);
    draw();
    EXPECT_LE(output.fNodes.size(), 1u) << "a view sends one chart";
    if (output.fNodes.empty()) return std::nullopt;
    return std::get<refhost::ChartNode>(std::move(output.fNodes.front().fNode->fContent));
}

std::vector<std::string> CallLines(const refhost::ChartNode& chart)
{
    std::vector<std::string> lines;
    for (const refhost::ChartCall& call : chart.fCalls) {
        std::string line = call.fOperation;
        for (const refhost::ChartArgument& argument : call.fArguments)
            line += " " + std::visit([](const auto& held) { return Shown(held); }, argument);
        lines.push_back(line);
    }
    return lines;
}

std::vector<std::string> RowLines(const refhost::ChartNode& chart, const std::string& source)
{
    std::vector<std::string> lines;
    for (const refhost::ChartSource& candidate : chart.fSources) {
        if (candidate.fName != source) continue;
        lines.assign(candidate.fRows + 1, "");
        for (const refhost::ChartSource::Column& column : candidate.fColumns) {
            lines[0] += (lines[0].empty() ? "" : " ") + column.fName;
            for (std::size_t row = 0; row < column.fValues.size(); ++row) {
                const refhost::ChartValue& value = column.fValues[row];
                if (std::holds_alternative<std::monostate>(value)) continue;
                std::string& line = lines[row + 1];
                line += (line.empty() ? "" : " ") + column.fName + "=" +
                        std::visit([](const auto& held) { return Shown(held); }, value);
            }
        }
    }
    return lines;
}

QORT_Format FormatOf(int type, int width, int decimals)
{
    return {static_cast<std::uint16_t>(width), static_cast<std::uint8_t>(type),
            static_cast<std::uint8_t>(decimals)};
}
