#pragma once

#include <string_view>

namespace refhost {

/// What stands in a JSON string for a byte that may not stand there itself: a control character, a
/// quote, a backslash. Empty for all others.
std::string_view JsonEscapeOf(char byte);

}  // namespace refhost
