#include "refhost/writers/ReportWords.h"

#include <iterator>

#include "refhost/document/OutputSink.h"

namespace refhost {

namespace {

struct WordRow {
    std::string_view fKey;
    std::string_view fEnglish;
    std::string_view fGerman;
};

// clang-format off
constexpr WordRow kWords[] = {
    {"to-results",  "Go to the results",           "Zu den Ergebnissen"},
    {"to-outline",  "Go to the outline",           "Zur Gliederung"},
    {"results",     "Results",                     "Ergebnisse"},
    {"outline",     "Outline",                     "Gliederung"},
    {"filter",      "Find in the outline",         "In der Gliederung suchen"},
    {"found",       "^1 found",                    "^1 gefunden"},
    {"appearance",  "Appearance",                  "Darstellung"},
    {"light",       "Light",                       "Hell"},
    {"dark",        "Dark",                        "Dunkel"},
    {"system",      "System",                      "System"},
    {"copy",        "Copy",                        "Kopieren"},
    {"copy-json",   "Copy JSON",                   "JSON kopieren"},
    {"copied",      "Copied",                      "Kopiert"},
    {"copy-failed", "Copying failed",              "Kopieren nicht möglich"},
    {"untitled",    "Without a title",             "Ohne Titel"},
    {"no-cells",    "This table has no values.",   "Diese Tabelle hat keine Werte."},
    {"data",        "Data of the chart",           "Daten des Diagramms"},
    {"not-drawn",   "This chart cannot be drawn.", "Dieses Diagramm kann nicht gezeichnet werden."},
    {"notice",      "Notice",                      "Hinweis"},
    {"incomplete",  "This report is not complete. The run ended early:",
                    "Dieser Bericht ist nicht vollständig. Der Lauf endete vorzeitig:"},
    {"not-read",    "This report is not complete: a result document could not be read.",
                    "Dieser Bericht ist nicht vollständig: Ein Ergebnisdokument war nicht lesbar."},
    {"chart",       "Chart",                       "Diagramm"},
    {"warning",     "Warning",                     "Warnung"},
    {"rows",        "^1, rows: ^2",                "^1, Zeilen: ^2"},
    {"numbers",     "^1 numbers, ^2 to ^3, mean ^4", "^1 Zahlen, ^2 bis ^3, Mittel ^4"},
    {"values",      "^1 values: ^2",               "^1 Werte: ^2"},
    {"no-values",   "no values",                   "keine Werte"},
    {"upper-whisker",  "Upper whisker",  "Oberes Ende des Whiskers"},
    {"third-quartile", "Third quartile", "Drittes Quartil"},
    {"median",         "Median",         "Median"},
    {"first-quartile", "First quartile", "Erstes Quartil"},
    {"lower-whisker",  "Lower whisker",  "Unteres Ende des Whiskers"},
    {"outliers",       "Outliers",       "Ausreißer"},
    {"first-sample",   "Sample 1",       "Stichprobe 1"},
    {"second-sample",  "Sample 2",       "Stichprobe 2"},
    {"cut-categories", "The first ^1 of ^2 categories are drawn.",
                       "Gezeichnet sind die ersten ^1 von ^2 Kategorien."},
    {"cut-groups",     "The first ^1 of ^2 groups are drawn.",
                       "Gezeichnet sind die ersten ^1 von ^2 Gruppen."},
    {"cut-nodes",      "The first ^1 of ^2 nodes are drawn.",
                       "Gezeichnet sind die ersten ^1 von ^2 Knoten."},
    {"cut-entries",    "The legend names the first ^1 of ^2 entries.",
                       "Die Legende nennt die ersten ^1 von ^2 Einträgen."},
    {"cut-marks",      "The first ^1 marks are drawn; the data have more.",
                       "Gezeichnet sind die ersten ^1 Elemente; die Daten haben mehr."},
    {"cut-rows",       "The table of the data holds the first ^1 rows.",
                       "Die Datentabelle enthält die ersten ^1 Zeilen."},
    {"held-columns",   "The first ^1 of ^2 columns are here.",
                       "Hier stehen die ersten ^1 von ^2 Spalten."},
    {"held-rows",      "The first ^1 of ^2 rows are here.",
                       "Hier stehen die ersten ^1 von ^2 Zeilen."},
    {"far-line",       "A line at ^1 lies far beyond the data and is not drawn.",
                       "Eine Linie bei ^1 liegt weit außerhalb der Daten und ist nicht gezeichnet."},
    {"licences",    "Licences of the drawing libraries in this page",
                    "Lizenzen der Zeichenbibliotheken in dieser Seite"},
};
// clang-format on

bool IsGerman(std::string_view language) { return language.substr(0, 2) == "de"; }

struct PlotWordRow {
    std::string_view PlotWords::*fWord;
    std::string_view fKey;
};

// clang-format off
constexpr PlotWordRow kPlotWords[] = {
    {&PlotWords::fUpperWhisker,  "upper-whisker"},
    {&PlotWords::fThirdQuartile, "third-quartile"},
    {&PlotWords::fMedian,        "median"},
    {&PlotWords::fFirstQuartile, "first-quartile"},
    {&PlotWords::fLowerWhisker,  "lower-whisker"},
    {&PlotWords::fOutliers,      "outliers"},
    {&PlotWords::fFirstSample,   "first-sample"},
    {&PlotWords::fSecondSample,  "second-sample"},
    {&PlotWords::fCutCategories, "cut-categories"},
    {&PlotWords::fCutGroups,     "cut-groups"},
    {&PlotWords::fCutNodes,      "cut-nodes"},
    {&PlotWords::fCutEntries,    "cut-entries"},
    {&PlotWords::fCutMarks,      "cut-marks"},
    {&PlotWords::fCutRows,       "cut-rows"},
    {&PlotWords::fFarLine,       "far-line"},
};
// clang-format on

static_assert(std::size(kPlotWords) * sizeof(std::string_view) == sizeof(PlotWords),
              "each word has its row");

PlotWords PlotWordsIn(std::string_view language)
{
    PlotWords words;
    for (const PlotWordRow& row : kPlotWords)
        words.*row.fWord = ReportWord(language, row.fKey);
    return words;
}

}  // namespace

std::string_view ReportWord(std::string_view language, std::string_view key)
{
    const bool german = IsGerman(language);
    for (const WordRow& row : kWords)
        if (row.fKey == key) return german ? row.fGerman : row.fEnglish;
    return key;
}

const PlotWords& WordsOfPlots(std::string_view language)
{
    static const PlotWords english = PlotWordsIn("en"), german = PlotWordsIn("de");
    return IsGerman(language) ? german : english;
}

std::string ReportSentence(std::string_view language, std::string_view key,
                           std::initializer_list<std::string_view> parts)
{
    return FillSentence(ReportWord(language, key), parts);
}

std::vector<std::string> NoticeLines(const RunEnd& end, std::string_view language)
{
    const auto word = [language](std::string_view key) {
        return std::string(ReportWord(language, key));
    };
    if (end.fFailure.empty() && end.fNotice.empty())
        return end.fResult ? std::vector<std::string>() : std::vector{word("not-read")};
    std::vector<std::string> lines{word("incomplete")};
    for (const std::string* text : {&end.fNotice, &end.fFailure})
        if (!text->empty()) lines.push_back(*text);
    return lines;
}

}  // namespace refhost
