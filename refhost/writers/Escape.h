#pragma once

#include <string>
#include <string_view>

/// All escaping of the HTML report: whatever a text holds, it stays text.

namespace refhost {

/// As the content of an element, or of an attribute in double quotes. Bytes that
/// are no UTF-8, and controls that no page may hold, become U+FFFD.
void AppendMarkupText(std::string& out, std::string_view bytes);

/// JSON as the content of a script element, which ends at the first "</script".
void AppendScriptJson(std::string& out, std::string_view json);

}  // namespace refhost
