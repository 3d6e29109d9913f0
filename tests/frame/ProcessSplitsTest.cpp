#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <type_traits>
#include <vector>

#include "frame/NOPRProcCustom.h"

#include "host/framework/SplitResult.h"

#include "refhost/framework/InvariantBroken.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

SplitResult Split(const std::string& document)
{
    SplitResult split;
    split.fDocument = document;
    return split;
}

/// Stands in for the reading and writing of a split.
class CountedSplits final : public NOPRProcCustom {
public:
    bool ProcessSplit(std::string& scratch, const SplitResult& split) override
    {
        EXPECT_EQ(scratch, fSeen.empty() ? "" : "kept");
        scratch = "kept";
        fSeen.push_back(split.fDocument);
        return split.fDocument != "bad";
    }
    std::vector<std::string> fSeen;
};

TEST(ProcessSplits, CallsTheVirtualOperationWithOneString)
{
    CountedSplits procedure;
    std::vector<std::string> none;
    EXPECT_TRUE(procedure.ProcessSplits(none, {Split("a"), Split("b")}));
    EXPECT_THAT(procedure.fSeen, ElementsAre("a", "b"));
    procedure.fSeen.clear();
    EXPECT_FALSE(procedure.ProcessSplits(none, {Split("a"), Split("bad"), Split("c")}));
    EXPECT_THAT(procedure.fSeen, ElementsAre("a", "bad"));
}

TEST(ProcessSplits, BreaksOnAFilledListAndOnNoSplit)
{
    CountedSplits procedure;
    const auto broken = [&](std::vector<std::string> documents,
                            const std::vector<SplitResult>& splits) {
        try {
            procedure.ProcessSplits(documents, splits);
        } catch (const refhost::InvariantBroken& invariant) {
            return std::string(invariant.what());
        }
        return std::string();
    };
    EXPECT_EQ(broken({""}, {Split("a")}), "vPMMLStr.size() == 0");
    EXPECT_EQ(broken({""}, {}), "vPMMLStr.size() == 0");
    EXPECT_EQ(broken({}, {}), "nSplits > 0");
    EXPECT_THAT(procedure.fSeen, IsEmpty());
}

static_assert(std::is_copy_constructible_v<NOPRProcCustom>);
static_assert(std::is_copy_assignable_v<NOPRProcCustom>);

}  // namespace
