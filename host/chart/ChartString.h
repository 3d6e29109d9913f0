#pragma once

#include <string>
#include <string_view>

/// 16-bit text (UTF-16) of the chart libraries.
class ChartString {
public:
    ChartString() = default;

    /// From 8-bit text of the host.
    ChartString(const char* text);
    ChartString(const std::string& text);

    void assign(const ChartString& text);

    /// The shortest text that reads back as the value, rounded to at most `digits` digits behind
    /// the point.
    void assignDouble(double value, int digits);
    void assignInteger(int value);

    void append(const ChartString& text);
    void appendInteger(int value);

    /// Replaces every occurrence. An empty `from` changes nothing.
    void replaceSubstring(const ChartString& from, const ChartString& to);

    bool equals(const ChartString& other) const;
    bool empty() const { return fText.empty(); }

    /// UTF-8, which feeds a template.
    std::string toUTF8() const;

    /// The text with a closing NUL, which feeds a call of the library; valid until the next change.
    const char16_t* xc_str() const { return fText.c_str(); }

    std::u16string_view view() const { return fText; }

private:
    std::u16string fText;
};

/// Conversions by where a text comes from.
class XUtility {
public:
    /// 8-bit text of the output language: what `FacSTDictionary::LookUp` gives.
    static ChartString ChartStringFromOLANG(const std::string& text);

    /// 8-bit text of the local code page.
    static ChartString ChartStringFromLocalCodePage(const std::string& text);
};

/// Converts 8-bit text of a named code page.
class ChartTranscoder {
public:
    explicit ChartTranscoder(const char* codePage);
    ChartString transcode(const std::string& text) const;

private:
    std::string fCodePage;
};

namespace formatter {

/// The date and time of seconds since 14 October 1582, as a template attribute has it:
/// YYYY-MM-DDTHH:MM:SS.
ChartString formattedDate(double seconds);

}  // namespace formatter
