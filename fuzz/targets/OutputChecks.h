#pragma once

#include <string_view>

/// What has to hold of any output, whatever the input held. A check that fails says what and ends
/// the process.

namespace fuzz {

void Require(bool holds, std::string_view what);

void CheckUtf8(std::string_view text);

/// What a terminal shows: no control of it but the end of a line.
void CheckText(std::string_view text);

/// One JSON document, in UTF-8.
void CheckJson(std::string_view text);

/// A report: elements of the kinds that the writer writes, each closed in its turn; scripts that
/// are the page's own, or JSON.
void CheckHtml(std::string_view text);

}  // namespace fuzz
