#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

/// The names of a table's rows or columns. A document has very many short ones, which lie behind
/// each other in one text: as strings of their own they would take more room than its numbers.
class NameList {
public:
    /// Throws std::length_error beyond 4 GB.
    void Append(const std::vector<std::string>& names);

    std::size_t size() const { return fEnds.size(); }
    bool empty() const { return fEnds.empty(); }

    /// Valid as long as the list is not changed.
    std::string_view operator[](std::size_t place) const;

    /// The first place of a name; the size where nothing bears it.
    std::size_t Find(std::string_view name) const;

private:
    std::string fText;
    std::vector<std::uint32_t> fEnds;  // of each name within the text
};
