#include "refhost/job/JobFile.h"

#include <filesystem>
#include <functional>
#include <optional>
#include <string_view>
#include <unordered_set>

#include <fmt/format.h>

#include "refhost/job/CheckedJson.h"

#include "refhost/command/CommandData.h"
#include "refhost/data/Calendar.h"
#include "refhost/data/DateFormats.h"
#include "refhost/data/FileText.h"
#include "refhost/data/MissingValue.h"
#include "refhost/data/ValueText.h"
#include "refhost/data/VariableData.h"

#include "host/data/QORT_Variable.h"

namespace refhost {

namespace {

using json::Value;

constexpr QORT_Format kDefaultNumberFormat = {8, 5, 2};
constexpr QORT_Format kDefaultStringFormat = {8, 1, 0};

std::string TextOf(const Value& value) { return {value.GetString(), value.GetStringLength()}; }

/// A text, or a list of texts.
std::vector<std::string> TextsOf(const Value& value)
{
    if (value.IsString()) return {TextOf(value)};
    std::vector<std::string> texts;
    for (const Value& text : value.GetArray())
        texts.push_back(TextOf(text));
    return texts;
}

const Value* Member(const Value& object, const char* key)
{
    const auto found = object.FindMember(key);
    return found == object.MemberEnd() ? nullptr : &found->value;
}

/// Reads what a checked text says. `fName` is what errors call the job.
class JobReading {
public:
    JobReading(const std::string& name, const std::string& folder) : fName(name), fFolder(folder) {}

    Job Read(const Value& root)
    {
        Job job;
        if (const Value* title = Member(root, "title")) job.fTitle = TextOf(*title);
        job.fDataSource = ReadVariables(root["variables"]);
        fSource = job.fDataSource.get();
        job.fCommand = ReadCommand(Member(root, "command"));
        const Value* extra = Member(root, "extraVariable");
        if (extra && extra->IsString()) job.fExtraVariable = IndexOf(*extra, "/extraVariable");
        job.fExtraVariables = ReadNames(Member(root, "extraVariables"), "/extraVariables");
        for (const Value& split : root["splits"].GetArray())
            job.fSplits.push_back(ReadSplit(split, fmt::format("/splits/{}", job.fSplits.size())));
        return job;
    }

private:
    /// Names a place; called only where something is wrong there.
    using Place = std::function<std::string()>;

    [[noreturn]] void Fail(const std::string& place, const std::string& reason) const
    {
        throw JobError(fmt::format("{}: {}: {}", fName, place, reason));
    }

    int IndexOf(const Value& name, const std::string& place) const
    {
        const std::string text = TextOf(name);
        const int index = fSource->FindVarIndex(text.c_str(), 0);
        if (index < 0) Fail(place, fmt::format("there is no variable \"{}\"", text));
        return index;
    }

    std::vector<int> ReadNames(const Value* names, const std::string& place) const
    {
        std::vector<int> indices;
        if (!names) return indices;
        for (const Value& name : names->GetArray())
            indices.push_back(IndexOf(name, fmt::format("{}/{}", place, indices.size())));
        return indices;
    }

    std::unique_ptr<ProcedureDataSource> ReadVariables(const Value& list) const
    {
        std::vector<VariableData> variables;
        std::unordered_set<std::string> names;
        for (const Value& item : list.GetArray()) {
            const Place place = [number = variables.size()] {
                return fmt::format("/variables/{}", number);
            };
            variables.push_back(ReadVariable(item, place));
            if (!names.insert(variables.back().fName).second)
                Fail(place() + "/name", "another variable has this name");
        }
        return MakeDataSource(std::move(variables));
    }

    VariableData ReadVariable(const Value& item, const Place& place) const
    {
        VariableData variable;
        variable.fName = TextOf(item["name"]);
        if (const Value* label = Member(item, "label")) variable.fLabel = TextOf(*label);
        variable.fIsString = item["type"] == "string";
        variable.fFormat = variable.fIsString ? kDefaultStringFormat : kDefaultNumberFormat;
        if (const Value* format = Member(item, "format")) variable.fFormat = ReadFormat(*format);
        const Value* labels = Member(item, "valueLabels");
        if (!labels) return variable;
        for (const Value& entry : labels->GetArray()) {
            const Place entryPlace = [&place, number = variable.fValueLabels.size()] {
                return fmt::format("{}/valueLabels/{}/value", place(), number);
            };
            variable.fValueLabels.push_back(
                {ReadValue(entry["value"], variable.fIsString, variable.fFormat, entryPlace),
                 TextOf(entry["label"])});
        }
        return variable;
    }

    static QORT_Format ReadFormat(const Value& format)
    {
        return {static_cast<std::uint16_t>(format["width"].GetUint()),
                static_cast<std::uint8_t>(format["type"].GetUint()),
                static_cast<std::uint8_t>(format["decimals"].GetUint())};
    }

    /// Null is the missing number; a date may be a text.
    OBS ReadValue(const Value& value, bool isString, const QORT_Format& format,
                  const Place& place) const
    {
        if (isString) {
            if (!value.IsString()) Fail(place(), "a string variable has texts");
            return OBS(PaddedText(TextOf(value), format));
        }
        if (value.IsNull()) return OBS(kMissingValue);
        if (value.IsNumber()) return OBS(value.GetDouble());
        const DateFormatRow* date = FindDateFormat(format.fType);
        if (!date || date->fLayout == DateLayout::Duration)
            Fail(place(), "a numeric variable has numbers");
        const std::optional<double> seconds = ParseIsoDate(TextOf(value));
        if (!seconds) Fail(place(), fmt::format("\"{}\" is no date", value.GetString()));
        return OBS(DocumentNumber(*seconds, date->fLayout));
    }

    std::unique_ptr<CommandSpec> ReadCommand(const Value* command) const
    {
        std::vector<SubcommandData> subcommands;
        if (!command) return MakeCommand(subcommands);
        for (const auto& [name, parameters] : command->GetObject()) {
            SubcommandData& subcommand = subcommands.emplace_back();
            subcommand.fName = TextOf(name);
            for (const auto& [parameter, names] : parameters.GetObject())
                subcommand.fParameters.push_back({TextOf(parameter), TextsOf(names)});
        }
        return MakeCommand(subcommands);
    }

    JobSplit ReadSplit(const Value& item, const std::string& place) const
    {
        JobSplit split;
        const std::filesystem::path document = TextOf(item["document"]);
        split.fDocument = (std::filesystem::path(fFolder) / document).string();
        split.fVariables = ReadNames(Member(item, "variables"), place + "/variables");
        if (const Value* asHeading = Member(item, "asHeading"))
            split.fAsHeading = asHeading->GetBool();
        const Value* values = Member(item, "values");
        const std::size_t count = values ? values->Size() : 0;
        if (count != split.fVariables.size())
            Fail(place, fmt::format("{} values stand beside {} variables", count,
                                    split.fVariables.size()));
        for (const int index : split.fVariables) {
            const QORT_Variable& variable = *fSource->GetVariable(index);
            const auto position = static_cast<rapidjson::SizeType>(split.fValues.size());
            split.fValues.push_back(ReadValue(
                (*values)[position], variable.GetType() != 0, variable.GetFormat(),
                [&place, position] { return fmt::format("{}/values/{}", place, position); }));
        }
        return split;
    }

    const std::string& fName;
    const std::string& fFolder;
    const QORT_DataSource* fSource = nullptr;
};

}  // namespace

Job ReadJobFile(const std::string& file)
{
    std::string text;
    if (!ReadFile(file, text)) throw JobError(fmt::format("{}: the job file can't be read", file));
    return ReadJobText(text, file, std::filesystem::path(file).parent_path().string());
}

Job ReadJobText(const std::string& text, const std::string& name, const std::string& folder)
{
    const json::Document document = ParseJob(text, name);
    return JobReading(name, folder).Read(document);
}

}  // namespace refhost
