#include "reader/Numbers.h"

#include <algorithm>
#include <string_view>

#include "reader/NOPRXMLGeneral.h"

#include "model/NOPROutputStats.h"

#include "host/framework/Conversions.h"

namespace {

constexpr std::string_view kMissingToken = "__MISSING__";

double NumberOf(const std::string& token)
{
    return token == kMissingToken ? MissingValue : String2Double(token);
}

template <class Number>
void Parse(const std::string& text, std::vector<Number>& list,
           Number (*numberOf)(const std::string&))
{
    std::vector<std::string> tokens;
    SplitToToken(text, tokens);
    if (tokens.empty()) return;
    list.resize(tokens.size());
    std::ranges::transform(tokens, list.begin(), numberOf);
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
