#pragma once

#include <string>

/// Where a report is shown and how grave it is; the numbers are the library's.
enum class BpErrorShow : int { Output = 2 };
enum class BpErrorLevel : int { Warning = 2 };

/// Reports a text outside of any table, under the innermost heading that is open.
void BpError(const std::string& text, BpErrorShow show, BpErrorLevel level);
