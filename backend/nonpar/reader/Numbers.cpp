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

/// A row may hold millions of numbers, and a token takes many times the room of a number: a text is
/// taken in pieces that end between tokens, or whole where blanks may stand within one.
std::size_t PieceLength(const std::string& text, std::size_t begin)
{
    constexpr std::size_t kPiece = 1U << 20U;
    if (text.size() - begin <= kPiece) return text.size() - begin;
    if (begin == 0 && text.find('"') != std::string::npos) return text.size();
    return std::min(text.find_first_of(" \t\r\n", begin + kPiece), text.size()) - begin;
}

template <class Number>
void Parse(const std::string& text, std::vector<Number>& list,
           Number (*numberOf)(const std::string&))
{
    std::vector<Number> numbers;
    std::vector<std::string> tokens;
    for (std::size_t begin = 0, length = 0; begin < text.size(); begin += length) {
        length = PieceLength(text, begin);
        tokens.clear();
        SplitToToken(length == text.size() ? text : text.substr(begin, length), tokens);
        if (numbers.empty()) numbers.reserve(tokens.size());  // the list is kept as it is
        std::transform(tokens.begin(), tokens.end(), std::back_inserter(numbers), numberOf);
    }
    if (!numbers.empty()) list = std::move(numbers);
}

}  // namespace

bool ParseNumbers(const std::string& text, std::vector<double>& list)
{
    Parse(text, list, &NumberOf);
    return true;
}

bool ParseIntegers(const std::string& text, std::vector<int>& list)
{
    Parse(text, list, &String2Integer);
    return true;
}

bool ToNumericTable(const SimpleTableData& data, NumericTable& table)
{
    table.fName = data.fName;
    table.fRowNames.clear();
    SplitToToken(data.fRowNames, table.fRowNames);
    table.fColumnNames.clear();
    SplitToToken(data.fColumnNames, table.fColumnNames);

    table.fRows.resize(data.fRowTexts.size());
    for (std::size_t row = 0; row < data.fRowTexts.size(); ++row)
        if (!ParseNumbers(data.fRowTexts[row], table.fRows[row])) return false;
    return true;
}
