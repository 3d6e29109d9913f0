#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

#include "refhost/plot/Bins.h"
#include "refhost/plot/Curves.h"
#include "refhost/plot/Ticks.h"

#include "support/Cases.h"

namespace refhost {
namespace {

constexpr double kDay = 86'400'000.0;

TEST(MakeBins, HoldsEveryNumberBetweenRoundEdges)
{
    struct Row {
        std::vector<double> numbers;
        BinKind kind;
        double width;  ///< expected; 0: any
        const char* why;
    };
    for (const Row& row : {
             Row{{108, 423, 250, 300, 199}, BinKind::Number, 50, "edges at fifties"},
             Row{{7}, BinKind::Number, 1, "a single number has a bin of its own"},
             Row{{0, 1, 2, 3, 8}, BinKind::Whole, 1, "around whole numbers"},
             Row{{0, 1000}, BinKind::Whole, 0, "many whole numbers share a bin"},
             Row{{0.1, 0.2, 0.30000000000000004}, BinKind::Number, 0, "sums that miss an edge"},
             Row{{-1e15, -1e15 + 1}, BinKind::Number, 0, "hardly apart for their size"},
             Row{{0, 40 * kDay}, BinKind::Date, 7 * kDay, "weeks"},
             Row{{1e300, -1e300}, BinKind::Number, 0, "as wide as doubles go"},
             Row{{-2, -1}, BinKind::Number, 0, "an upper edge below zero"},
             Row{{5e-324, 1e-323}, BinKind::Number, 0, "as near as doubles go"},
             Row{{9007199254740992, 9007199254741010}, BinKind::Whole, 0, "whole numbers skipped"},
         }) {
        SCOPED_TRACE(row.why);
        const Bins bins = MakeBins(row.numbers, row.kind);
        ASSERT_GT(bins.fCount, 0u);
        EXPECT_LE(bins.fCount, 200u);
        if (row.width > 0) {
            EXPECT_DOUBLE_EQ(bins.fWidth, row.width);
        }
        for (const double number : row.numbers) {
            EXPECT_LT(bins.Find(number), bins.fCount) << number;
        }
    }
}

TEST(MakeBins, PutsASingleNumberIntoTheMiddle)
{
    const Bins bins = MakeBins({7, 7, 7}, BinKind::Number);
    EXPECT_EQ(bins.Edge(0), 6.5);
    EXPECT_EQ(bins.Edge(1), 7.5);
}

TEST(MakeBins, HasNoneForRangesBeyondTheNumbers)
{
    EXPECT_EQ(MakeBins({}, BinKind::Number).fCount, 0u);
    const double largest = std::numeric_limits<double>::max();
    for (const BinKind kind : {BinKind::Number, BinKind::Date, BinKind::Whole}) {
        EXPECT_EQ(MakeBins({-largest, largest}, kind).fCount, 0u);
    }
}

TEST(Ranges, OfExtremeNumbersHaveAFewTicksThatDiffer)
{
    struct Row {
        double low, high;
        const char* why;
    };
    for (const Row& row : {Row{5e-324, 5e-324, "one number next to zero"},
                           Row{3e-323, 3e-323, "digits are lost there"},
                           Row{9007199254740992, 9007199254740994, "whole numbers are skipped"},
                           Row{1e27, 1.1e27, "no calendar reaches there"},
                           Row{-1.7e308, 1.7e308, "no double is as long"}}) {
        SCOPED_TRACE(row.why);
        const TickedRange range = RoundRange(row.low, row.high, 8);
        EXPECT_LT(range.fMin, range.fMax);
        for (const auto& ticks : {range.fTicks, TimeTicksWithin(row.low, row.high, 8)}) {
            EXPECT_LE(ticks.size(), 50u);
            for (std::size_t at = 1; at < ticks.size(); ++at) {
                EXPECT_GT(ticks[at].fAt, ticks[at - 1].fAt);
            }
        }
    }
}

TEST(CurvePoints, CoverTheAreaOfTheBars)
{
    // clang-format off
    ExpectEach<std::tuple<CurveShape, double, double>, bool>({
        {{{tree::Distribution::Normal, 260, 20}, 100, 420}, true, "normal"},
        {{{tree::Distribution::Uniform, 108, 423}, 100, 450}, true, "uniform"},
        {{{tree::Distribution::Exponential, 0.25, 0}, 0, 60}, true, "exponential"},
    }, [](const CurveShape& shape, double low, double high) {
        constexpr double kScale = 71 * 50.0;  // rows times bin width
        const auto points = CurvePoints(shape, low, high, kScale, std::nullopt);
        double area = 0;
        for (std::size_t at = 1; at < points.size(); ++at)
            area += (points[at].fX - points[at - 1].fX) * (points[at].fY + points[at - 1].fY) / 2;
        return std::fabs(area - kScale) < kScale * 0.005;
    });
    // clang-format on
}

TEST(CurvePoints, OfPoissonStandAtWholeNumbersAndSumToTheRows)
{
    const CurveShape shape{tree::Distribution::Poisson, 3.25, 0};
    const auto points = CurvePoints(shape, -0.5, 30.5, 200.0, Bins{-0.5, 1.0, 31});
    double sum = 0;
    for (const CurvePoint& point : points) {
        EXPECT_EQ(point.fX, std::floor(point.fX));
        sum += point.fY;
    }
    EXPECT_NEAR(sum, 200.0, 1e-6);
    EXPECT_NEAR(points.front().fY, 200.0 * std::exp(-3.25), 1e-9);

    struct WideRow {
        double mean, width;
        std::size_t bin;
        double probability;  // summed with fifty digits
    };
    for (const WideRow& row :
         {WideRow{3.25, 5, 0, 0.771653436557}, WideRow{900.25, 500, 1, 0.999433405725},
          WideRow{5000, 500, 10, 0.501880634033}, WideRow{3, 1e12, 0, 1}}) {
        SCOPED_TRACE(row.mean);
        const CurveShape other{tree::Distribution::Poisson, row.mean, 0};
        const Bins bins{-0.5, row.width, 12};
        const auto wide = CurvePoints(other, bins.fStart, bins.Edge(12), row.width, bins);
        EXPECT_NEAR(wide[row.bin].fY, row.probability, 1e-9)
            << "a bin of several counts has the sum of them";
    }
    EXPECT_LE(CurvePoints(shape, 9007199254740992, 9007199254741010, 1.0, std::nullopt).size(), 1u)
        << "beyond it a double and one more are the same";
}

TEST(ShapeOf, RefusesParametersOutOfRange)
{
    using tree::Distribution;
    using tree::DistributionStatistic;
    const auto number = [](double value) {
        return tree::Parameter{tree::ParameterKind::Number, value};
    };
    const double infinite = std::numeric_limits<double>::infinity();
    // clang-format off
    ExpectEach<DistributionStatistic, bool>({
        {{Distribution::Normal, number(0), number(1)}, true, "the standard normal"},
        {{Distribution::Normal, number(0), number(0)}, false, "no spread"},
        {{Distribution::Normal, number(0), std::nullopt}, false, "no spread given"},
        {{Distribution::Uniform, number(2), number(2)}, false, "no range"},
        {{Distribution::Exponential, number(infinite), std::nullopt}, false, "mean of 0"},
        {{Distribution::Poisson, number(-1), std::nullopt}, false, "negative mean"},
    }, [](const DistributionStatistic& statistic) { return ShapeOf(statistic, false).has_value(); });
    // clang-format on
}

TEST(CountRange, StartsAtZeroWithFewWholeTicksAndAir)
{
    for (const double most : {1.0, 2.0, 3.0, 14.0, 17.0, 29.0, 99.0, 1234.0, 1e9}) {
        SCOPED_TRACE(most);
        const TickedRange range = CountRange(most, 8, /*air=*/0.0);
        EXPECT_EQ(range.fMin, 0);
        EXPECT_GT(range.fMax, most);
        EXPECT_LE(range.fTicks.size(), 8u);
        EXPECT_GE(range.fTicks.size(), 2u);
        for (const AxisTick& tick : range.fTicks) {
            if (most >= 1) {
                EXPECT_EQ(tick.fAt, std::floor(tick.fAt));
            }
        }
    }
}

TEST(TickText, ShowsAsManyDecimalsAsTheStepNeeds)
{
    EXPECT_EQ(TickText(0.30000000000000004, 0.1), "0.3");
    EXPECT_EQ(TickText(-5, 5),
              "\xE2\x88\x92"
              "5");
    EXPECT_EQ(TickText(250, 50), "250");
    EXPECT_EQ(TickText(1e-17, 0.5), "0");
    EXPECT_LE(TickText(1e300, 1e299).size(), 12u);
}

TEST(TimeTicksWithin, StandAtTheFirstOfMonthsWhereTheSpanIsLong)
{
    const auto ticks = TimeTicksWithin(0, 400 * kDay, 6);
    ASSERT_GE(ticks.size(), 4u);
    EXPECT_EQ(ticks.front().fLabel, "1970-01-01");
    for (const AxisTick& tick : ticks) {
        EXPECT_EQ(tick.fLabel.substr(8), "01") << tick.fLabel;
    }
    EXPECT_LE(TimeTicksWithin(-9e15, 9e15, 6).size(), 50u);
}

}  // namespace
}  // namespace refhost
