#pragma once

#include <cstddef>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

namespace refhost {

/// The words that the plots make themselves, in the language of the output. ^1 and ^2 in sentences
/// stand for what fills them. They stay valid as long as the program runs.
struct PlotWords {
    std::string_view fUpperWhisker;
    std::string_view fThirdQuartile;
    std::string_view fMedian;
    std::string_view fFirstQuartile;
    std::string_view fLowerWhisker;
    std::string_view fOutliers;
    std::string_view fFirstSample;
    std::string_view fSecondSample;

    // Of what a picture leaves out: how many of how many are in it.
    std::string_view fCutCategories;
    std::string_view fCutGroups;
    std::string_view fCutNodes;
    std::string_view fCutEntries;
    std::string_view fCutMarks;
    std::string_view fCutRows;
    std::string_view fFarLine;
};

/// A sentence with its places ^1, ^2 and so on filled; a place without a part stays.
std::string FillSentence(std::string_view sentence, std::initializer_list<std::string_view> parts);

/// Adds a note once, however often its cause occurs.
void AddNote(std::vector<std::string>& notes, std::string note);

/// What a list has no room for is said; nothing where all have room.
void NoteCut(std::vector<std::string>& notes, std::string_view sentence, std::size_t drawn,
             std::size_t cut);

}  // namespace refhost
