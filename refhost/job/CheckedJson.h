#pragma once

#include <string>

#include "refhost/json/JsonTypes.h"

namespace refhost {

/// Parses a job's text and checks it against the schema of jobs while it is read, so that what
/// nests deeper than a job can is refused before it is held. Throws `JobError`, naming `name`.
json::Document ParseJob(const std::string& text, const std::string& name);

}  // namespace refhost
