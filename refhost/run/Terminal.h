#pragma once

#include <cstddef>
#include <optional>

namespace refhost {

/// How wide the terminal is that a descriptor leads to; without a result where none tells.
std::optional<std::size_t> ColumnsOf(int descriptor);

}  // namespace refhost
