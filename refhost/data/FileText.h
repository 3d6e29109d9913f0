#pragma once

#include <string>

namespace refhost {

/// Reads a whole file, or what comes through a pipe. False where that can't be done, as with a
/// folder; the text is then of no use. Keeps the text's memory for the next call. Throws
/// `std::bad_alloc`, before it takes any, for a file that is larger than the machine's memory.
bool ReadFile(const std::string& file, std::string& text);

}  // namespace refhost
