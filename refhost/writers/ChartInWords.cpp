#include "refhost/writers/ChartInWords.h"

#include <fmt/format.h>

#include <algorithm>
#include <limits>

#include "refhost/data/MissingValue.h"
#include "refhost/writers/ReportWords.h"
#include "refhost/writers/TerminalText.h"

namespace refhost {

namespace {

constexpr std::size_t kNamedTexts = 6;

/// What a column holds, gathered in one walk.
struct ColumnSummary {
    std::size_t fNumbers = 0;
    double fLeast = std::numeric_limits<double>::infinity();
    double fMost = -std::numeric_limits<double>::infinity();
    double fMean = 0.0;
    std::size_t fTexts = 0;
    std::vector<std::string_view> fNamed;
    bool fHasFurther = false;  // texts that are not named

    void Take(double number)
    {
        if (IsUntold(number)) return;
        ++fNumbers;
        fLeast = std::min(fLeast, number);
        fMost = std::max(fMost, number);
        fMean += (number - fMean) / static_cast<double>(fNumbers);
    }

    void Take(const std::string& text)
    {
        ++fTexts;
        if (fHasFurther || std::ranges::find(fNamed, text) != fNamed.end()) return;
        if (fNamed.size() < kNamedTexts) {
            fNamed.push_back(text);
        } else {
            fHasFurther = true;
        }
    }

    void Take(std::monostate) {}
};

std::string NumberInWords(double number) { return fmt::format("{:.6g}", number); }

std::string Numbers(const ColumnSummary& column, std::string_view language)
{
    std::string least = NumberInWords(column.fLeast);
    if (column.fNumbers == 1) return least;
    return ReportSentence(language, "numbers",
                          {std::to_string(column.fNumbers), least, NumberInWords(column.fMost),
                           NumberInWords(column.fMean)});
}

std::string Texts(const ColumnSummary& column, std::string_view language)
{
    std::string names;
    for (const std::string_view name : column.fNamed) {
        if (!names.empty()) names += ", ";
        names += Printable(name);
    }
    if (column.fHasFurther) names += ", ...";
    if (column.fTexts == 1) return names;
    return ReportSentence(language, "values", {std::to_string(column.fTexts), names});
}

}  // namespace

std::vector<std::string> SummarizeSource(const ChartSource& source, std::string_view language)
{
    std::vector<std::string> lines;
    for (const ChartSource::Column& values : source.fColumns) {
        ColumnSummary column;
        for (const ChartValue& value : values.fValues)
            std::visit([&column](const auto& content) { column.Take(content); }, value);
        std::string line = Printable(values.fName) + ": ";
        if (column.fNumbers > 0) line += Numbers(column, language);
        if (column.fNumbers > 0 && column.fTexts > 0) line += "; ";
        if (column.fTexts > 0) line += Texts(column, language);
        if (column.fNumbers == 0 && column.fTexts == 0) line += ReportWord(language, "no-values");
        lines.push_back(std::move(line));
    }
    return lines;
}

}  // namespace refhost
