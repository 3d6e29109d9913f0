#pragma once

#include <string>
#include <string_view>

namespace refhost {

/// The text as well-formed UTF-8: bytes that are none become U+FFFD. A text that is well-formed is
/// given back itself; otherwise the result stands in `scratch`, up to its next change.
std::string_view WellFormed(std::string_view text, std::string& scratch);

}  // namespace refhost
