#include "refhost/run/Progress.h"

#include <gtest/gtest.h>

#include <utility>
#include <vector>

#include "support/Cases.h"

namespace refhost {
namespace {

using std::chrono::seconds;

TEST(TimeLeft, GoesByWhatWasDoneOfLate)
{
    using Marks = std::vector<std::pair<std::size_t, int>>;  // done, at which second
    // clang-format off
    ExpectEach<std::tuple<Marks, std::size_t>, int>({
        {{Marks(), 10}, -1, "nothing has begun"},
        {{{{0, 0}}, 10}, -1, "nothing is done"},
        {{{{0, 0}, {2, 6}}, 10}, 24, "three seconds each"},
        {{{{0, 0}, {5, 100}, {10, 101}, {50, 109}, {100, 117}}, 1000}, 160, "the slow ones at the start are long ago"},
        {{{{0, 0}, {1, 60}, {2, 120}, {3, 180}}, 5}, 120, "slow ones all count"},
        {{{{0, 0}, {1, 60}, {16, 60}, {17, 120}, {32, 120}}, 48}, 60, "sixteen come at once, each minute"},
        {{{{0, 0}, {10, 20}}, 10}, 0, "all is done"},
    }, [](const Marks& marks, std::size_t all) {
        TimeLeft left(all);
        for (const auto& [done, second] : marks)
            left.Note(done, TimeLeft::Clock::time_point(seconds(second)));
        return static_cast<int>(left.Estimate().value_or(seconds(-1)).count());
    });
    // clang-format on
}

TEST(DurationText, IsAsExactAsAnEstimate)
{
    // clang-format off
    ExpectEach<int, std::string>({
        {0, "0 s"}, {99, "99 s"}, {100, "2 min"}, {5940, "99 min"}, {12000, "3 h 20 min"}, {360000, "100 h 0 min"},
    }, [](int duration) { return DurationText(seconds(duration)); });
    // clang-format on
}

TEST(ProgressLine, LeavesOutWhatHasNoRoom)
{
    // clang-format off
    ExpectEach<std::size_t, std::string>({
        {80, "[###############...............] 20 of 40 splits, 12 min left"},
        {47, "[#######........] 20 of 40 splits, 12 min left"},
        {36, "20 of 40 splits, 12 min left"},
        {30, "20 of 40 splits, 12 min left"},
        {28, "[####.....] 20 of 40 splits"},
        {12, "20 of 40 sp"},
        {1, ""},
        {0, ""},
    }, [](std::size_t columns) {
        const std::string line = ProgressLine(20, 40, "12 min", columns);
        EXPECT_LT(line.size(), std::max<std::size_t>(columns, 1));
        return line;
    });
    // clang-format on
}

}  // namespace
}  // namespace refhost
