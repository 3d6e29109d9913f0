#pragma once

#include <cstddef>

#include "refhost/document/OutputNode.h"

namespace refhost {

/// Whether two texts were made from the same: string and lookup; number and format; variable; value
/// and variable; template and parts. How a number or a value shows counts too, since its format may
/// follow a variable and its unit its origin. Neither is null.
bool SamePassed(const TextRef& a, const TextRef& b);

/// Equal for texts that were made from the same.
std::size_t PassedHash(const TextRef& text);

struct PassedHasher {
    std::size_t operator()(const TextRef& text) const { return PassedHash(text); }
};

struct PassedEqual {
    bool operator()(const TextRef& a, const TextRef& b) const { return SamePassed(a, b); }
};

}  // namespace refhost
