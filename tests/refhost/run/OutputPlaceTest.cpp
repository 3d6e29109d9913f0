#include "refhost/run/OutputPlace.h"

#include <gtest/gtest.h>

#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <filesystem>
#include <string>
#include <thread>

#include "refhost/run/Interruption.h"

namespace refhost {
namespace {

constexpr int kRuns = 60;

/// A second interruption, after which nothing more is done.
void EndAtOnce(int)
{
    DropUnfinishedFile();
    _exit(0);
}

/// A process that makes files and drops them until it is ended.
pid_t StartMaker(const std::string& file)
{
    const pid_t process = fork();
    if (process != 0) return process;
    std::signal(SIGTERM, EndAtOnce);
    while (true)
        const OutputPlace place(file);
}

TEST(OutputPlace, LeavesNoFileWhereverARunIsEnded)
{
    std::string folder = (std::filesystem::temp_directory_path() / "nonpar-places-XXXXXX").string();
    ASSERT_NE(mkdtemp(folder.data()), nullptr);
    for (int run = 0; run < kRuns; ++run) {
        const pid_t process = StartMaker(folder + "/out");
        ASSERT_GT(process, 0);
        std::this_thread::sleep_for(std::chrono::microseconds(2000 + 37 * run));
        kill(process, SIGTERM);
        ASSERT_EQ(waitpid(process, nullptr, 0), process);
        ASSERT_TRUE(std::filesystem::is_empty(folder)) << "in run " << run;
    }
    std::filesystem::remove_all(folder);
}

}  // namespace
}  // namespace refhost
