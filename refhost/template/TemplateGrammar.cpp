#include "refhost/template/TemplateGrammar.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <iterator>

namespace refhost {

namespace {

constexpr std::size_t kMostAttributes = 8;

/// The attributes of each row of the grammar, apart; empty behind the last.
constexpr auto kAttributes = [] {
    std::array<std::array<std::string_view, kMostAttributes>, std::size(kGrammar)> lists{};
    for (std::size_t row = 0; row < lists.size(); ++row) {
        std::string_view rest = kGrammar[row].fAttributes;
        for (std::size_t place = 0; !rest.empty(); ++place) {
            const std::size_t end = std::min(rest.find(' '), rest.size());
            lists[row].at(place) = rest.substr(0, end);
            rest.remove_prefix(std::min(end + 1, rest.size()));
        }
    }
    return lists;
}();

// Elements by their ends and their length: far more slots than rows, so that one look mostly does.
constexpr std::size_t kSlots = 256;

constexpr std::size_t SlotOf(std::string_view name)
{
    const auto code = [](char letter) { return static_cast<std::size_t>(letter & 0x7F); };
    return (code(name.front()) * 31 + code(name.back()) * 7 + name.size()) % kSlots;
}

constexpr std::uint8_t kNoRow = 0xFF;
static_assert(std::size(kGrammar) < kNoRow);

constexpr auto kRowOfSlot = [] {
    std::array<std::uint8_t, kSlots> rows{};
    rows.fill(kNoRow);
    for (std::size_t row = 0; row < std::size(kGrammar); ++row) {
        std::size_t slot = SlotOf(kGrammar[row].fElement);
        while (rows.at(slot) != kNoRow)
            slot = (slot + 1) % kSlots;
        rows.at(slot) = static_cast<std::uint8_t>(row);
    }
    return rows;
}();

}  // namespace

const GrammarRow* FindElement(std::string_view name)
{
    if (name.empty()) return nullptr;
    for (std::size_t slot = SlotOf(name); kRowOfSlot[slot] != kNoRow; slot = (slot + 1) % kSlots) {
        const GrammarRow& row = kGrammar[kRowOfSlot[slot]];
        if (row.fElement == name) return &row;
    }
    return nullptr;
}

bool HasAttribute(const GrammarRow& row, std::string_view name)
{
    const auto& attributes = kAttributes[static_cast<std::size_t>(&row - kGrammar)];
    return !name.empty() &&
           std::find(attributes.begin(), attributes.end(), name) != attributes.end();
}

}  // namespace refhost
