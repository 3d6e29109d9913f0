#include "fuzz/targets/ChartInput.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <optional>

#include "refhost/template/ChartDrawing.h"
#include "refhost/template/ReadTemplate.h"

namespace fuzz {

namespace {

using namespace refhost;
using Words = std::vector<std::string>;

/// A chart under construction: the node gets the drawing only when both are done.
struct Chart {
    ChartNode fNode;
    ChartDrawing fDrawing;

    VariableSettings& Settings(const Words& words) { return fDrawing.fVariables[words[1]]; }
};

std::optional<double> Number(const std::string& word)
{
    double number = 0.0;
    const char* const end = word.data() + word.size();
    const auto read = std::from_chars(word.data(), end, number);
    if (word.empty() || read.ec != std::errc() || read.ptr != end) return std::nullopt;
    return number;
}

/// Clamped to what the host's records hold; formats of the host are small and positive.
int Integer(const std::string& word, int least, int most)
{
    const double number = Number(word).value_or(0.0);
    if (std::isnan(number)) return least;
    return static_cast<int>(std::clamp(number, double{1} * least, double{1} * most));
}

ChartValue Value(const std::string& word)
{
    if (word.empty()) return std::monostate();
    if (word.front() == '\'') return word.substr(1);
    if (const auto number = Number(word)) return *number;
    return word;
}

HostFormat Format(const Words& words)
{
    return {Integer(words[2], 0, 255), Integer(words[3], 1, 32767), Integer(words[4], 0, 255)};
}

void AddColumn(Chart& chart, const Words& words)
{
    if (chart.fNode.fSources.empty()) chart.fNode.fSources.Own().emplace_back();
    ChartSource& source = chart.fNode.fSources.Own().back();
    ChartSource::Column& column = source.fColumns.emplace_back();
    column.fName = words[1];
    for (auto word = words.begin() + 2; word != words.end(); ++word)
        column.fValues.push_back(Value(*word));
    source.fRows = std::max(source.fRows, column.fValues.size());
}

/// A kind of line, the fewest words that it needs, and what it does.
struct LineRow {
    std::string_view fName;
    std::size_t fWords;
    void (*fRead)(Chart& chart, const Words& words);
};

// clang-format off
constexpr LineRow kLines[] = {
    {"source",   2, [](Chart& chart, const Words& words) { chart.fNode.fSources.Own().emplace_back().fName = words[1]; }},
    {"column",   2, AddColumn},
    {"size",     3, [](Chart& chart, const Words& words) {
        chart.fDrawing.fWidth = Number(words[1]);
        chart.fDrawing.fHeight = Number(words[2]); }},
    {"title",    2, [](Chart& chart, const Words& words) { chart.fNode.fTitle = words[1]; }},
    {"subtitle", 2, [](Chart& chart, const Words& words) { chart.fNode.fSubtitle = words[1]; }},
    {"footnote", 2, [](Chart& chart, const Words& words) { chart.fNode.fFootnote = words[1]; }},
    {"label",    3, [](Chart& chart, const Words& words) { chart.Settings(words).fLabel = words[2]; }},
    {"prefix",   3, [](Chart& chart, const Words& words) { chart.Settings(words).fPrefix = words[2]; }},
    {"host",     3, [](Chart& chart, const Words& words) { chart.Settings(words).fHostLabel = words[2]; }},
    {"relabel",  4, [](Chart& chart, const Words& words) { chart.Settings(words).fRelabels[words[2]] = words[3]; }},
    {"category", 3, [](Chart& chart, const Words& words) { chart.Settings(words).fCategorical = words[2] == "1"; }},
    {"format",   5, [](Chart& chart, const Words& words) { chart.Settings(words).fHostFormat = Format(words); }},
    {"bound",    5, [](Chart& chart, const Words& words) { chart.Settings(words).fBoundFormat = Format(words); }},
    {"numbers",  6, [](Chart& chart, const Words& words) {
        chart.Settings(words).fNumberFormat = {Integer(words[2], -9, 99), words[3] == "1", words[4], words[5]}; }},
};
// clang-format on

Words WordsOf(std::string_view line)
{
    Words words(1);
    for (std::size_t place = 0; place < line.size(); ++place) {
        if (line[place] == '\t') {
            words.emplace_back();
        } else if (line.substr(place).starts_with("\\n")) {
            words.back() += '\n';
            ++place;
        } else {
            words.back() += line[place];
        }
    }
    return words;
}

void ReadLine(std::string_view line, Chart& chart)
{
    const Words words = WordsOf(line);
    for (const LineRow& row : kLines)
        if (row.fName == words.front() && words.size() >= row.fWords) row.fRead(chart, words);
}

}  // namespace

ChartNode ReadChartInput(std::string_view input)
{
    const std::size_t mark = std::min(input.find(kDataMark), input.size());
    Chart chart;
    chart.fNode.fText = input.substr(0, mark);
    std::string_view lines = input.substr(mark);
    while (!lines.empty()) {
        const std::size_t end = lines.find('\n');
        ReadLine(lines.substr(0, end), chart);
        lines.remove_prefix(end == std::string_view::npos ? lines.size() : end + 1);
    }
    auto tree = ReadTemplate(chart.fNode.fText);
    if (!tree) return std::move(chart.fNode);
    chart.fDrawing.fTree = *std::move(tree);
    chart.fNode.fDrawing = std::make_shared<ChartDrawing>(std::move(chart.fDrawing));
    return std::move(chart.fNode);
}

}  // namespace fuzz
