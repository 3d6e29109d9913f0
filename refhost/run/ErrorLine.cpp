#include "refhost/run/ErrorLine.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdio>

namespace refhost {

void TellError(std::string_view what)
{
    const auto isControl = [](char byte) { return static_cast<unsigned char>(byte) < ' '; };
    std::array<char, 256> piece;  // what is told is mostly shorter
    std::fputs("nonpar: ", stderr);
    while (!what.empty()) {
        const std::size_t size = std::min(what.size(), piece.size());
        std::replace_copy_if(what.begin(), what.begin() + static_cast<std::ptrdiff_t>(size),
                             piece.begin(), isControl, ' ');
        std::fwrite(piece.data(), 1, size, stderr);
        what.remove_prefix(size);
    }
    std::fputc('\n', stderr);
}

}  // namespace refhost
