#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "refhost/framework/ReadFailure.h"
#include "refhost/framework/XmlTree.h"

namespace refhost {

/// How many threads a document of so many bytes is worth on this machine.
std::size_t UsualParseThreads(std::size_t bytes);

/// Parses a document, a large one in as many pieces as there are threads; the tree is the same.
/// Nothing: it can't be read, is refused for a DOCTYPE or for its depth, or is too large for the
/// memory; `failure` says which and where.
std::optional<XmlTree> ParseXml(const std::string& document, std::size_t threads,
                                ReadFailure& failure);

}  // namespace refhost
