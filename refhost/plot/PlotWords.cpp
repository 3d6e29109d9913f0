#include "refhost/plot/PlotWords.h"

#include <algorithm>
#include <utility>

namespace refhost {

std::string FillSentence(std::string_view sentence, std::initializer_list<std::string_view> parts)
{
    std::string filled;
    for (std::size_t at = 0; at < sentence.size(); ++at) {
        const bool isPlace = sentence[at] == '^' && at + 1 < sentence.size();
        const auto part = static_cast<std::size_t>(isPlace ? sentence[at + 1] - '1' : -1);
        if (part >= parts.size()) {
            filled.push_back(sentence[at]);
            continue;
        }
        filled.append(parts.begin()[part]);
        ++at;
    }
    return filled;
}

void AddNote(std::vector<std::string>& notes, std::string note)
{
    if (std::find(notes.begin(), notes.end(), note) == notes.end()) {
        notes.push_back(std::move(note));
    }
}

void NoteCut(std::vector<std::string>& notes, std::string_view sentence, std::size_t drawn,
             std::size_t cut)
{
    if (cut == 0) return;
    AddNote(notes, FillSentence(sentence, {std::to_string(drawn), std::to_string(drawn + cut)}));
}

}  // namespace refhost
