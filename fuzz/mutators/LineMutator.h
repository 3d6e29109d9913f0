#pragma once

#include <string>
#include <string_view>

namespace fuzz {

/// Changes lines of words parted by tabs: lines doubled, dropped and swapped, words changed, rows
/// of data added and cut.
std::string MutateLines(std::string_view text, unsigned seed);

}  // namespace fuzz
