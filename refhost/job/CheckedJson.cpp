#include "refhost/job/CheckedJson.h"

#include <string_view>

#include <fmt/format.h>
#include <rapidjson/error/en.h>
#include <rapidjson/memorystream.h>
#include <rapidjson/schema.h>
#include <rapidjson/stringbuffer.h>

#include "refhost/job/JobFile.h"
#include "refhost/job/JobSchema.h"

namespace refhost {

namespace {

constexpr unsigned kParseFlags =
    rapidjson::kParseIterativeFlag | rapidjson::kParseValidateEncodingFlag;

using JobReader =
    rapidjson::SchemaValidatingReader<kParseFlags, rapidjson::MemoryStream, rapidjson::UTF8<>>;

/// What it means to a person that a rule of the schema is broken.
struct RuleRow {
    std::string_view fKeyword;
    std::string_view fMeaning;
};

// clang-format off
constexpr RuleRow kRules[] = {
    {"additionalProperties", "this key is unknown"},
    {"required",             "a key is missing"},
    {"type",                 "the value has the wrong type"},
    {"enum",                 "the value is none of those that are allowed"},
    {"minItems",             "the list is empty"},
    {"minLength",            "the text is empty"},
    {"minimum",              "the number is too small"},
    {"maximum",              "the number is too large"},
};
// clang-format on

std::string_view MeaningOf(std::string_view keyword)
{
    for (const RuleRow& row : kRules)
        if (row.fKeyword == keyword) return row.fMeaning;
    return "the value is not allowed";
}

const rapidjson::SchemaDocument& JobSchema()
{
    static const rapidjson::SchemaDocument kSchema = [] {
        rapidjson::Document document;
        document.Parse(kJobSchema.data(), kJobSchema.size());
        return rapidjson::SchemaDocument(document);
    }();
    return kSchema;
}

/// The keys that the object at a place of the schema has to hold.
std::string NeededKeys(const rapidjson::Pointer& schemaPlace)
{
    rapidjson::Document schema;
    schema.Parse(kJobSchema.data(), kJobSchema.size());
    std::string keys;
    const rapidjson::Value* place = schemaPlace.Get(schema);
    if (!place || !place->IsObject() || !place->HasMember("required")) return keys;
    for (const auto& key : (*place)["required"].GetArray())
        keys += fmt::format("{}\"{}\"", keys.empty() ? "" : ", ", key.GetString());
    return keys;
}

std::string PlaceText(const rapidjson::Pointer& place)
{
    rapidjson::StringBuffer buffer;
    place.Stringify(buffer);
    return buffer.GetSize() > 0 ? buffer.GetString() : "the job";
}

}  // namespace

rapidjson::Document ParseJob(const std::string& text, const std::string& name)
{
    rapidjson::MemoryStream stream(text.data(), text.size());
    JobReader reader(stream, JobSchema());
    rapidjson::Document document;
    document.Populate(reader);
    const rapidjson::ParseResult& result = reader.GetParseResult();
    if (!result.IsError()) return document;
    if (reader.IsValid())
        throw JobError(fmt::format("{}: no JSON at byte {}: {}", name, result.Offset(),
                                   rapidjson::GetParseError_En(result.Code())));
    const std::string_view keyword = reader.GetInvalidSchemaKeyword();
    std::string line = fmt::format(
        "{}: {}: {}", name, PlaceText(reader.GetInvalidDocumentPointer()), MeaningOf(keyword));
    if (keyword == "required")
        line += fmt::format(" (needed: {})", NeededKeys(reader.GetInvalidSchemaPointer()));
    throw JobError(line);
}

}  // namespace refhost
