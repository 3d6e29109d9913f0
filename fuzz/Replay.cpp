#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "fuzz/targets/FuzzTargets.h"

/// Runs a target over files:  fuzz_replay TARGET FILE-OR-FOLDER...
/// A fault ends it behind the line that names the file.

namespace {

namespace fs = std::filesystem;

std::vector<fs::path> FilesBelow(const fs::path& place)
{
    if (!fs::is_directory(place)) return {place};
    std::vector<fs::path> files;
    for (const auto& entry : fs::recursive_directory_iterator(place))
        if (entry.is_regular_file() && !entry.path().filename().string().starts_with('.'))
            files.push_back(entry.path());
    return files;
}

}  // namespace

int main(int argc, char** argv)
{
    const fuzz::FuzzTarget* target = argc > 2 ? fuzz::FindFuzzTarget(argv[1]) : nullptr;
    if (!target) {
        std::fprintf(stderr, "fuzz_replay TARGET FILE-OR-FOLDER...; targets are:\n");
        for (const fuzz::FuzzTarget& known : fuzz::FuzzTargets())
            std::fprintf(stderr, "  %s\n", std::string(known.fName).c_str());
        return 2;
    }
    target->fPrepare();
    std::size_t count = 0;
    for (int place = 2; place < argc; ++place) {
        for (const fs::path& file : FilesBelow(argv[place])) {
            std::printf("%s\n", file.c_str());
            std::fflush(stdout);
            std::ifstream stream(file, std::ios::binary);
            const std::string input{std::istreambuf_iterator<char>(stream), {}};
            target->fRun(input);
            ++count;
        }
    }
    std::printf("%zu cases\n", count);
    return count > 0 ? 0 : 2;
}
