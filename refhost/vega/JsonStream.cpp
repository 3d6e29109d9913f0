#include "refhost/vega/JsonStream.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdint>

namespace refhost {
namespace {

constexpr double kAllDigitsExact = 1e15;
constexpr std::string_view kReplacement = "\xEF\xBF\xBD";

struct LeadByte {
    unsigned char fFirst, fLast;
    unsigned char fLength;
    unsigned char fSecondFirst, fSecondLast;
};

// clang-format off
constexpr LeadByte kLeadBytes[] = {
    {0x00, 0x7F, 1, 0x00, 0x00},
    {0xC2, 0xDF, 2, 0x80, 0xBF},
    {0xE0, 0xE0, 3, 0xA0, 0xBF},
    {0xE1, 0xEC, 3, 0x80, 0xBF},
    {0xED, 0xED, 3, 0x80, 0x9F},
    {0xEE, 0xEF, 3, 0x80, 0xBF},
    {0xF0, 0xF0, 4, 0x90, 0xBF},
    {0xF1, 0xF3, 4, 0x80, 0xBF},
    {0xF4, 0xF4, 4, 0x80, 0x8F},
};
// clang-format on

/// Length of the character that the text begins with; 0 where it begins with none.
std::size_t CharacterLength(std::string_view text)
{
    const auto byte = [&text](std::size_t at) { return static_cast<unsigned char>(text[at]); };
    for (const LeadByte& lead : kLeadBytes) {
        if (byte(0) < lead.fFirst || byte(0) > lead.fLast) continue;
        if (lead.fLength == 1) return 1;
        if (text.size() < lead.fLength) return 0;
        if (byte(1) < lead.fSecondFirst || byte(1) > lead.fSecondLast) return 0;
        for (std::size_t at = 2; at < lead.fLength; ++at) {
            if (byte(at) < 0x80 || byte(at) > 0xBF) return 0;
        }
        return lead.fLength;
    }
    return 0;
}

/// Empty where the text is whole as it is.
std::string Repaired(std::string_view text)
{
    std::string repaired;
    std::size_t good = 0;
    for (std::size_t at = 0; at < text.size();) {
        if (const std::size_t length = CharacterLength(text.substr(at)); length != 0) {
            at += length;
            continue;
        }
        repaired.append(text.substr(good, at - good)).append(kReplacement);
        good = ++at;
    }
    if (good != 0) repaired.append(text.substr(good));
    return repaired;
}

rapidjson::SizeType Size(std::string_view text)
{
    return static_cast<rapidjson::SizeType>(text.size());
}

std::string_view ShortestDecimal(double number, std::chars_format format, char (&room)[400])
{
    const auto end = std::to_chars(room, room + sizeof room, number, format).ptr;
    return {room, static_cast<std::size_t>(end - room)};
}

}  // namespace

void JsonStream::Key(std::string_view name)
{
    const std::string repaired = Repaired(name);
    const std::string_view whole = repaired.empty() ? name : std::string_view(repaired);
    fWriter.Key(whole.data(), Size(whole));
}

void JsonStream::Value(std::string_view text)
{
    const std::string repaired = Repaired(text);
    const std::string_view whole = repaired.empty() ? text : std::string_view(repaired);
    fWriter.String(whole.empty() ? "" : whole.data(), Size(whole));
}

void JsonStream::Value(double number)
{
    if (!std::isfinite(number)) return Null();
    char room[40];
    const auto end = std::to_chars(room, room + sizeof room, number).ptr;
    fWriter.RawValue(room, static_cast<std::size_t>(end - room), rapidjson::kNumberType);
}

void JsonStream::Object(std::string_view json)
{
    fWriter.RawValue(json.data(), json.size(), rapidjson::kObjectType);
}

void JsonStream::Lines(std::string_view text)
{
    const std::vector<std::string> lines = SplitLines(text);
    if (lines.size() == 1) return Value(std::string_view(lines.front()));
    BeginArray();
    for (const std::string& line : lines) {
        Value(std::string_view(line));
    }
    EndArray();
}

std::string JsonStream::Text() const
{
    const std::string_view written(fBuffer.GetString(), fBuffer.GetSize());
    std::string text;
    text.reserve(written.size());
    for (const char c : written) {
        if (c == '<') {
            text.append("\\u003c");
        } else {
            text.push_back(c);
        }
    }
    return text;
}

std::string ScriptNumber(double number)
{
    if (number == 0.0) return "0";
    const double size = std::fabs(number);
    char room[400];
    if (size >= 1e-6 && size < kAllDigitsExact) {
        return std::string(ShortestDecimal(number, std::chars_format::fixed, room));
    }
    std::string text(ShortestDecimal(number, std::chars_format::scientific, room));
    const std::size_t exponent = text.find('e');
    if (exponent == std::string::npos) return text;
    if (size >= 1.0 && size < 1e21) {  // the shortest digits, then zeros
        const int power = std::stoi(text.substr(exponent + 1));
        const std::size_t sign = number < 0.0 ? 1 : 0;
        text.resize(exponent);
        text.erase(std::remove(text.begin(), text.end(), '.'), text.end());
        text.resize(sign + static_cast<std::size_t>(power) + 1, '0');
        return text;
    }
    // JavaScript pads no exponent: 1e-7, not 1e-07.
    if (exponent + 2 < text.size() && text[exponent + 2] == '0') text.erase(exponent + 2, 1);
    return text;
}

std::vector<std::string> SplitLines(std::string_view text)
{
    constexpr std::string_view kBreaks[] = {"\r\n", "\n", "\r", "\xE2\x80\xA8", "\xE2\x80\xA9"};
    std::vector<std::string> lines(1);
    while (!text.empty()) {
        const auto* found = std::find_if(
            std::begin(kBreaks), std::end(kBreaks),
            [text](std::string_view separator) { return text.starts_with(separator); });
        if (found != std::end(kBreaks)) {
            lines.emplace_back();
            text.remove_prefix(found->size());
        } else {
            lines.back().push_back(text.front());
            text.remove_prefix(1);
        }
    }
    while (lines.size() > 1 && lines.back().empty()) {
        lines.pop_back();
    }
    return lines;
}

}  // namespace refhost
