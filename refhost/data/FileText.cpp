#include "refhost/data/FileText.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <new>

namespace refhost {

namespace {

constexpr std::size_t kPiece = 1U << 16U;

/// Closed at its end.
struct OpenFile {
    explicit OpenFile(const std::string& file) : fNumber(::open(file.c_str(), O_RDONLY | O_CLOEXEC))
    {
    }
    ~OpenFile()
    {
        if (fNumber >= 0) ::close(fNumber);
    }
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;

    const int fNumber;
};

std::size_t MachineMemory()
{
    return static_cast<std::size_t>(::sysconf(_SC_PHYS_PAGES)) *
           static_cast<std::size_t>(::sysconf(_SC_PAGESIZE));
}

}  // namespace

bool ReadFile(const std::string& file, std::string& text)
{
    text.clear();
    const OpenFile input(file);
    struct stat about {};
    if (input.fNumber < 0 || ::fstat(input.fNumber, &about) != 0) return false;
    const auto told = static_cast<std::size_t>(std::max<off_t>(about.st_size, 0));
    if (told > MachineMemory()) throw std::bad_alloc();
    text.resize(told + 1);  // the end is seen where a call finds nothing more
    std::size_t size = 0;
    while (true) {
        if (size == text.size()) text.resize(size + kPiece);
        const ssize_t count = ::read(input.fNumber, text.data() + size, text.size() - size);
        if (count < 0 && errno == EINTR) continue;
        if (count <= 0) {
            text.resize(size);
            return count == 0;
        }
        size += static_cast<std::size_t>(count);
    }
}

}  // namespace refhost
