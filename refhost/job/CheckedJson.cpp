#include "refhost/job/CheckedJson.h"

#include <algorithm>
#include <cstddef>
#include <string_view>
#include <unordered_set>

#include <fmt/format.h>
#include <rapidjson/error/en.h>
#include <rapidjson/memorystream.h>

#include "refhost/data/Characters.h"
#include "refhost/job/ExactValues.h"
#include "refhost/job/JobFile.h"
#include "refhost/job/JobSchema.h"

namespace refhost {

namespace {

constexpr unsigned kParseFlags = rapidjson::kParseIterativeFlag |
                                 rapidjson::kParseNumbersAsStringsFlag |
                                 rapidjson::kParseValidateEncodingFlag;

/// What it means to a person that a rule of the schema is broken.
struct RuleRow {
    std::string_view fKeyword;
    std::string_view fMeaning;
    bool fTellsBound;  // whether what the schema asks for says more than the meaning
};

// clang-format off
constexpr RuleRow kRules[] = {
    {"additionalProperties", "this key is unknown", false},
    {"required",             "a key is missing", true},
    {"type",                 "the value has the wrong type", true},
    {"enum",                 "the value is none of those that are allowed", true},
    {"minItems",             "the list is empty", false},
    {"minLength",            "the text is empty", false},
    {"minimum",              "the number is too small", true},
    {"maximum",              "the number is too large", true},
};
// clang-format on

const RuleRow& RuleOf(std::string_view keyword)
{
    static constexpr RuleRow kOther = {"", "the value is not allowed", false};
    const auto row = std::find_if(std::begin(kRules), std::end(kRules),
                                  [&](const RuleRow& rule) { return rule.fKeyword == keyword; });
    return row == std::end(kRules) ? kOther : *row;
}

const json::Schema& JobSchema()
{
    static const json::Schema kSchema = [] {
        json::Document document;
        document.Parse(kJobSchema.data(), kJobSchema.size());
        return json::Schema(document);
    }();
    return kSchema;
}

/// Parses a text into a document as long as it keeps to the schema.
class JobReader {
public:
    explicit JobReader(const std::string& text) : fText(text) {}

    /// Called by the document that is filled; the checks run between the parser and it.
    bool operator()(json::Document& document)
    {
        rapidjson::MemoryStream stream(fText.data(), fText.size());
        json::Reader reader;
        Validator validator(JobSchema(), document);
        ExactValues values(validator);
        fResult = reader.Parse<kParseFlags>(stream, values);
        if (values.IsTooBig()) fResult.Set(rapidjson::kParseErrorNumberTooBig, fResult.Offset());
        fHasNul = values.HasNul();
        fIsValid = validator.IsValid();
        if (fIsValid) return !fResult.IsError();
        fKeyword = validator.GetInvalidSchemaKeyword();
        fSchemaPlace = validator.GetInvalidSchemaPointer();
        fDocumentPlace = validator.GetInvalidDocumentPointer();
        return false;
    }

    const std::string& fText;
    rapidjson::ParseResult fResult;
    bool fHasNul = false;
    bool fIsValid = true;
    const char* fKeyword = "";  // of the rule that is broken
    json::Pointer fSchemaPlace;
    json::Pointer fDocumentPlace;

private:
    using Validator =
        rapidjson::GenericSchemaValidator<json::Schema, json::Document, json::Allocator>;
};

/// What the broken rule at a place of the schema asks for, if it is a word or a list of words.
std::string AskedFor(const json::Pointer& schemaPlace, const char* keyword)
{
    json::Document schema;
    schema.Parse(kJobSchema.data(), kJobSchema.size());
    const json::Value* place = schemaPlace.Get(schema);
    if (!place || !place->IsObject() || !place->HasMember(keyword)) return {};
    const json::Value& rule = (*place)[keyword];
    if (rule.IsInt()) return std::to_string(rule.GetInt());
    if (rule.IsString()) return rule.GetString();
    std::string words;
    if (!rule.IsArray()) return words;
    for (const auto& word : rule.GetArray())
        words += fmt::format("{}{}", words.empty() ? "" : ", ", word.GetString());
    return words;
}

/// "line 3, column 7" of a byte of the text.
std::string LineText(std::string_view text, std::size_t offset)
{
    const std::string_view before = text.substr(0, offset);
    const auto line = 1 + std::count(before.begin(), before.end(), '\n');
    return fmt::format("line {}, column {}", line, before.size() - (before.rfind('\n') + 1) + 1);
}

/// The place of the first key that stands twice in one object; empty where none does.
std::string FindRepeatedKey(const json::Value& value, const std::string& place)
{
    std::string found;
    if (value.IsArray()) {
        for (rapidjson::SizeType item = 0; item < value.Size() && found.empty(); ++item)
            found = FindRepeatedKey(value[item], fmt::format("{}/{}", place, item));
        return found;
    }
    if (!value.IsObject()) return found;
    std::unordered_set<std::string_view> keys;
    for (const auto& [name, member] : value.GetObject()) {
        const std::string_view key(name.GetString(), name.GetStringLength());
        found = fmt::format("{}/{}", place, key);
        if (!keys.insert(key).second) return found;
        found = FindRepeatedKey(member, found);
        if (!found.empty()) return found;
    }
    return found;
}

std::string PlaceText(const json::Pointer& place)
{
    json::StringBuffer buffer;
    place.Stringify(buffer);
    std::string text = buffer.GetSize() > 0 ? buffer.GetString() : "the job";
    constexpr std::size_t kLongest = 100;
    if (text.size() > kLongest)
        text.replace(WholeCharacters(text, kLongest).size(), std::string::npos, "...");
    return text;
}

}  // namespace

json::Document ParseJob(const std::string& text, const std::string& name)
{
    JobReader reader(text);
    json::Document document;
    document.Populate(reader);
    const rapidjson::ParseResult& result = reader.fResult;
    if (!result.IsError()) {
        const std::string repeated = FindRepeatedKey(document, {});
        if (repeated.empty()) return document;
        throw JobError(fmt::format("{}: {}: the key stands twice", name, repeated));
    }
    if (reader.fHasNul)
        throw JobError(fmt::format("{}: the text that ends at {} holds U+0000", name,
                                   LineText(text, result.Offset() - 1)));
    if (reader.fIsValid)
        throw JobError(fmt::format("{}: no JSON at {}: {}", name, LineText(text, result.Offset()),
                                   rapidjson::GetParseError_En(result.Code())));
    const RuleRow& rule = RuleOf(reader.fKeyword);
    std::string line =
        fmt::format("{}: {}: {}", name, PlaceText(reader.fDocumentPlace), rule.fMeaning);
    if (rule.fTellsBound)
        line += fmt::format(" (the rule: {})", AskedFor(reader.fSchemaPlace, reader.fKeyword));
    throw JobError(line);
}

}  // namespace refhost
