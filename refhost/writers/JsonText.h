#pragma once

#include <string_view>

namespace refhost {

class ByteOutput;

/// Writes a text of any bytes as a JSON string, with its quotes. What is not UTF-8 becomes U+FFFD.
void WriteJsonText(ByteOutput& output, std::string_view text);

}  // namespace refhost
