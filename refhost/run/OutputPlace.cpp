#include "refhost/run/OutputPlace.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <fmt/format.h>
#include <cerrno>
#include <cstdio>
#include <cstring>

#include "refhost/document/WriteFailure.h"
#include "refhost/run/Interruption.h"
#include "refhost/run/RunFailure.h"

namespace refhost {

namespace {

/// A device or a pipe has no place to rename a file into.
bool IsSpecialFile(const std::string& file)
{
    struct stat status {};
    return stat(file.c_str(), &status) == 0 && !S_ISREG(status.st_mode);
}

}  // namespace

OutputPlace::OutputPlace(const std::string& file) : fFile(file)
{
    if (file.empty()) return;
    if (IsSpecialFile(file)) {
        fPath = file;
        fIsKept = true;
        return;
    }
    fPath = fmt::format("{}.{}.part", file, getpid());
    SetUnfinishedFile(fPath.c_str());  // before it is there: the run may be ended at any moment
    const int descriptor = open(fPath.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
    if (descriptor < 0) {
        const int reason = errno;
        SetUnfinishedFile(nullptr);
        throw RunFailure(fmt::format("{} can't be written: {}", file, std::strerror(reason)));
    }
    close(descriptor);
}

OutputPlace::~OutputPlace()
{
    if (!fPath.empty() && !fIsKept) std::remove(fPath.c_str());
    SetUnfinishedFile(nullptr);
}

void OutputPlace::Keep()
{
    if (fPath.empty() || fIsKept) return;
    if (std::rename(fPath.c_str(), fFile.c_str()) != 0)
        throw WriteFailure(fmt::format("{} can't be written: {}", fFile, std::strerror(errno)));
    SetUnfinishedFile(nullptr);
    fIsKept = true;
}

}  // namespace refhost
