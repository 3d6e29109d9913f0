#pragma once

#include <algorithm>
#include <array>
#include <string_view>

namespace refhost {

/// A set of bytes, asked by one look each.
class CharacterSet {
public:
    constexpr explicit CharacterSet(std::string_view characters)
    {
        for (const char character : characters)
            fHolds[static_cast<unsigned char>(character)] = true;
    }

    constexpr bool Has(char character) const
    {
        return fHolds[static_cast<unsigned char>(character)];
    }

    /// Of an empty text, too.
    constexpr bool HasAll(std::string_view text) const
    {
        return std::ranges::all_of(text, [this](char character) { return Has(character); });
    }

    constexpr bool HasAny(std::string_view text) const
    {
        return std::ranges::any_of(text, [this](char character) { return Has(character); });
    }

private:
    std::array<bool, 256> fHolds{};
};

}  // namespace refhost
