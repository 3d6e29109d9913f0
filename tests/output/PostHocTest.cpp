#include "OutputTest.h"

#include "output/RankTable.h"

#include "support/Cases.h"

namespace {

using Rows = std::vector<std::vector<double>>;

class PostHoc : public OutputTest {
protected:
    /// What writing two pairs of a Kruskal-Wallis test breaks.
    std::string Broken(const Rows& info, std::size_t columns)
    {
        auto& test = Add<Stats::HTIKruskalWallis>(24);
        test.fPairwise.fComparisonKind = comparison::kPairwise;
        test.fPairwise.fFieldIndex = kFeed;
        test.fPairwise.fInfo.fRows = info;
        test.fPairwise.fContent.fRows = {{0, 1, 1, 2, 3, 4, 5}, {0, 2, 1, 2, 3, 4, 5}};
        test.fPairwise.fContent.fColumnNames.Append(std::vector<std::string>(columns));
        return BrokenBy([&] { Output().PostHocTable(fOutput.Procedure(), test, nullptr); });
    }
};

TEST_F(PostHoc, BreaksWhereTheDocumentGuaranteesTheShape)
{
    const std::string rows = "rankData.fRows.size() == 2";
    ExpectEach<std::tuple<Rows, std::size_t>, std::string>(
        {{{{{0, 1}}, 7}, rows, "one row"},
         {{Rows{}, 7}, rows, "no rows"},
         {{{{0}, {1}, {2}}, 6}, rows, "the rows before the columns"},
         {{{{0, 1, 2}, {3, 1, 2}}, 6}, "nCol == 7", "one column too few"},
         {{{{0, 1, 2}, {3, 1, 2}}, 8}, "nCol == 7", "one too many"},
         {{{{0, 1}, {1}}, 6}, "", "rows of unequal length are only a bad shape"}},
        [&](const Rows& info, std::size_t columns) { return Broken(info, columns); });
}

TEST(RankTable, GrowsWithoutTakingMemory)
{
    NumericTable info;
    info.fRows = {{0, 2147483647, 2147483647}, {5, 6, 7}};
    const RankTable ranks(info);
    EXPECT_TRUE(ranks.Holds(2147483647));
    EXPECT_EQ(ranks.RankOf(2147483647), 7) << "the last number of a sample counts";
    EXPECT_TRUE(ranks.Holds(1000000));
    EXPECT_EQ(ranks.RankOf(1000000), 0);
    EXPECT_FALSE(ranks.Holds(-1));

    info.fRows = {{0, 0, 0}, {5, 6, 7}};
    EXPECT_TRUE(RankTable(info).Holds(2)) << "as long as a row at least";
    EXPECT_FALSE(RankTable(info).Holds(3));
}

}  // namespace
