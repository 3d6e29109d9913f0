#include "refhost/writers/JsonEmitter.h"

#include <algorithm>

#include "refhost/data/JsonEscape.h"
#include "refhost/data/MissingValue.h"
#include "refhost/data/ShortestNumber.h"

namespace refhost {

void JsonEmitter::String(std::string_view text)
{
    constexpr std::size_t kQuotes = 2;
    char* out = RoomBehindSeparator(EscapedRoom(text.size()) + kQuotes);
    *out++ = '"';
    out = TakeEscaped(text, out);
    while (!text.empty()) {
        fOutput.Took(out);
        out = TakeEscaped(text, fOutput.Room(EscapedRoom(text.size()) + kQuotes));
    }
    *out++ = '"';
    fOutput.Took(out);
}

void JsonEmitter::LongKey(std::string_view name)
{
    fOutput.Took(RoomBehindSeparator(0));
    fOutput.Put('"');
    fOutput.Write(name);
    fOutput.Put('"');
}

void JsonEmitter::Number(double number)
{
    if (IsUntold(number)) {
        Null();
        return;
    }
    fOutput.Took(WriteShortest(RoomBehindSeparator(kLongestNumber), number));
}

void JsonEmitter::Members(std::string_view members)
{
    fOutput.Took(RoomBehindSeparator(0));
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
    EndLine();
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
    EndLine();
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
    fDepth = std::min(depth, kDeepestIndent);
}

void JsonEmitter::LineWriter::Separate()
{
    ByteOutput& output = os_->Output();
    output.Took(Separate(output.Room(kMostBetween)));
}

void JsonEmitter::LineWriter::EndLine()
{
    if (!fBreaks) return;
    ByteOutput& output = os_->Output();
    output.Took(StartLine(output.Room(kMostBetween)));
}

char* JsonEmitter::LineWriter::StartLine(char* out)
{
    fBreaks = false;
    *out++ = '\n';
    return std::fill_n(out, fDepth, ' ');
}

}  // namespace refhost
