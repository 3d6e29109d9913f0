#include "refhost/run/UsualProcesses.h"

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <string_view>
#include <thread>

#include "refhost/job/Job.h"

namespace refhost {

namespace {

constexpr std::size_t kFewestSplits = 16;  // with fewer, starting processes takes what they save
constexpr std::size_t kMostProcesses = 8;

// In bytes; a process takes some five times that.
constexpr std::uintmax_t kLargestDocument = std::uintmax_t{16} << 20U;

/// What can't be read is told when its split comes.
bool IsLarge(const std::string& document)
{
    std::error_code unreadable;
    const std::uintmax_t size = std::filesystem::file_size(document, unreadable);
    return !unreadable && size > kLargestDocument;
}

bool HasLargeDocument(const std::vector<JobSplit>& splits)
{
    std::string_view last;
    return std::ranges::any_of(splits, [&last](const JobSplit& split) {
        if (split.fDocument == last) return false;  // a job may name one many times
        last = split.fDocument;
        return IsLarge(split.fDocument);
    });
}

}  // namespace

std::size_t UsualProcesses(const Job& job)
{
    const std::size_t processors = std::thread::hardware_concurrency();  // 0: unknown
    if (processors < 2 || job.fSplits.size() < kFewestSplits) return 1;
    return HasLargeDocument(job.fSplits) ? 1 : std::min(processors, kMostProcesses);
}

}  // namespace refhost
