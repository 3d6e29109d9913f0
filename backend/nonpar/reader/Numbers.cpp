#include "reader/Numbers.h"

#include <algorithm>
#include <iterator>
#include <string_view>
#include <utility>

#include "reader/NOPRXMLGeneral.h"

#include "model/NOPROutputStats.h"

#include "host/framework/Conversions.h"

namespace {

constexpr std::string_view kMissingToken = "__MISSING__";

double NumberOf(const std::string& token)
{
    return token == kMissingToken ? MissingValue : String2Double(token);
}

/// A text may hold millions of tokens, and a token takes many times the room of its number: a text
/// is taken in pieces that end between tokens, or whole where blanks may stand within one.
std::size_t PieceLength(const std::string& text, std::size_t begin)
{
    constexpr std::size_t kPiece = 1U << 20U;
    if (text.size() - begin <= kPiece) return text.size() - begin;
    if (begin == 0 && text.find('"') != std::string::npos) return text.size();
    return std::min(text.find_first_of(" \t\r\n", begin + kPiece), text.size()) - begin;
}

/// Tokens of texts, for as long as the next are not asked for. Its room is used again and again.
class Tokens {
public:
    Tokens() { fTokens.reserve(kUsualTokens); }

    /// Calls `take` with the tokens of each piece of a text.
    template <class Take>
    void ForEachPiece(const std::string& text, Take take)
    {
        for (std::size_t begin = 0, length = 0; begin < text.size(); begin += length) {
            length = PieceLength(text, begin);
            fTokens.clear();
            SplitToToken(length == text.size() ? text : text.substr(begin, length), fTokens);
            take(static_cast<const std::vector<std::string>&>(fTokens));
        }
    }

private:
    static constexpr std::size_t kUsualTokens = 32;

    std::vector<std::string> fTokens;
};

template <class Number>
void Parse(const std::string& text, std::vector<Number>& list,
           Number (*numberOf)(const std::string&), Tokens& room)
{
    std::vector<Number> numbers;
    room.ForEachPiece(text, [&](const std::vector<std::string>& tokens) {
        if (numbers.empty()) numbers.reserve(tokens.size());  // the list is kept as it is
        std::transform(tokens.begin(), tokens.end(), std::back_inserter(numbers), numberOf);
    });
    if (!numbers.empty()) list = std::move(numbers);
}

NameList NamesOf(const std::string& text, Tokens& room)
{
    NameList names;
    room.ForEachPiece(text, [&names](const auto& tokens) { names.Append(tokens); });
    return names;
}

}  // namespace

bool ParseNumbers(const std::string& text, std::vector<double>& list)
{
    Tokens room;
    Parse(text, list, &NumberOf, room);
    return true;
}

bool ParseIntegers(const std::string& text, std::vector<int>& list)
{
    Tokens room;
    Parse(text, list, &String2Integer, room);
    return true;
}

bool ToNumericTable(const SimpleTableData& data, NumericTable& table)
{
    Tokens room;
    table.fName = data.fName;
    table.fRowNames = NamesOf(data.fRowNames, room);
    table.fColumnNames = NamesOf(data.fColumnNames, room);

    table.fRows.resize(data.fRowTexts.size());
    for (std::size_t row = 0; row < data.fRowTexts.size(); ++row)
        Parse(data.fRowTexts[row], table.fRows[row], &NumberOf, room);
    return true;
}
