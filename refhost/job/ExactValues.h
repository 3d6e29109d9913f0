#pragma once

#include <rapidjson/document.h>
#include <rapidjson/reader.h>

#include <charconv>
#include <cstdint>
#include <string_view>
#include <system_error>

namespace refhost {

/// Stands between a reader that hands numbers on as texts and what takes them as numbers, and reads
/// them to the last bit. (The reader's own way to do that makes any number of a zero that has an
/// exponent.) Reading ends at a key or text with U+0000: the host's libraries would take it for the
/// end of a name.
template <class Next>
class ExactValues {
public:
    using Ch = char;
    using Size = rapidjson::SizeType;

    explicit ExactValues(Next& next) : fNext(next) {}

    /// Whether reading ended at a number that no double holds.
    bool IsTooBig() const { return fIsTooBig; }

    /// Whether reading ended behind a text with U+0000.
    bool HasNul() const { return fHasNul; }

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

    bool String(const Ch* text, Size size, bool copy)
    {
        return IsText(text, size) && fNext.String(text, size, copy);
    }

    bool Key(const Ch* text, Size size, bool copy)
    {
        return IsText(text, size) && fNext.Key(text, size, copy);
    }

    bool Null() { return fNext.Null(); }
    bool Bool(bool flag) { return fNext.Bool(flag); }
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

    bool IsText(const Ch* text, Size size)
    {
        fHasNul = std::string_view(text, size).find('\0') != std::string_view::npos;
        return !fHasNul;
    }

    Next& fNext;
    bool fIsTooBig = false;
    bool fHasNul = false;
};

}  // namespace refhost
