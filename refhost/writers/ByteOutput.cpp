#include "refhost/writers/ByteOutput.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <system_error>

#include "refhost/document/WriteFailure.h"

namespace refhost {

namespace {

constexpr int kReadableByAll = 0666;  // less what the user's mask takes away

}  // namespace

ByteOutput::ByteOutput(const std::string& file)
    : fName(file.empty() ? "standard output" : file), fDescriptor(STDOUT_FILENO)
{
    if (file.empty()) return;
    fDescriptor = ::open(file.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, kReadableByAll);
    if (fDescriptor < 0) Fail(errno);
    fOwned = true;
}

ByteOutput::~ByteOutput()
{
    if (fOwned) ::close(fDescriptor);
}

void ByteOutput::Flush()
{
    if (fText) {
        *fText += fGathered;
        fGathered.clear();
        return;
    }
    std::string_view rest = fGathered;
    while (!rest.empty()) {
        const ssize_t written = ::write(fDescriptor, rest.data(), rest.size());
        if (written < 0 && errno == EINTR) continue;
        if (written < 0) {
            const int reason = errno;
            fGathered.clear();
            Fail(reason);
        }
        rest.remove_prefix(static_cast<std::size_t>(written));
    }
    fGathered.clear();
}

void ByteOutput::Close()
{
    Flush();
    if (!fOwned) return;
    fOwned = false;
    if (::close(fDescriptor) != 0) Fail(errno);  // some file systems tell of a full disk only here
}

void ByteOutput::Drain(std::size_t further)
{
    Flush();
    fGathered.reserve(std::max(kPiece, further));
}

void ByteOutput::Fail(int reason) const
{
    throw WriteFailure("can't write " + fName + ": " + std::generic_category().message(reason));
}

}  // namespace refhost
