#pragma once

#include <optional>
#include <string>

#include "refhost/framework/ReadFailure.h"
#include "refhost/framework/XmlTree.h"

namespace refhost {

/// Parses a document. Nothing: it can't be read, is refused for a DOCTYPE or for its depth, or is
/// too large for the memory; `failure` says which and where.
std::optional<XmlTree> ParseXml(const std::string& document, ReadFailure& failure);

}  // namespace refhost
