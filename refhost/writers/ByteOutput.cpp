#include "refhost/writers/ByteOutput.h"

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <system_error>
#include <utility>

#include "refhost/document/WriteFailure.h"

namespace refhost {

namespace {

constexpr int kReadableByAll = 0666;  // less what the user's mask takes away

/// Standard output doesn't wait by itself where another program has set it so.
void AwaitRoom(int descriptor)
{
    pollfd output{descriptor, POLLOUT, 0};
    ::poll(&output, 1, /*timeout=*/-1);
}

}  // namespace

ByteOutput::ByteOutput(const std::string& file, std::string name)
    : fName(std::move(name)), fDescriptor(STDOUT_FILENO)
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
    if (fKeeps) return;
    const std::string_view gathered(fPiece.get(), fUsed);
    fUsed = 0;  // also where they can't be sent: they are not to be tried again
    Send(gathered);
}

void ByteOutput::MakeRoom(std::size_t bytes)
{
    if (!fKeeps) {
        Flush();
        return;
    }
    const std::size_t size = std::max(2 * fSize, fUsed + bytes);
    auto larger = std::make_unique_for_overwrite<char[]>(size);
    std::memcpy(larger.get(), fPiece.get(), fUsed);
    fPiece = std::move(larger);
    fSize = size;
}

void ByteOutput::WriteBeyond(std::string_view bytes)
{
    MakeRoom(bytes.size());
    if (bytes.size() > fSize) {
        Send(bytes);
        return;
    }
    Write(bytes);
}

void ByteOutput::Send(std::string_view bytes)
{
    if (fText) {
        *fText += bytes;
        return;
    }
    while (!bytes.empty()) {
        const ssize_t written = ::write(fDescriptor, bytes.data(), bytes.size());
        if (written < 0) {
            if (errno != EINTR && errno != EAGAIN) Fail(errno);
            if (errno == EAGAIN) AwaitRoom(fDescriptor);
            continue;
        }
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
}

void ByteOutput::Close()
{
    Flush();
    if (!fOwned) return;
    fOwned = false;
    if (::close(fDescriptor) != 0) Fail(errno);  // some file systems tell of a full disk only here
}

std::string_view ByteOutput::Take() { return {fPiece.get(), std::exchange(fUsed, 0)}; }

void ByteOutput::Fail(int reason) const
{
    throw WriteFailure("can't write " + fName + ": " + std::generic_category().message(reason));
}

}  // namespace refhost
