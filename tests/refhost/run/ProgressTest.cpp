#include "refhost/run/Progress.h"

#include <gtest/gtest.h>

#include <utility>
#include <vector>

namespace refhost {
namespace {

using std::chrono::seconds;

TEST(TimeLeft, GoesByWhatWasDoneOfLate)
{
    using Marks = std::vector<std::pair<std::size_t, int>>;  // done, at which second
    struct Row {
        Marks fMarks;
        std::size_t fAll;
        int fLeft;  // negative: not known
        const char* fWhy;
    };
    for (const Row& row : {
             Row{{}, 10, -1, "nothing has begun"},
             Row{{{0, 0}}, 10, -1, "nothing is done"},
             Row{{{0, 0}, {2, 6}}, 10, 24, "three seconds each"},
             Row{{{0, 0}, {5, 100}, {10, 101}, {50, 109}, {100, 117}},
                 1000,
                 160,
                 "the slow ones at the start are long ago"},
             Row{{{0, 0}, {1, 60}, {2, 120}, {3, 180}}, 5, 120, "slow ones all count"},
             Row{{{0, 0}, {1, 60}, {16, 60}, {17, 120}, {32, 120}},
                 48,
                 60,
                 "sixteen come at once, each minute"},
             Row{{{0, 0}, {10, 20}}, 10, 0, "all is done"},
         }) {
        SCOPED_TRACE(row.fWhy);
        TimeLeft left(row.fAll);
        for (const auto& [done, second] : row.fMarks)
            left.Note(done, TimeLeft::Clock::time_point(seconds(second)));
        EXPECT_EQ(left.Estimate().value_or(seconds(-1)).count(), row.fLeft);
    }
}

TEST(DurationText, IsAsExactAsAnEstimate)
{
    for (const auto& [duration, text] : {std::pair{0, "0 s"},
                                         {99, "99 s"},
                                         {100, "2 min"},
                                         {5940, "99 min"},
                                         {12000, "3 h 20 min"},
                                         {360000, "100 h 0 min"}})
        EXPECT_EQ(DurationText(seconds(duration)), text);
}

TEST(ProgressLine, LeavesOutWhatHasNoRoom)
{
    struct Row {
        std::size_t fColumns;
        const char* fLine;
    };
    for (const Row& row : {
             Row{80, "[###############...............] 20 of 40 splits, 12 min left"},
             Row{47, "[#######........] 20 of 40 splits, 12 min left"},
             Row{36, "20 of 40 splits, 12 min left"},
             Row{30, "20 of 40 splits, 12 min left"},
             Row{28, "[####.....] 20 of 40 splits"},
             Row{12, "20 of 40 sp"},
             Row{1, ""},
             Row{0, ""},
         }) {
        SCOPED_TRACE(row.fColumns);
        const std::string line = ProgressLine(20, 40, "12 min", row.fColumns);
        EXPECT_EQ(line, row.fLine);
        EXPECT_LT(line.size(), std::max<std::size_t>(row.fColumns, 1));
    }
}

}  // namespace
}  // namespace refhost
