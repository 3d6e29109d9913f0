#pragma once

#include <stdexcept>
#include <string>

#include "refhost/job/Job.h"

namespace refhost {

/// A job file is wrong. The text is one line that names the file, the place in it and the reason.
class JobError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// Reads a job file; paths in it are taken relative to its folder. Throws `JobError`.
Job ReadJobFile(const std::string& file);

/// Reads a job's text. `name` is what errors call it, `folder` what paths are relative to.
Job ReadJobText(const std::string& text, const std::string& name, const std::string& folder);

}  // namespace refhost
