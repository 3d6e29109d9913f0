#pragma once

#include <cstdint>

namespace refhost {

/// What parts the tokens of a result document's texts and may stand around its numbers.
constexpr bool IsBlank(char character)
{
    constexpr std::uint64_t kBlanks = 1ULL << ' ' | 1ULL << '\n' | 1ULL << '\t' | 1ULL << '\r';
    const auto code = static_cast<unsigned char>(character);
    return code <= ' ' && (kBlanks >> code & 1U) != 0;
}

}  // namespace refhost
