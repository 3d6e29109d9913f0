#pragma once

#include <cstddef>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

namespace refhost {

/// Writes JSON in order, at the end of a text. Texts may hold any bytes: what is not UTF-8 becomes
/// the replacement character, and `<` an escape, so that all of it may go into a script element.
/// Numbers are the shortest that read back as the same; what is not finite becomes null.
class JsonStream {
public:
    /// Appends to a text, which outlives this object and is whole when it ends.
    explicit JsonStream(std::string& out) : fOut(out), fUsed(out.size()) {}
    ~JsonStream() { fOut.resize(fUsed); }
    JsonStream(const JsonStream&) = delete;
    JsonStream& operator=(const JsonStream&) = delete;

    void BeginObject() { Begin('{'); }
    void EndObject() { End('}'); }
    void BeginArray() { Begin('['); }
    void EndArray() { End(']'); }

    /// Names are the format's own, in ASCII.
    void Key(std::string_view name)
    {
        char* at = Room(name.size() + 4);
        if (fIsBehindValue) *at++ = ',';
        *at++ = '"';
        std::memcpy(at, name.data(), name.size());
        at += name.size();
        *at++ = '"';
        *at++ = ':';
        Took(at);
        fIsBehindValue = false;
    }

    /// A name that stands in the data.
    void ForeignKey(std::string_view name);

    void Value(std::string_view text);

    /// Words are the format's own, as names are, and hold nothing that needs an escape.
    void Value(const char* word)
    {
        Separate();
        Put('"');
        Append(word);
        Put('"');
        fIsBehindValue = true;
    }
    void Value(double number);
    void Value(int number);
    void Value(bool flag) { Written(flag ? "true" : "false"); }
    void Null() { Written("null"); }

    /// A value that is written already.
    void Written(std::string_view json)
    {
        Separate();
        Append(json);
        fIsBehindValue = true;
    }

    /// A text of several lines as a list of them, one of a single line as it is.
    void Lines(std::string_view text);

    template <typename T>
    void Member(std::string_view name, const T& value)
    {
        Key(name);
        Value(value);
    }

private:
    /// Place for so many bytes behind what is written.
    char* Room(std::size_t bytes)
    {
        if (fOut.size() - fUsed < bytes) Grow(bytes);
        return fOut.data() + fUsed;
    }
    void Took(const char* end) { fUsed = static_cast<std::size_t>(end - fOut.data()); }
    void Grow(std::size_t bytes);

    void Put(char c)
    {
        *Room(1) = c;
        ++fUsed;
    }
    void Append(std::string_view bytes)
    {
        std::memcpy(Room(bytes.size()), bytes.data(), bytes.size());
        fUsed += bytes.size();
    }
    void Separate()
    {
        if (fIsBehindValue) Put(',');
    }
    void Begin(char bracket)
    {
        Separate();
        Put(bracket);
        fIsBehindValue = false;
    }
    void End(char bracket)
    {
        Put(bracket);
        fIsBehindValue = true;
    }

    std::string& fOut;  // longer than what is written: pieces are short, and many
    std::size_t fUsed;
    bool fIsBehindValue = false;
};

/// The number as JavaScript writes it when it turns it into a text.
std::string ScriptNumber(double number);

/// The lines of a text, parted by line feeds and by the separators of Unicode.
std::vector<std::string_view> SplitLines(std::string_view text);

}  // namespace refhost
