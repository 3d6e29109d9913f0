#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

#include "refhost/json/JsonTypes.h"
#include "refhost/writers/ByteOutput.h"

namespace refhost {

/// Writes JSON as it comes. Texts may hold any bytes: what is not UTF-8 becomes U+FFFD. Numbers are
/// the shortest that read back as the same; the missing number, and what is not finite, is null.
class JsonEmitter {
public:
    explicit JsonEmitter(ByteOutput& output) : fOutput(output), fStream(output), fWriter(fStream) {}

    void BeginObject() { fWriter.BeginObject(); }
    void EndObject() { fWriter.EndObject(); }
    void BeginArray() { fWriter.BeginArray(); }
    void EndArray() { fWriter.EndArray(); }

    /// A name that needs no escape, or is escaped.
    void Key(std::string_view name)
    {
        constexpr std::size_t kQuotes = 2;
        if (name.size() > kLongestName) return LongKey(name);
        char* out = RoomBehindSeparator(name.size() + kQuotes);
        *out++ = '"';
        std::memcpy(out, name.data(), name.size());
        out += name.size();
        *out++ = '"';
        fOutput.Took(out);
    }

    void String(std::string_view text);
    void Number(double number);
    void Integer(std::int64_t number) { fWriter.Integer(number); }
    void Bool(bool flag) { fWriter.Truth(flag); }
    void Null() { fWriter.Nothing(); }

    /// Members of an array whose brackets are written elsewhere, as by another emitter.
    void BeginMembers() { fWriter.BeginMembers(); }
    void EndMembers() { fWriter.EndMembers(); }

    /// One or more members as they were written elsewhere, with the line breaks before them.
    void Members(std::string_view members);

    /// What comes next, its comma apart, begins on a new line, indented so deep (62 columns at
    /// most).
    void BreakLine(unsigned depth) { fWriter.BreakLine(depth); }

private:
    static constexpr std::size_t kLongestName = 1024;  // for which there is room at once

    void LongKey(std::string_view name);

    /// The output stream of the JSON library.
    class Stream {
    public:
        using Ch = char;
        explicit Stream(ByteOutput& output) : fOutput(output) {}
        void Put(char c) { fOutput.Put(c); }
        void Flush() {}
        ByteOutput& Output() { return fOutput; }

    private:
        ByteOutput& fOutput;
    };

    /// Room for a value so long behind what separates it, which is there already.
    char* RoomBehindSeparator(std::size_t bytes)
    {
        return fWriter.Separate(fOutput.Room(LineWriter::kMostBetween + bytes));
    }

    /// The library's writer with line breaks behind commas.
    class LineWriter : public json::Writer<Stream> {
    public:
        using Writer::Writer;
        void BeginObject();
        void EndObject();
        void BeginArray();
        void EndArray();
        void BeginMembers();
        void EndMembers();
        void Integer(std::int64_t number);
        void Truth(bool flag);
        void Nothing();
        void BreakLine(unsigned depth);

        /// The most bytes that `Separate` writes.
        static constexpr std::size_t kMostBetween = 64;

        /// Writes what stands between the last value and the next; tells its end.
        char* Separate(char* out)
        {
            if (!level_stack_.Empty()) {
                Level& level = *level_stack_.Top<Level>();
                const bool isBehindName = !level.inArray && level.valueCount % 2 != 0;
                if (level.valueCount > 0) *out++ = isBehindName ? ':' : ',';
                ++level.valueCount;
            }
            return fBreaks ? StartLine(out) : out;
        }

    private:
        static constexpr unsigned kDeepestIndent =
            kMostBetween - 2;  // behind a comma and the break

        void Separate();
        void EndLine();  // before a bracket that closes
        char* StartLine(char* out);

        bool fBreaks = false;
        unsigned fDepth = 0;
    };

    ByteOutput& fOutput;
    Stream fStream;
    LineWriter fWriter;
};

}  // namespace refhost
