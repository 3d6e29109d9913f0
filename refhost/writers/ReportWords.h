#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "refhost/plot/PlotWords.h"

namespace refhost {

struct RunEnd;

/// A word or sentence of the writers' own, by its key: "outline" gives "Outline" or
/// "Gliederung". A language without words of its own is answered in English, an unknown key by
/// itself.
std::string_view ReportWord(std::string_view language, std::string_view key);

/// The same with its places ^1, ^2 and so on filled.
std::string ReportSentence(std::string_view language, std::string_view key,
                           std::initializer_list<std::string_view> parts);

/// What a reader of an incomplete output has to know, line by line; none of a complete one.
std::vector<std::string> NoticeLines(const RunEnd& end, std::string_view language);

/// The words that plots make themselves; they stay valid.
const PlotWords& WordsOfPlots(std::string_view language);

}  // namespace refhost
