#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <cstddef>

#include "frame/NOPRProcCustom.h"

#include "host/framework/CFProcCustom.h"

namespace {

/// The place of a virtual operation in the table of its class, as the platform's binary interface
/// keeps it in a pointer to member: one more than the offset in bytes.
template <class Operation>
std::ptrdiff_t SlotOf(Operation operation)
{
    const auto words = std::bit_cast<std::array<std::ptrdiff_t, 2>>(operation);
    EXPECT_EQ(words[0] % 2, 1) << "not virtual";
    return (words[0] - 1) / static_cast<std::ptrdiff_t>(sizeof(void*));
}

TEST(ProcedureSlots, StandInTheOrderThatTheHostCallsThemBy)
{
    // The destructor takes the first two: with and without release of the memory.
    EXPECT_EQ(SlotOf(&CFProcCustom::CollectAnalysisVariables), 2);
    EXPECT_EQ(SlotOf(&CFProcCustom::ProcessSplits), 3);
    EXPECT_EQ(SlotOf(&CFProcCustom::ProcessSplit), 4);
    EXPECT_EQ(SlotOf(&CFProcCustom::SetStatJSON), 5);
    EXPECT_EQ(SlotOf(&CFProcCustom::ProcessOutputJSON), 6);
    EXPECT_EQ(SlotOf(&NOPRProcCustom::CollectAnalysisVariables), 2);
    EXPECT_EQ(SlotOf(&NOPRProcCustom::ProcessSplits), 3);
    EXPECT_EQ(SlotOf(&NOPRProcCustom::ProcessSplit), 4);
    EXPECT_EQ(sizeof(NOPRProcCustom), sizeof(CFProcCustom)) << "it adds no field";
}

}  // namespace
