#pragma once

#include <rapidjson/writer.h>

#include <cstdint>
#include <string>
#include <string_view>

#include "refhost/writers/ByteOutput.h"

namespace refhost {

/// Writes JSON as it comes. Texts may hold any bytes: what is not UTF-8 becomes U+FFFD. Numbers are
/// the shortest that read back as the same; the missing number, and what is not finite, is null.
class JsonEmitter {
public:
    explicit JsonEmitter(ByteOutput& output) : fStream(output), fWriter(fStream) {}

    void BeginObject() { fWriter.StartObject(); }
    void EndObject() { fWriter.EndObject(); }
    void BeginArray() { fWriter.StartArray(); }
    void EndArray() { fWriter.EndArray(); }

    /// Names are the format's own, in ASCII.
    void Key(std::string_view name);

    /// A name that stands in a document.
    void ForeignKey(std::string_view name);

    void String(std::string_view text);
    void Number(double number);
    void Integer(std::int64_t number) { fWriter.Int64(number); }
    void Bool(bool flag) { fWriter.Bool(flag); }
    void Null() { fWriter.Null(); }

    /// What comes next, its comma apart, begins on a new line, indented so deep.
    void BreakLine(unsigned depth) { fStream.BreakLine(depth); }

private:
    /// The output stream of the JSON library.
    class Stream {
    public:
        using Ch = char;
        explicit Stream(ByteOutput& output) : fOutput(output) {}
        void Put(char c)
        {
            if (fBreaks)
                PutAtBreak(c);
            else
                fOutput.Put(c);
        }
        void Flush() {}
        void BreakLine(unsigned depth);

    private:
        /// A comma stays on the line before; all else begins the new one.
        void PutAtBreak(char c);
        void StartLine();

        ByteOutput& fOutput;
        bool fBreaks = false;
        unsigned fDepth = 0;
    };

    Stream fStream;
    rapidjson::Writer<Stream> fWriter;
    std::string fScratch;
};

}  // namespace refhost
