#pragma once

#include <string>
#include <string_view>

namespace fuzz {

/// Changes a JSON text by its values: dropped, doubled, exchanged, made another type or a text that
/// stands elsewhere. A text that is no JSON stays as it is.
std::string MutateJson(std::string_view text, unsigned seed);

}  // namespace fuzz
