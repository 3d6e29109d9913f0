#pragma once

#include <cstdint>
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

    /// Names are the format's own, in ASCII that needs no escape.
    void Key(std::string_view name);

    /// A name that stands in a document.
    void ForeignKey(std::string_view name) { String(name); }

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

    /// What comes next, its comma apart, begins on a new line, indented so deep.
    void BreakLine(unsigned depth) { fWriter.BreakLine(depth); }

private:
    /// The output stream of the JSON library.
    class Stream {
    public:
        using Ch = char;
        explicit Stream(ByteOutput& output) : fOutput(output) {}
        void Put(char c) { fOutput.Put(c); }
        void Flush() {}

    private:
        ByteOutput& fOutput;
    };

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

        /// What stands between the last value and the next.
        void Separate();

    private:
        void StartLine();

        bool fBreaks = false;
        unsigned fDepth = 0;
    };

    ByteOutput& fOutput;
    Stream fStream;
    LineWriter fWriter;
};

}  // namespace refhost
