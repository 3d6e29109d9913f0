#pragma once

#include <string>
#include <string_view>

namespace fuzz {

/// How the cases of a target are changed by what they say, beside what is done to bare bytes.
struct Mutator {
    std::string_view fTarget;
    std::string (*fMutate)(std::string_view input, unsigned seed);
    std::string (*fCross)(std::string_view input, std::string_view other, unsigned seed);
};

/// Null where no target bears the name.
const Mutator* FindMutator(std::string_view target);

}  // namespace fuzz
