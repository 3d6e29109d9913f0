#include "fuzz/mutators/Chance.h"

#include <array>
#include <vector>

namespace fuzz {

namespace {

// No text here has to be escaped in XML or JSON.
// clang-format off
constexpr auto kHostileTexts = std::to_array<std::string_view>({
    "", " ", "0", "1", "2", "3", "7", "40", "-1", "-2", "0.5", "-0.0", "1e-5", "1.5x", "abc", "nan", "inf", "-inf",
    "4294967295", "4294967296", "2147483647", "2147483648", "-2147483648", "-2147483649", "1e308", "-1e308", "1e-320",
    "1e999", "0x10", "1e18", "9007199254740993", "12219379200", "-1.7976931348623157e+308", "1.7976931348623157e+308",
    "__MISSING__", "true", "false", ".", "%0", "%9", "0 0 0 0", "0 1 2 3 4 5 6 7 8 9", "3 2 1", "-1 -1", ">0.05",
    "^1 [%1:, ^1]1", "$[0]$", "a;b;c", "=1+2", "]]]", "A", "B", "Z", "\xC3\xA4\xE6\x97\xA5\xF0\x9F\x98\x80", "\xC3",
});
// clang-format on

}  // namespace

std::string Chance::Word(std::string_view words)
{
    std::vector<std::string_view> parts;
    while (!words.empty()) {
        const std::size_t end = words.find(' ');
        parts.push_back(words.substr(0, end));
        words.remove_prefix(end == std::string_view::npos ? words.size() : end + 1);
    }
    return parts.empty() ? std::string() : std::string(From(parts));
}

std::string Chance::HostileText() { return std::string(From(kHostileTexts)); }

}  // namespace fuzz
