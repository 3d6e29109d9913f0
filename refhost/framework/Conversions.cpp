#include "host/framework/Conversions.h"

#include <cstddef>
#include <string_view>

#include "refhost/framework/Blanks.h"
#include "refhost/framework/NumberParsing.h"

#include "refhost/data/DateFormats.h"
#include "refhost/data/MissingValue.h"

namespace {

/// The first place from `place` on that has no blank; the end where there is no such place.
std::size_t TokenFrom(std::string_view text, std::size_t place)
{
    while (place < text.size() && refhost::IsBlank(text[place]))
        ++place;
    return place;
}

/// The same for the first blank.
std::size_t BlankFrom(std::string_view text, std::size_t place)
{
    while (place < text.size() && !refhost::IsBlank(text[place]))
        ++place;
    return place;
}

/// Takes the token that begins with the quote at `place`; leaves `place` behind it.
std::string TakeQuotedToken(std::string_view text, std::size_t& place)
{
    std::string token;
    for (++place; place < text.size(); ++place) {
        if (text[place] != '"') {
            token += text[place];
        } else if (place + 1 < text.size() && text[place + 1] == '"') {
            token += '"';
            ++place;
        } else {
            ++place;
            break;
        }
    }
    return token;
}

}  // namespace

int String2Integer(const std::string& text) { return refhost::ParseInteger(text).value_or(0); }

double String2Double(const std::string& text)
{
    return refhost::ParseDouble(text).value_or(refhost::kMissingValue);
}

void SplitToToken(const std::string& text, std::vector<std::string>& tokens)
{
    const std::string_view view = text;
    std::size_t place = TokenFrom(view, 0);
    while (place < view.size()) {
        const bool isQuoted = view[place] == '"';
        if (isQuoted) tokens.push_back(TakeQuotedToken(view, place));
        const std::size_t end = BlankFrom(view, place);
        if (isQuoted)
            tokens.back().append(view, place, end - place);
        else
            tokens.emplace_back(view.data() + place, end - place);
        place = TokenFrom(view, end);
    }
}

std::string Integer2String(int value) { return std::to_string(value); }

double NumericFormatCFToStat(double value, int formatType)
{
    return refhost::HostNumber(value, formatType);
}
