#pragma once

#include <string_view>

namespace refhost {

/// An element of the template language and the attributes that it may have.
struct GrammarRow {
    std::string_view fElement;
    std::string_view fAttributes;  ///< parted by blanks
};

// clang-format off
inline constexpr GrammarRow kGrammar[] = {
    {"visualization",         "id"},
    // variables
    {"sourceVariable",        "id source column label labelsFrom decimals categorical holdsLabels"},
    {"derivedVariable",       "id value"},
    {"case",                  "above below value"},
    {"format",                "id"},
    {"relabel",               "from to"},
    {"categoryOrder",         "variable values complete"},
    {"placeholders",          "words"},
    // appearance and place
    {"style",                 "id color fill dash width fontWeight italic visible"},
    {"location",              "id part method value target"},
    {"labelFrame",            "id"},
    {"label",                 "id style"},
    {"text",                  "lookup"},
    // the graph
    {"graph",                 "id"},
    {"dimension",             "name scale"},
    {"range",                 "max min"},
    {"axis",                  "dimension place style ticks grid"},
    {"lineGuide",             "x y id style"},
    {"faceting",              ""},
    {"facet",                 "variable direction header"},
    {"facetLayout",           "alternating side invert"},
    {"graphLayoutStatistic",  "node from to weight"},
    {"swap",                  ""},
    // elements
    {"interval",              "id style extent arrangement"},
    {"line",                  "id style"},
    {"point",                 "id style"},
    {"schema",                "id style"},
    {"edge",                  "id style from to"},
    {"node",                  "id style variable"},
    {"caption",               "id style variable"},
    {"x",                     "variable scalingFactor"},
    {"y",                     "variable scalingFactor"},
    {"binStatistic",          ""},
    {"summaryStatistic",      "method"},
    {"distributionStatistic", "distribution parameter secondaryParameter"},
    {"color",                 "id variable palette"},
    {"pattern",               "id variable palette"},
    {"labeling",              "id variable"},
    // around the graph
    {"popup",                 "id target part tokenTemplate"},
    {"tokenMapping",          "valueToken variable firstLine"},
    {"extension",             "id"},
    {"title",                 ""},
    {"subtitle",              ""},
    {"footnote",              ""},
    {"legend",                "id target"},
};
// clang-format on

/// The one element that holds text.
inline constexpr std::string_view kTextElement = "text";

/// Null for a name that is no element of the language.
const GrammarRow* FindElement(std::string_view name);

/// Of a row of the grammar.
bool HasAttribute(const GrammarRow& row, std::string_view name);

}  // namespace refhost
