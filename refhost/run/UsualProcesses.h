#pragma once

#include <cstddef>

namespace refhost {

struct Job;

/// How many processes work on a job where nobody says: one for each processor where there are many
/// splits, and where their documents are so small that a few of them at a time are no burden.
std::size_t UsualProcesses(const Job& job);

}  // namespace refhost
