#include "refhost/plot/Boxes.h"

#include <gtest/gtest.h>

#include <vector>

namespace refhost {
namespace {

struct Summary {
    double fLower, fFirst, fMedian, fThird, fUpper;
    std::vector<double> fOutliers;
};

/// Rows whose box statistics come out as the summary, as a view of boxes makes them.
std::vector<double> RowsOf(const Summary& summary)
{
    std::vector<double> lower, upper;
    for (const double outlier : summary.fOutliers) {
        (summary.fMedian <= outlier ? upper : lower).push_back(outlier);
    }
    const auto pad = [](std::vector<double>& side, double whisker, double quartile) {
        side.push_back(whisker);
        side.push_back(quartile);
        side.insert(side.end(), side.size() - 1, quartile);
    };
    pad(lower, summary.fLower, summary.fFirst);
    pad(upper, summary.fUpper, summary.fThird);
    while (lower.size() != upper.size()) {
        std::vector<double>& shorter = lower.size() < upper.size() ? lower : upper;
        shorter.push_back(shorter[shorter.size() / 2]);
    }
    lower.push_back(summary.fMedian);
    lower.insert(lower.end(), upper.begin(), upper.end());
    return lower;
}

TEST(SummarizeBox, GivesBackTheNumbersOfTheSummary)
{
    struct Row {
        Summary summary;
        const char* why;
    };
    for (const Row& row : {
             Row{{216, 277.25, 342, 370.75, 404, {}}, "no outlier"},
             Row{{295, 312.75, 328, 340.25, 341, {423}}, "one above only"},
             Row{{295, 312.75, 328, 340.25, 341, {226, 392, 423}}, "both sides"},
             Row{{10, 20, 30, 40, 50, {-90, -80, -70, 120, 130}}, "many"},
             Row{{10, 20, 30, 40, 65, {66, 67, 68}}, "a fence shorter than 1.5 ranges"},
             Row{{-80, 20, 30, 40, 150, {}}, "whiskers to the ends, beyond any fence"},
             Row{{5, 5, 5, 5, 5, {}}, "no spread"},
             Row{{5, 5, 5, 5, 5, {9}}, "no spread but an outlier"},
         }) {
        SCOPED_TRACE(row.why);
        const auto box = SummarizeBox(RowsOf(row.summary));
        ASSERT_TRUE(box);
        EXPECT_EQ(box->fLowerWhisker, row.summary.fLower);
        EXPECT_EQ(box->fFirstQuartile, row.summary.fFirst);
        EXPECT_EQ(box->fMedian, row.summary.fMedian);
        EXPECT_EQ(box->fThirdQuartile, row.summary.fThird);
        EXPECT_EQ(box->fUpperWhisker, row.summary.fUpper);
        EXPECT_EQ(box->fOutliers, row.summary.fOutliers);
    }
}

TEST(SummarizeBox, FallsBackToTheFenceForRowsOfAnotherNumber)
{
    const auto box = SummarizeBox({1, 2, 3, 4, 5, 6, 18, 20});
    ASSERT_TRUE(box);
    EXPECT_EQ(box->fUpperWhisker, 18);
    EXPECT_EQ(box->fOutliers, std::vector<double>{20}) << "1.76 ranges above the box, not 1.44";
}

TEST(SummarizeBox, ShowsEqualOutliersOnce)
{
    const auto box = SummarizeBox(RowsOf({10, 20, 30, 40, 50, {120, 120}}));
    ASSERT_TRUE(box);
    EXPECT_EQ(box->fUpperWhisker, 50);
    EXPECT_EQ(box->fOutliers, std::vector<double>{120});
}

TEST(SummarizeBox, HasNothingToSayOfNoRows) { EXPECT_FALSE(SummarizeBox({})); }

}  // namespace
}  // namespace refhost
