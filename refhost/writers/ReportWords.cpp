#include "refhost/writers/ReportWords.h"

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
    {"licences",    "Licences of the drawing libraries in this page",
                    "Lizenzen der Zeichenbibliotheken in dieser Seite"},
};
// clang-format on

}  // namespace

std::string_view ReportWord(std::string_view language, std::string_view key)
{
    const bool german = language.substr(0, 2) == "de";
    for (const WordRow& row : kWords)
        if (row.fKey == key) return german ? row.fGerman : row.fEnglish;
    return key;
}

}  // namespace refhost
