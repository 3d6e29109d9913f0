#pragma once

#include <cstddef>
#include <random>
#include <string>
#include <string_view>

namespace fuzz {

/// All random choices of one mutation.
class Chance {
public:
    explicit Chance(unsigned seed) : fEngine(seed) {}

    /// From 0 up to below `count`, which is not 0.
    std::size_t Below(std::size_t count) { return fEngine() % count; }
    bool OneIn(std::size_t count) { return Below(count) == 0; }

    template <class List>
    auto& From(List& list)
    {
        return list[Below(list.size())];
    }

    /// A word of a text of words parted by blanks.
    std::string Word(std::string_view words);

    /// A text at which readers of numbers, indices and labels stumble.
    std::string HostileText();

private:
    std::minstd_rand fEngine;
};

}  // namespace fuzz
