#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace refhost {

/// The words that the plots make themselves, in the language of the output. ^1 and ^2 in sentences
/// stand for what fills them.
struct PlotWords {
    std::string_view fUpperWhisker = "Upper whisker";
    std::string_view fThirdQuartile = "Third quartile";
    std::string_view fMedian = "Median";
    std::string_view fFirstQuartile = "First quartile";
    std::string_view fLowerWhisker = "Lower whisker";
    std::string_view fOutliers = "Outliers";
    std::string_view fFirstSample = "Sample 1";
    std::string_view fSecondSample = "Sample 2";

    // Of what a picture leaves out: how many of how many are in it.
    std::string_view fCutCategories = "The first ^1 of ^2 categories are drawn.";
    std::string_view fCutGroups = "The first ^1 of ^2 groups are drawn.";
    std::string_view fCutNodes = "The first ^1 of ^2 nodes are drawn.";
    std::string_view fCutEntries = "The legend names the first ^1 of ^2 entries.";
    std::string_view fCutMarks = "The first ^1 marks are drawn; the data have more.";
    std::string_view fCutRows = "The table of the data holds the first ^1 rows.";
    std::string_view fFarLine = "A line at ^1 lies far beyond the data and is not drawn.";
};

/// A sentence with its places filled.
std::string FillSentence(std::string_view sentence, const std::vector<std::string>& parts);

/// Adds a note once, however often its cause occurs.
void AddNote(std::vector<std::string>& notes, std::string note);

/// What a list has no room for is said; nothing where all have room.
void NoteCut(std::vector<std::string>& notes, std::string_view sentence, std::size_t drawn,
             std::size_t cut);

}  // namespace refhost
