#include "host/framework/Conversions.h"

#include <algorithm>
#include <cstddef>
#include <string_view>
#include <utility>

#include "refhost/framework/NumberParsing.h"

#include "refhost/data/DateFormats.h"
#include "refhost/data/MissingValue.h"

namespace {

constexpr std::string_view kTokenSpace = " \t\r\n";

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
    std::size_t place = view.find_first_not_of(kTokenSpace);
    while (place < view.size()) {
        std::string token;
        if (view[place] == '"') token = TakeQuotedToken(view, place);
        const std::size_t end = std::min(view.find_first_of(kTokenSpace, place), view.size());
        token += view.substr(place, end - place);
        tokens.push_back(std::move(token));
        place = view.find_first_not_of(kTokenSpace, end);
    }
}

std::string Integer2String(int value) { return std::to_string(value); }

double NumericFormatCFToStat(double value, int formatType)
{
    return refhost::HostNumber(value, formatType);
}
