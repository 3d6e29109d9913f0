#include "refhost/run/OutputPlace.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <fmt/format.h>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <string_view>
#include <system_error>

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

/// Where a file stands that may be named by a link.
std::string TargetOf(const std::string& file)
{
    std::error_code error;
    const std::filesystem::path target = std::filesystem::canonical(file, error);
    return error ? file : target.string();
}

/// A name beside another, of a length that file systems take. Put together from texts: where memory
/// runs out in it, `path::replace_filename` leaves a path that can't be destroyed.
std::string PartOf(std::string_view file)
{
    constexpr std::size_t kLongestStem = 200;
    const std::size_t name = file.rfind('/') + 1;  // the first where there is no folder
    return fmt::format("{}{}.{}.part", file.substr(0, name), file.substr(name, kLongestStem),
                       getpid());
}

}  // namespace

OutputPlace::OutputPlace(const std::string& file) : fFile(file), fTarget(TargetOf(file))
{
    if (file.empty()) return;
    if (IsSpecialFile(file)) {
        fPath = file;
        fIsKept = true;
        return;
    }
    fPath = PartOf(fTarget);
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
    if (std::rename(fPath.c_str(), fTarget.c_str()) != 0)
        throw WriteFailure(fmt::format("{} can't be written: {}", fFile, std::strerror(errno)));
    SetUnfinishedFile(nullptr);
    fIsKept = true;
}

}  // namespace refhost
