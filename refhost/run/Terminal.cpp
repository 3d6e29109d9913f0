#include "refhost/run/Terminal.h"

#include <sys/ioctl.h>

namespace refhost {

std::optional<std::size_t> ColumnsOf(int descriptor)
{
    winsize size{};
    if (ioctl(descriptor, TIOCGWINSZ, &size) != 0 || size.ws_col == 0) return std::nullopt;
    return size.ws_col;
}

}  // namespace refhost
