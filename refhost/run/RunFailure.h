#pragma once

#include <stdexcept>

namespace refhost {

/// The job, an option or a file is wrong, so that nothing is written. The text is one clear line
/// that says which and why.
class RunFailure : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

}  // namespace refhost
