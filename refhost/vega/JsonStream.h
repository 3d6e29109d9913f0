#pragma once

#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

#include <string>
#include <string_view>
#include <vector>

namespace refhost {

/// Writes JSON in order. Texts may hold any bytes: what is not UTF-8 becomes the replacement
/// character. Numbers are the shortest that read back as the same; what is not finite becomes null.
class JsonStream {
public:
    JsonStream() : fWriter(fBuffer) {}

    void BeginObject() { fWriter.StartObject(); }
    void EndObject() { fWriter.EndObject(); }
    void BeginArray() { fWriter.StartArray(); }
    void EndArray() { fWriter.EndArray(); }
    void Key(std::string_view name);

    void Value(std::string_view text);
    void Value(const char* text) { Value(std::string_view(text)); }
    void Value(double number);
    void Value(int number) { fWriter.Int(number); }
    void Value(bool flag) { fWriter.Bool(flag); }
    void Null() { fWriter.Null(); }

    /// An object that is written already.
    void Object(std::string_view json);

    /// A text of several lines as a list of them, one of a single line as it is.
    void Lines(std::string_view text);

    template <typename T>
    void Member(std::string_view name, const T& value)
    {
        Key(name);
        Value(value);
    }

    /// Everything so far; `<` stands as an escape, so that it may go into a script element.
    std::string Text() const;

private:
    rapidjson::StringBuffer fBuffer;
    rapidjson::Writer<rapidjson::StringBuffer> fWriter;
};

/// The number as JavaScript writes it when it turns it into a text.
std::string ScriptNumber(double number);

/// The lines of a text, parted by line feeds and by the separators of Unicode.
std::vector<std::string> SplitLines(std::string_view text);

}  // namespace refhost
