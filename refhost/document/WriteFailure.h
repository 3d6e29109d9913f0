#pragma once

#include <stdexcept>

namespace refhost {

/// Output could not be written: a full disk, a closed pipe. The text is one clear line.
class WriteFailure : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

}  // namespace refhost
