#include "refhost/writers/Footnotes.h"

#include <algorithm>

#include "refhost/writers/TableGrid.h"

namespace refhost {

std::string FootnoteLetter(std::size_t place)
{
    std::string letters;
    for (std::size_t rest = place + 1; rest > 0; rest = (rest - 1) / 26)
        letters.insert(letters.begin(), static_cast<char>('a' + (rest - 1) % 26));
    return letters;
}

Footnotes::Footnotes(const TableGrid& grid)
{
    for (const GridHeader& header : grid.Columns().fHeaders)
        if (header.fNotes) Take(*header.fNotes);
    const std::vector<GridHeader>& headers = grid.Rows().fHeaders;
    auto header = headers.begin();
    for (std::size_t row = 0; row < grid.Rows().fLines; ++row) {
        for (; header != headers.end() && header->fLine == row; ++header)
            if (header->fNotes) Take(*header->fNotes);
        for (const TableGrid::PlacedCell& cell : grid.RowCells(row))
            Take(cell.fCell->fNotes);
    }
}

std::vector<std::size_t> Footnotes::Places(const std::vector<TextRef>& notes) const
{
    std::vector<std::size_t> places;
    for (const TextRef& note : notes) {
        if (!note) continue;
        const auto found = fPlaces.find(note->fShown);
        if (found != fPlaces.end()) places.push_back(found->second);
    }
    std::ranges::sort(places);
    places.erase(std::unique(places.begin(), places.end()), places.end());
    return places;
}

std::string Footnotes::Marks(const std::vector<TextRef>& notes) const
{
    std::string marks;
    for (const std::size_t place : Places(notes)) {
        if (!marks.empty()) marks += ',';
        marks += FootnoteLetter(place);
    }
    return marks;
}

void Footnotes::Take(const std::vector<TextRef>& notes)
{
    for (const TextRef& note : notes)
        if (note && fPlaces.emplace(note->fShown, fNotes.size()).second)
            fNotes.push_back(note.get());
}

}  // namespace refhost
