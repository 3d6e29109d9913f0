#pragma once

#include <rapidjson/document.h>
#include <rapidjson/reader.h>

#include <charconv>
#include <cstdint>
#include <system_error>

namespace refhost {

/// Stands between a reader that hands numbers on as texts and what takes them as numbers, and reads
/// them to the last bit. (The reader's own way to do that makes any number of a zero that has an
/// exponent.)
template <class Next>
class ExactNumbers {
public:
    using Ch = char;
    using Size = rapidjson::SizeType;

    explicit ExactNumbers(Next& next) : fNext(next) {}

    /// Whether reading ended at a number that no double holds.
    bool IsTooBig() const { return fIsTooBig; }

    bool RawNumber(const Ch* text, Size size, bool)
    {
        std::int64_t integer = 0;
        if (IsWhole(std::from_chars(text, text + size, integer), text + size))
            return fNext.Int64(integer);
        double number = 0.0;
        if (!IsWhole(std::from_chars(text, text + size, number), text + size)) {
            fIsTooBig = rapidjson::Document().Parse(text, size).HasParseError();
            if (fIsTooBig) return false;
        }
        return fNext.Double(number);
    }

    bool Null() { return fNext.Null(); }
    bool Bool(bool flag) { return fNext.Bool(flag); }
    bool String(const Ch* text, Size size, bool copy) { return fNext.String(text, size, copy); }
    bool Key(const Ch* text, Size size, bool copy) { return fNext.Key(text, size, copy); }
    bool StartObject() { return fNext.StartObject(); }
    bool EndObject(Size count) { return fNext.EndObject(count); }
    bool StartArray() { return fNext.StartArray(); }
    bool EndArray(Size count) { return fNext.EndArray(count); }

    // Numbers come as texts only.
    bool Int(int) { return false; }
    bool Uint(unsigned) { return false; }
    bool Int64(std::int64_t) { return false; }
    bool Uint64(std::uint64_t) { return false; }
    bool Double(double) { return false; }

private:
    static bool IsWhole(const std::from_chars_result& read, const Ch* end)
    {
        return read.ec == std::errc() && read.ptr == end;
    }

    Next& fNext;
    bool fIsTooBig = false;
};

}  // namespace refhost
