#pragma once

#include <string_view>

namespace refhost {

/// The JSON Schema of job files: docs/job.schema.json, as it stood when the program was built.
extern const std::string_view kJobSchema;

}  // namespace refhost
