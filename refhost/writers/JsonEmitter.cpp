#include "refhost/writers/JsonEmitter.h"

#include <cmath>
#include <limits>

#include "refhost/data/ShortestNumber.h"
#include "refhost/writers/JsonText.h"

namespace refhost {

namespace {

constexpr double kMissingNumber = -std::numeric_limits<double>::max();

}  // namespace

void JsonEmitter::Key(std::string_view name)
{
    fWriter.Separate();
    fOutput.Put('"');
    fOutput.Write(name);
    fOutput.Put('"');
}

void JsonEmitter::String(std::string_view text)
{
    fWriter.Separate();
    WriteJsonText(fOutput, text);
}

void JsonEmitter::Number(double number)
{
    if (!std::isfinite(number) || number == kMissingNumber) {
        Null();
        return;
    }
    fWriter.Separate();
    char text[kLongestNumber];
    const char* const end = WriteShortest(text, number);
    fOutput.Write({text, static_cast<std::size_t>(end - text)});
}

void JsonEmitter::Members(std::string_view members)
{
    fWriter.Separate();
    fOutput.Write(members);
}

void JsonEmitter::LineWriter::BeginObject()
{
    Separate();
    new (level_stack_.Push<Level>()) Level(/*inArray_=*/false);
    WriteStartObject();
}

void JsonEmitter::LineWriter::EndObject()
{
    level_stack_.Pop<Level>(1);
    if (fBreaks) StartLine();
    WriteEndObject();
}

void JsonEmitter::LineWriter::BeginArray()
{
    Separate();
    new (level_stack_.Push<Level>()) Level(/*inArray_=*/true);
    WriteStartArray();
}

void JsonEmitter::LineWriter::EndArray()
{
    level_stack_.Pop<Level>(1);
    if (fBreaks) StartLine();
    WriteEndArray();
}

void JsonEmitter::LineWriter::BeginMembers()
{
    new (level_stack_.Push<Level>()) Level(/*inArray_=*/true);
}

void JsonEmitter::LineWriter::EndMembers() { level_stack_.Pop<Level>(1); }

void JsonEmitter::LineWriter::Integer(std::int64_t number)
{
    Separate();
    WriteInt64(number);
}

void JsonEmitter::LineWriter::Truth(bool flag)
{
    Separate();
    WriteBool(flag);
}

void JsonEmitter::LineWriter::Nothing()
{
    Separate();
    WriteNull();
}

void JsonEmitter::LineWriter::BreakLine(unsigned depth)
{
    fBreaks = true;
    fDepth = depth;
}

void JsonEmitter::LineWriter::Separate()
{
    if (!level_stack_.Empty()) {
        Level& level = *level_stack_.Top<Level>();
        const bool isBehindName = !level.inArray && level.valueCount % 2 != 0;
        if (level.valueCount > 0) os_->Put(isBehindName ? ':' : ',');
        ++level.valueCount;
    }
    if (fBreaks) StartLine();
}

void JsonEmitter::LineWriter::StartLine()
{
    fBreaks = false;
    os_->Put('\n');
    for (unsigned column = 0; column < fDepth; ++column)
        os_->Put(' ');
}

}  // namespace refhost
