#pragma once

#include <string>
#include <string_view>

#include "host/chart/ChartString.h"

class FacSTDictionary;
class QORT_Variable;

/// The words of a chart: those of the dictionary, and the labels of variables.

/// A word of the dictionary. Without a dictionary, the key stands for itself.
ChartString LookUpText(const FacSTDictionary* dictionary, const std::string& key);

/// A word of the dictionary in the place of a template's token.
void ReplaceTokenByWord(std::string& text, std::string_view token,
                        const FacSTDictionary* dictionary, const std::string& key);

/// A word of the dictionary, an equals sign and a number: "N = 12".
ChartString NamedNumber(const FacSTDictionary* dictionary, const std::string& key,
                        const std::string& number);

/// Puts a text in the place of "^1" in a sentence of the dictionary.
void FillPlace(ChartString& sentence, const ChartString& text);

/// Turns each backslash with an "n" behind it, as the dictionary has them, into a line feed.
void BreakLines(ChartString& text);

/// The text by which a variable is shown, for a template; empty without a variable.
std::string PreferredLabel(const QORT_Variable* variable);
