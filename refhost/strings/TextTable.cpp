#include "refhost/strings/TextTable.h"

#include <rapidjson/error/en.h>

#include <fmt/format.h>
#include <utility>

#include "refhost/data/FileText.h"
#include "refhost/json/JsonTypes.h"

namespace refhost {

namespace {

const TextTable kEmpty;
const TextTable* gActive = &kEmpty;

/// Texts are flat, so the iterative parser is for files that are something else.
constexpr unsigned kParseFlags =
    rapidjson::kParseIterativeFlag | rapidjson::kParseValidateEncodingFlag;

template <class Map>
bool LayOver(const json::Value& texts, Map& map, std::string& reason)
{
    for (const auto& [key, text] : texts.GetObject()) {
        if (!text.IsString()) {
            reason = fmt::format("the text of {:?} is no string",
                                 std::string_view(key.GetString(), key.GetStringLength()));
            return false;
        }
        map.insert_or_assign(std::string(key.GetString(), key.GetStringLength()),
                             std::string(text.GetString(), text.GetStringLength()));
    }
    return true;
}

}  // namespace

bool TextTable::Load(const std::string& file, std::string& reason)
{
    std::string json;
    if (!ReadFile(file, json)) {
        reason = "it can't be read";
        return false;
    }
    json::Document document;
    document.Parse<kParseFlags>(json.data(), json.size());
    if (document.HasParseError()) {
        reason =
            fmt::format("{} At byte {}.", rapidjson::GetParseError_En(document.GetParseError()),
                        document.GetErrorOffset());
        return false;
    }
    if (!document.IsObject()) {
        reason = "it is no JSON object";
        return false;
    }
    for (const auto& [name, texts] : std::as_const(document).GetObject()) {
        const std::string_view section(name.GetString(), name.GetStringLength());
        if ((section != "pivot" && section != "charts") || !texts.IsObject()) {
            reason = fmt::format("{:?} is neither an object \"pivot\" nor \"charts\"", section);
            return false;
        }
        if (!LayOver(texts, section == "pivot" ? fPivot : fCharts, reason)) return false;
    }
    return true;
}

const std::string* TextTable::Find(Section section, std::string_view key) const
{
    const Texts& texts = section == Section::Pivot ? fPivot : fCharts;
    const auto found = texts.find(key);
    return found == texts.end() ? nullptr : &found->second;
}

std::string TextTable::LookUp(Section section, std::string_view key) const
{
    const std::string* text = Find(section, key);
    return text ? *text : std::string(key);
}

const TextTable& TextTable::Active() { return *gActive; }

TextTable::Scope::Scope(const TextTable& table) : fPrevious(gActive) { gActive = &table; }

TextTable::Scope::~Scope() { gActive = fPrevious; }

}  // namespace refhost
