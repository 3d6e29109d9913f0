#include <gtest/gtest.h>

#include <algorithm>

#include "refhost/plot/Picture.h"
#include "refhost/plot/SampleChart.h"

#include "support/Cases.h"

namespace refhost::test {
namespace {

constexpr double kDay = 86'400'000.0;  // milliseconds
constexpr double kHostDay = 86'400.0;
constexpr double kHostTo1970 = 12'219'379'200.0;
constexpr int kDate = 20, kDateTime = 22, kYearMonth = 28, kDuration = 21;

SampleChart Dated(const char* name, const char* variable, int type)
{
    SampleChart sample(TemplateText(name));
    sample.Set(variable).fHostFormat = HostFormat{type, 10, 0};
    return sample;
}

TEST(Dates, AreTakenInTheUnitThatTheirSizeTells)
{
    struct Row {
        int type;
        double raw;
        double place;
        const char* text;
        const char* why;
    };
    for (const Row& row : {
             Row{kDate, 1277, 1277 * kDay, "1973-07-01", "days of a document"},
             Row{kDate, 1277 * kHostDay + kHostTo1970, 1277 * kDay, "1973-07-01", "the host's"},
             Row{kDate, -1000, -1000 * kDay, "1967-04-07", "days before 1970"},
             Row{kYearMonth, 0, 0, "1970-01-01", "the first day of the document's count"},
             Row{kDateTime, 1277 * kHostDay, 1277 * kDay, "1973-07-01 00:00:00",
                 "seconds of a document"},
             Row{kDateTime, 1277 * kHostDay + kHostTo1970, 1277 * kDay, "1973-07-01 00:00:00",
                 "the host's, with a time"},
             Row{kDate, 4e6, (4e6 - kHostTo1970) * 1000, "1582-11-29", "the host's earliest"},
             Row{kDuration, 3600, 3600, "01:00:00", "a duration has no start"},
         }) {
        SCOPED_TRACE(row.why);
        SampleChart sample = Dated("NPARBoxplot", "Value", row.type);
        sample.Source("boxplotSource").Numbers("Value", {row.raw, row.raw, row.raw});
        sample.Texts("Category", {"a", "a", "a"});
        const ResolvedChart chart = sample.Drawn();
        const ResolvedMark box = MarksOf(chart.fPlots[0], MarkKind::Rect).front();
        EXPECT_EQ(box.fY, row.place);
        EXPECT_NE(box.fPopup.find(row.text), std::string::npos) << box.fPopup;
    }
}

TEST(Dates, ShowOnTheAxisOfBoxes)
{
    SampleChart sample = Dated("NPARBoxplot", "Value", kDate);
    sample.Source("boxplotSource").Numbers("Value", {1216, 1240, 1277, 1300, 1368});
    sample.Texts("Category", {"a", "a", "a", "a", "a"});
    const ResolvedChart chart = sample.Drawn();
    const auto ticks = TickTexts(*FindAxis(chart.fPlots[0], AxisSide::Left));
    ASSERT_GE(ticks.size(), 3u);
    for (const std::string& tick : ticks) {
        EXPECT_EQ(tick.substr(0, 5), "1973-") << tick;
    }
    EXPECT_GE(chart.fPlots[0].fAxes.front().fExtent, 0);
}

TEST(Dates, ThatAreTextsStandInTheOrderOfTime)
{
    using Texts = std::vector<std::string>;
    // clang-format off
    ExpectEach<Texts, Texts>({
        {{"1997-05-19", "1997-06-28", "1997-05-24"}, {"1997-05-19", "1997-05-24", "1997-06-28"}},
        {{"1997-05-19 10:00:00", "1997-05-19 09:59:59.5"}, {"1997-05-19 09:59:59.5", "1997-05-19 10:00:00"}},
        {{"1 00:00:00", "23:59:59.5", "100:00:00", "-00:00:01"}, {"-00:00:01", "23:59:59.5", "1 00:00:00", "100:00:00"}},
        {{"b", "1997-05-19", "a"}, {"b", "1997-05-19", "a"}, "not all are dates"},
        {{"2:1", "1:2"}, {"2:1", "1:2"}, "no times of day"},
    }, [](const Texts& texts) {
        SampleChart sample(TemplateText("NPARHistogram"));
        sample.Texts("value", texts).Numbers("count", std::vector<double>(texts.size(), 1.0));
        Texts order;
        const ResolvedChart chart = sample.Drawn();
        for (const auto& category : chart.fPlots[0].fX.fCategories)
            order.push_back(category.fLabel);
        return order;
    });
    // clang-format on
}

TEST(Dates, PutGuidesOfTheDocumentAmongBarsOfTheHost)
{
    SampleChart sample = Dated("NPARHistogram", "value", kDate);
    sample.Replace("</graph>", "<lineGuide x=\"1277\"/><lineGuide x=\"12329712000\"/></graph>");
    std::vector<double> dates, counts;
    for (int day = 1216; day < 1369; ++day) {
        dates.push_back(day * kHostDay + kHostTo1970);
        counts.push_back(1);
    }
    sample.Numbers("value", dates).Numbers("count", counts);
    const ResolvedChart chart = sample.Drawn();
    const ResolvedPlot& plot = chart.fPlots[0];
    EXPECT_GT(plot.fX.fMin, 1190 * kDay) << "the axis doesn't reach back to 1970";
    std::vector<double> places;
    for (const ResolvedMark& rule : MarksOf(plot, MarkKind::Rule)) {
        places.push_back(rule.fX);
    }
    EXPECT_EQ(places, (std::vector<double>{1277 * kDay, 1277 * kDay}));
    const ResolvedAxis& axis = *FindAxis(plot, AxisSide::Bottom);
    ASSERT_GE(axis.fTicks.size(), 2u);
    for (const AxisTick& tick : axis.fTicks) {
        EXPECT_EQ(tick.fLabel.substr(8), "01") << tick.fLabel;
        EXPECT_TRUE(tick.fAt >= plot.fX.fMin && tick.fAt <= plot.fX.fMax) << tick.fLabel;
    }
}

}  // namespace
}  // namespace refhost::test
