#include "host/framework/Assertion.h"

#include <optional>

#include "refhost/framework/InvariantBroken.h"

namespace refhost {

namespace {

std::optional<std::string> gBrokenInvariant;

}  // namespace

const std::string* BrokenInvariant() { return gBrokenInvariant ? &*gBrokenInvariant : nullptr; }

void ForgetBrokenInvariant() { gBrokenInvariant.reset(); }

}  // namespace refhost

void CFAssertionFailed(const char* text)
{
    const std::string name = text ? text : "";
    if (!refhost::gBrokenInvariant) refhost::gBrokenInvariant = name;
    throw refhost::InvariantBroken(name);
}
