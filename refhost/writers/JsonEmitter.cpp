#include "refhost/writers/JsonEmitter.h"

#include <array>
#include <charconv>
#include <cmath>
#include <limits>

#include "refhost/writers/WellFormed.h"

namespace refhost {

namespace {

constexpr double kMissingNumber = -std::numeric_limits<double>::max();
constexpr std::size_t kLongestDouble = 32;

}  // namespace

void JsonEmitter::Key(std::string_view name)
{
    fWriter.Key(name.data(), static_cast<rapidjson::SizeType>(name.size()));
}

void JsonEmitter::ForeignKey(std::string_view name) { Key(WellFormed(name, fScratch)); }

void JsonEmitter::String(std::string_view text)
{
    const std::string_view sound = WellFormed(text, fScratch);
    fWriter.String(sound.data(), static_cast<rapidjson::SizeType>(sound.size()));
}

void JsonEmitter::Number(double number)
{
    if (!std::isfinite(number) || number == kMissingNumber) {
        fWriter.Null();
        return;
    }
    std::array<char, kLongestDouble> text;
    const auto end = std::to_chars(text.data(), text.data() + text.size(), number).ptr;
    fWriter.RawValue(text.data(), static_cast<std::size_t>(end - text.data()),
                     rapidjson::kNumberType);
}

void JsonEmitter::Stream::PutAtBreak(char c)
{
    if (c == ',') fOutput.Put(c);
    StartLine();
    if (c != ',') fOutput.Put(c);
}

void JsonEmitter::Stream::BreakLine(unsigned depth)
{
    fBreaks = true;
    fDepth = depth;
}

void JsonEmitter::Stream::StartLine()
{
    fBreaks = false;
    fOutput.Put('\n');
    for (unsigned column = 0; column < fDepth; ++column)
        fOutput.Put(' ');
}

}  // namespace refhost
