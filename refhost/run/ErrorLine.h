#pragma once

#include <string_view>

namespace refhost {

/// Tells on standard error what went wrong, in one line, whatever names are in it. Takes no memory.
void TellError(std::string_view what);

}  // namespace refhost
