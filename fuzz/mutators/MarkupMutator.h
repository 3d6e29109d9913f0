#pragma once

#include <string>
#include <string_view>

#include "fuzz/mutators/MarkupWords.h"

namespace fuzz {

/// Changes a document by its elements, so that it still reads as one but says something else: parts
/// doubled, dropped, moved and swapped, attributes and lists of numbers changed.
std::string MutateMarkup(std::string_view text, unsigned seed,
                         const std::vector<MarkupWords>& words);

/// `text` with an element of `other` at the place of one of its own, of the same name if it has
/// one.
std::string CrossMarkup(std::string_view text, std::string_view other, unsigned seed);

}  // namespace fuzz
