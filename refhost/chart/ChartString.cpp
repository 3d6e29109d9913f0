#include "host/chart/ChartString.h"

#include "refhost/chart/Transcoding.h"
#include "refhost/data/Calendar.h"
#include "refhost/data/NumberText.h"

ChartString::ChartString(const char* text) : fText(refhost::ToUtf16(text ? text : "")) {}

ChartString::ChartString(const std::string& text) : fText(refhost::ToUtf16(text)) {}

void ChartString::assign(const ChartString& text) { fText = text.fText; }

void ChartString::assignDouble(double value, int digits)
{
    const std::string text = refhost::ShortText(value, digits);
    fText.assign(text.begin(), text.end());
}

void ChartString::assignInteger(int value)
{
    fText.clear();
    appendInteger(value);
}

void ChartString::append(const ChartString& text) { fText += text.fText; }

void ChartString::appendInteger(int value)
{
    const std::string text = std::to_string(value);
    fText.append(text.begin(), text.end());
}

void ChartString::replaceSubstring(const ChartString& from, const ChartString& to)
{
    if (from.empty()) return;
    std::u16string replaced;
    std::size_t done = 0;
    for (std::size_t at = fText.find(from.fText); at != std::u16string::npos;
         at = fText.find(from.fText, done)) {
        replaced.append(fText, done, at - done).append(to.fText);
        done = at + from.fText.size();
    }
    if (done == 0) return;
    replaced.append(fText, done);
    fText = std::move(replaced);
}

bool ChartString::equals(const ChartString& other) const { return fText == other.fText; }

std::string ChartString::toUTF8() const { return refhost::ToUtf8(fText); }

// The texts of the host are UTF-8, whatever they come from.
ChartString XUtility::ChartStringFromOLANG(const std::string& text) { return {text}; }

ChartString XUtility::ChartStringFromLocalCodePage(const std::string& text) { return {text}; }

ChartTranscoder::ChartTranscoder(const char* codePage) : fCodePage(codePage ? codePage : "") {}

ChartString ChartTranscoder::transcode(const std::string& text) const
{
    return {refhost::ToUtf8(refhost::FromCodePage(text, fCodePage))};
}

ChartString formatter::formattedDate(double seconds)
{
    return {refhost::DateTimeText(seconds, 'T', /*decimals=*/0).value_or(std::string())};
}
