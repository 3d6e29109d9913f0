#include "OutputTest.h"

#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace {

using testing::HasSubstr;
using testing::Not;

TEST(ViewsAreBuilt, UnlessTheSwitchIsExactlyTwo)
{
    struct Row {
        const char* value;
        bool built;
        const char* why;
    };
    for (const Row& row :
         {Row{nullptr, true, "not set"}, Row{"", true, "empty"}, Row{"2", false, "the one value"},
          Row{"02", true, "another text of the same number"}, Row{"2 ", true, "a blank behind"},
          Row{"0", true, "another number"}, Row{"22", true, "it begins alike"}}) {
        SCOPED_TRACE(row.why);
        EXPECT_EQ(ViewsAreBuilt(row.value), row.built);
    }
}

class Driver : public OutputTest {
protected:
    std::string SubHeading(Test& test)
    {
        OutputRecorder recorder(fSource.get());
        NOPROutput output(&recorder.Procedure(), &recorder.Procedure(), fSource.get(), &fStats);
        if (const auto text = output.TestSubHeading(test)) recorder.Procedure().Heading(*text);
        return recorder.Outline();
    }
};

TEST_F(Driver, WritesNothingWithoutAResult)
{
    BpProcedure& procedure = fRecorder.Procedure();
    NOPROutput(&procedure, &procedure, fSource.get(), nullptr).Run();
    NOPROutputStats empty;
    NOPROutput(&procedure, &procedure, fSource.get(), &empty).Run();
    EXPECT_EQ(fRecorder.Outline(), "");
}

TEST_F(Driver, WritesSummariesThenEachTestUnderItsHeadings)
{
    Add(18, "R_HodgesLehman_2", {{kWeight}, {kFeed}});
    Add(1, "DefaultEqualProbabilities_O_ChiSquare_1", {{kFeed}});
    Add(6, "PoissonDistribution_O_KolmogorovSmirnov_2", {{kGone}, {1}});
    Test& blocked = Add(21, "DefaultAllDistinctValuesUsed_I_MannWhitneyU_2", {{kWeight}, {kFeed}});
    AddMessage(blocked, 4711, message::kError);
    auto& pairs = Add<Stats::HTIKruskalWallis>(24, "DefaultAllDistinctValuesUsed_I_KruskalWallis_2",
                                               {{kWeight}, {kFeed}});
    AddMessage(pairs, 222328, message::kError, {}, "0;1");
    pairs.fPairwise.fComparisonKind = comparison::kStepwise;
    Output().Run();
    EXPECT_EQ(fRecorder.Outline(),
              "table @Hypothesis Test Summary\n"
              "table @Confidence Interval Summary\n"
              "heading @One-Sample Chi-Square Test\n"
              "  heading <feed>\n"
              "    table @One-Sample Chi-Square Test Summary\n"
              "heading @One-Sample Kolmogorov-Smirnov Poisson Test\n"
              "  table @One-Sample Kolmogorov-Smirnov Poisson Test Summary\n"
              "heading @Independent-Samples Mann-Whitney U Test\n"
              "heading @Independent-Samples Kruskal-Wallis Test\n"
              "  heading @^1 across ^2(<weight>; <feed>)\n"
              "    table @Independent-Samples Kruskal-Wallis Test Summary\n"
              "    table @Homogeneous Subsets based on ^1()\n")
        << "an error of the whole test leaves an empty heading, one of a pair doesn't block";
}

TEST_F(Driver, NamesTheFieldsOfATest)
{
    struct Row {
        TestKind kind;
        Parameters parameters;
        const char* heading;
        const char* why;
    };
    for (const Row& row :
         {Row{1, {{kFeed}}, "heading <feed>\n", "one sample"},
          Row{1, {{kGone}}, "", "one sample without a variable"}, Row{1, {{}}, "", "no field"},
          Row{13,
              {{kFeed, kCity, kDay}},
              "heading @[%1:, ^1]1([<feed>, <city>, <day>])\n",
              "a list of related fields"},
          Row{13, {{kFeed}}, "", "one related field is no list"},
          Row{13,
              {{kFeed, kNoField}},
              "heading @[%1:, ^1]1([<feed>])\n",
              "the other field of two stands alone"},
          Row{12,
              {{kFeed}, {kGone}},
              "heading @[%1:, ^1]1([<feed>])\n",
              "and so of two parameters"},
          Row{12, {{kFeed}, {}}, "", "both parameters need a value"},
          Row{24, {{kWeight}, {kFeed}}, "heading @^1 across ^2(<weight>; <feed>)\n", "groups"},
          Row{24, {{kWeight}, {kNoField}}, "", "groups need both fields"},
          Row{24, {{-1}, {kFeed}}, "", "a negative index"}}) {
        SCOPED_TRACE(row.why);
        EXPECT_EQ(SubHeading(Add(row.kind, "", row.parameters)), row.heading);
    }
    Test& unknown = Add(1, "", {{kFeed}});
    unknown.fSampleKind = 0;
    EXPECT_EQ(SubHeading(unknown), "") << "no family";
}

/// A folder of templates that is gone at the end.
class TemplateFolder {
public:
    explicit TemplateFolder(std::initializer_list<const char*> names)
    {
        std::filesystem::create_directories(fPath);
        for (const char* name : names)
            std::ofstream(fPath / (std::string(name) + ".viztemplate")) << "<visualization/>";
    }
    ~TemplateFolder() { std::filesystem::remove_all(fPath); }
    TemplateFolder(const TemplateFolder&) = delete;
    TemplateFolder& operator=(const TemplateFolder&) = delete;

    const std::filesystem::path fPath =
        std::filesystem::temp_directory_path() / ("driver-views-" + std::to_string(getpid()));
};

/// A Kruskal-Wallis test with boxes and pairs, and the distribution of its field: one chart of each
/// sort that the switch decides on or not.
class DriverViews : public Driver {
protected:
    DriverViews()
    {
        auto& test = Add<Stats::HTIKruskalWallis>(
            24, "DefaultAllDistinctValuesUsed_I_KruskalWallis_2", {{kWeight}, {kFeed}});
        test.fBoxPlot.fGroupFieldIndex = kFeed;
        test.fBoxPlot.fGroups.resize(1);
        test.fBoxPlot.fGroups[0].fGroupIndex = 0;
        test.fBoxPlot.fGroups[0].fBox.fRows = {{1, 2, 3, 4, 5}};
        Stats::PairwiseData& pairs = test.fPairwise;
        pairs.fComparisonKind = comparison::kPairwise;
        pairs.fFieldIndex = kFeed;
        pairs.fInfo.fRows = {{0, 1}, {1, 2}};
        pairs.fContent.fColumnNames = {"Sample1",      "Sample2", "Statistic", "StdError",
                                       "StdStatistic", "Sig",     "AdjSig"};
        pairs.fContent.fRows = {{0, 1, 2, 3, 4, 0.5, 0.6}};
        FieldInfoData* field = fStats.GetFieldInfo(kWeight);
        field->fDistribution.fName = "Interval";
        field->fDistribution.fRows = {{3, 4}, {1, 2}};
    }

    std::string RunOutline()
    {
        OutputRecorder recorder(fSource.get(), fFolder.fPath.string());
        BpProcedure& procedure = recorder.Procedure();
        NOPROutput(&procedure, &procedure, fSource.get(), &fStats).Run();
        return recorder.Outline();
    }

    /// In a process of its own, since a process reads the switch once.
    void ExpectOutline(const char* value, const std::string& outline)
    {
        GTEST_FLAG_SET(death_test_style, "threadsafe");
        EXPECT_EXIT(
            {
                setenv("DEBUG_MODEL_VIEWER", value, 1);
                const std::string first = RunOutline();
                setenv("DEBUG_MODEL_VIEWER", "other", 1);
                const bool same = first == outline && RunOutline() == first;
                if (!same) std::fputs(first.c_str(), stderr);
                std::filesystem::remove_all(fFolder.fPath);
                std::exit(same ? 0 : 1);
            },
            testing::ExitedWithCode(0), "");
    }

    const TemplateFolder fFolder{"NPARBoxplot", "NPARHistogram", "GLMMPairwiseContrasts"};
};

constexpr char kBefore[] =
    "table @Hypothesis Test Summary\n"
    "heading @Independent-Samples Kruskal-Wallis Test\n"
    "  heading @^1 across ^2(<weight>; <feed>)\n"
    "    table @Independent-Samples Kruskal-Wallis Test Summary\n";
constexpr char kPostHoc[] =
    "    table @Pairwise Comparisons of ^1(<feed>)\n"
    "    chart GLMMPairwiseContrasts.viztemplate\n";

TEST_F(DriverViews, StandBetweenTheTablesAndAtTheEnd)
{
    ExpectOutline("02", std::string(kBefore) + "    chart NPARBoxplot.viztemplate\n" + kPostHoc +
                            "chart NPARHistogram.viztemplate\n");
}

TEST_F(DriverViews, LeaveOnlyTheGraphOfPairsWhereTheyAreSwitchedOff)
{
    ExpectOutline("2", std::string(kBefore) + kPostHoc);
}

TEST_F(DriverViews, AreNotDrawnForATestWithAnErrorOfAPair)
{
    AddMessage(*fStats.GetTests()[0], 222328, message::kError, {}, "0;1");
    const std::string outline = RunOutline();
    EXPECT_THAT(outline, Not(HasSubstr("NPARBoxplot")));
    EXPECT_THAT(outline, HasSubstr("Kruskal-Wallis Test Summary"));
}

}  // namespace
