#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace refhost {

/// What is wrong with a document's bytes that the XML parser passes over in silence: a NUL, or
/// anything but blanks behind the root's end. Empty where nothing is.
std::string FindOverlookedBytes(std::string_view document);

/// Whether a document is UTF-8 by its first bytes and by what it says, well-formed or not.
bool IsToBeUtf8(std::string_view document);

/// The place of the first byte that is no well-formed UTF-8; nothing where there is none, and where
/// the document is to be in another encoding.
std::optional<std::size_t> FindIllFormedUtf8(std::string_view document);

}  // namespace refhost
