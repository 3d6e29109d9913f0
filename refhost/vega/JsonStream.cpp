#include "refhost/vega/JsonStream.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <iterator>

#include "refhost/data/CharacterSet.h"
#include "refhost/data/JsonEscape.h"
#include "refhost/data/ShortestNumber.h"

namespace refhost {
namespace {

constexpr double kAllDigitsExact = 1e15;

std::string_view ShortestDecimal(double number, std::chars_format format, char (&room)[400])
{
    const auto end = std::to_chars(room, room + sizeof room, number, format).ptr;
    return {room, static_cast<std::size_t>(end - room)};
}

}  // namespace

void JsonStream::Grow(std::size_t bytes)
{
    constexpr std::size_t kPiece = 4096;
    fOut.resize(fUsed + bytes + kPiece);
}

void JsonStream::ForeignKey(std::string_view name)
{
    Value(name);
    Put(':');
    fIsBehindValue = false;
}

void JsonStream::Value(std::string_view text)
{
    Separate();
    Put('"');
    while (!text.empty())
        Took(TakeEscapedForScript(text, Room(EscapedRoom(text.size()))));
    Put('"');
    fIsBehindValue = true;
}

void JsonStream::Value(double number)
{
    if (!std::isfinite(number)) return Null();
    Separate();
    fUsed = static_cast<std::size_t>(WriteShortest(Room(kLongestNumber), number) - fOut.data());
    fIsBehindValue = true;
}

void JsonStream::Value(int number)
{
    Separate();
    char* room = Room(kLongestNumber);
    fUsed = static_cast<std::size_t>(std::to_chars(room, room + kLongestNumber, number).ptr -
                                     fOut.data());
    fIsBehindValue = true;
}

void JsonStream::Lines(std::string_view text)
{
    static constexpr CharacterSet kStartsOfBreaks("\n\r\xE2");
    if (!kStartsOfBreaks.HasAny(text)) return Value(text);
    const std::vector<std::string_view> lines = SplitLines(text);
    if (lines.size() == 1) return Value(lines.front());
    BeginArray();
    for (const std::string_view line : lines) {
        Value(line);
    }
    EndArray();
}

std::string ScriptNumber(double number)
{
    char room[400];
    if (char* end = WriteShortDecimal(room, number)) return {room, end};
    const double size = std::fabs(number);
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

std::vector<std::string_view> SplitLines(std::string_view text)
{
    constexpr std::string_view kBreaks[] = {"\r\n", "\n", "\r", "\xE2\x80\xA8", "\xE2\x80\xA9"};
    std::vector<std::string_view> lines;
    std::size_t from = 0;
    for (std::size_t at = 0; at < text.size();) {
        const std::string_view rest = text.substr(at);
        const auto* found = std::find_if(
            std::begin(kBreaks), std::end(kBreaks),
            [rest](std::string_view separator) { return rest.starts_with(separator); });
        if (found == std::end(kBreaks)) {
            ++at;
            continue;
        }
        lines.push_back(text.substr(from, at - from));
        from = at += found->size();
    }
    lines.push_back(text.substr(from));
    while (lines.size() > 1 && lines.back().empty()) {
        lines.pop_back();
    }
    return lines;
}

}  // namespace refhost
