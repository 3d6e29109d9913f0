#pragma once

#include <cstdint>
#include <string>

namespace refhost {

inline constexpr char kTooLarge[] = "the document is too large for the memory";

/// Why a document could not be read as XML.
struct ReadFailure {
    std::string fReason;
    std::uint64_t fLine = 0;  ///< from 1; 0 where the place can't be told, and so the column
    std::uint64_t fColumn = 0;
};

/// The failure of the last document that was loaded; null where it was read, and where none
/// was loaded since `ForgetReadFailure`. Valid until the next document is loaded.
const ReadFailure* LastReadFailure();
void ForgetReadFailure();

}  // namespace refhost
