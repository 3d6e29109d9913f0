#include "refhost/job/CheckedJson.h"

#include <algorithm>
#include <cstddef>
#include <set>
#include <string>
#include <string_view>
#include <vector>

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
    bool fTellsBound = false;  // whether what the schema asks for says more than the meaning
};

// clang-format off
constexpr RuleRow kRules[] = {
    {"additionalProperties", "this key is unknown"},
    {"type",                 "the value has the wrong type", true},
    {"enum",                 "the value is none of those that are allowed", true},
    {"minItems",             "the list is empty"},
    {"minLength",            "the text is empty"},
    {"minimum",              "the number is too small", true},
    {"maximum",              "the number is too large", true},
};
// clang-format on

const RuleRow& RuleOf(std::string_view keyword)
{
    static constexpr RuleRow kOther = {"", "the value is not allowed"};
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

/// Remembers the keys of the objects that are open where a text ends.
class OpenKeys : public rapidjson::BaseReaderHandler<rapidjson::UTF8<>, OpenKeys> {
public:
    bool StartObject()
    {
        fKeys.emplace_back();
        return true;
    }

    bool Key(const char* text, rapidjson::SizeType size, bool)
    {
        fKeys.back().emplace(text, size);
        return true;
    }

    bool EndObject(rapidjson::SizeType)
    {
        fKeys.pop_back();
        return true;
    }

    std::vector<std::set<std::string>> fKeys;
};

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

/// What the broken rule at a place of the schema asks for: a word, or a list of words.
std::vector<std::string> AskedFor(const json::Pointer& schemaPlace, const char* keyword)
{
    json::Document schema;
    schema.Parse(kJobSchema.data(), kJobSchema.size());
    const json::Value* place = schemaPlace.Get(schema);
    if (!place || !place->IsObject() || !place->HasMember(keyword)) return {};
    const json::Value& rule = (*place)[keyword];
    if (rule.IsInt()) return {std::to_string(rule.GetInt())};
    if (rule.IsString()) return {rule.GetString()};
    std::vector<std::string> words;
    if (!rule.IsArray()) return words;
    for (const auto& word : rule.GetArray())
        words.emplace_back(word.GetString());
    return words;
}

/// What the object that a text breaks off in has not of the keys that it should have, quoted.
std::vector<std::string> MissingKeys(std::string_view text, const std::vector<std::string>& wanted)
{
    rapidjson::MemoryStream stream(text.data(), text.size());
    json::Reader reader;
    OpenKeys open;
    reader.Parse<kParseFlags>(stream, open);
    std::vector<std::string> missing;
    for (const std::string& key : wanted)
        if (!open.fKeys.back().contains(key)) missing.push_back(fmt::format("\"{}\"", key));
    return missing;
}

/// "line 3, column 7" of a byte of the text.
std::string LineText(std::string_view text, std::size_t offset)
{
    const std::string_view before = text.substr(0, offset);
    const auto line = 1 + std::count(before.begin(), before.end(), '\n');
    return fmt::format("line {}, column {}", line, before.size() - (before.rfind('\n') + 1) + 1);
}

/// The place, from the value on, of the first key that stands twice in one object; empty where none
/// does. The value keeps to the schema, which knows few keys: the first that comes again does so
/// among the first of its object.
std::string FindRepeatedKey(const json::Value& value)
{
    if (value.IsArray()) {
        for (rapidjson::SizeType item = 0; item < value.Size(); ++item) {
            const std::string found = FindRepeatedKey(value[item]);
            if (!found.empty()) return fmt::format("/{}{}", item, found);
        }
    } else if (value.IsObject()) {
        for (auto member = value.MemberBegin(); member != value.MemberEnd(); ++member) {
            const std::string_view key(member->name.GetString(), member->name.GetStringLength());
            const bool isRepeated = std::any_of(
                value.MemberBegin(), member,
                [&member](const auto& earlier) { return earlier.name == member->name; });
            if (isRepeated) return fmt::format("/{}", key);
            const std::string found = FindRepeatedKey(member->value);
            if (!found.empty()) return fmt::format("/{}{}", key, found);
        }
    }
    return {};
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

/// What is wrong at the place where a text breaks a rule of the schema.
std::string BrokenRule(const JobReader& reader)
{
    const auto asked = AskedFor(reader.fSchemaPlace, reader.fKeyword);
    if (reader.fKeyword == std::string_view("required")) {
        const auto text = std::string_view(reader.fText).substr(0, reader.fResult.Offset());
        return fmt::format("it lacks {}", fmt::join(MissingKeys(text, asked), ", "));
    }
    const RuleRow& rule = RuleOf(reader.fKeyword);
    if (!rule.fTellsBound) return std::string(rule.fMeaning);
    return fmt::format("{} (the rule: {})", rule.fMeaning, fmt::join(asked, ", "));
}

}  // namespace

json::Document ParseJob(const std::string& text, const std::string& name)
{
    JobReader reader(text);
    json::Document document;
    document.Populate(reader);
    const rapidjson::ParseResult& result = reader.fResult;
    if (!result.IsError()) {
        const std::string repeated = FindRepeatedKey(document);
        if (repeated.empty()) return document;
        throw JobError(fmt::format("{}: {}: the key stands twice", name, repeated));
    }
    if (reader.fHasNul)
        throw JobError(fmt::format("{}: the text that ends at {} holds U+0000", name,
                                   LineText(text, result.Offset() - 1)));
    if (reader.fIsValid)
        throw JobError(fmt::format("{}: no JSON at {}: {}", name, LineText(text, result.Offset()),
                                   rapidjson::GetParseError_En(result.Code())));
    throw JobError(
        fmt::format("{}: {}: {}", name, PlaceText(reader.fDocumentPlace), BrokenRule(reader)));
}

}  // namespace refhost
