#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "refhost/document/OutputNode.h"

namespace refhost {

class TableGrid;

/// The letter of a footnote by its place, from 0: a, b, ..., z, aa, ab, ...
std::string FootnoteLetter(std::size_t place);

/// The footnotes of a table: each text once, in the order in which a reader meets its mark, from
/// the column headers to the last cell. A view onto the table, which has to outlive it.
class Footnotes {
public:
    explicit Footnotes(const TableGrid& grid);

    /// The notes; the letter of each is that of its place.
    const std::vector<const Text*>& Notes() const { return fNotes; }

    /// The letters of the notes of one label or cell, each once, parted by commas: "a,c". Empty
    /// for no notes.
    std::string Marks(const std::vector<TextRef>& notes) const;

    /// The places of the notes of one label or cell, each once, ascending.
    std::vector<std::size_t> Places(const std::vector<TextRef>& notes) const;

private:
    void Take(const std::vector<TextRef>& notes);

    std::vector<const Text*> fNotes;
    std::unordered_map<std::string_view, std::size_t> fPlaces;
};

}  // namespace refhost
