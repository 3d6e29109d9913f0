#include "OutputTest.h"

#include "support/Cases.h"

namespace {

class Driver : public OutputTest {
protected:
    std::string SubHeading(Test& test)
    {
        CollectedOutput written(fSource.get());
        NOPROutput output(&written.Procedure(), &written.Procedure(), fSource.get(), &fStats);
        if (const auto text = output.TestSubHeading(test)) written.Procedure().Heading(*text);
        return Outline(written);
    }

    static void AddError(Test& test, int code, const std::string& group = {})
    {
        Stats::WarningMessage& error = test.fMessages.emplace_back();
        error.fCode = code;
        error.fType = message::kError;
        error.fGroup = group;
    }
};

TEST_F(Driver, WritesNothingWithoutAResult)
{
    BpProcedure& procedure = fOutput.Procedure();
    NOPROutput(&procedure, &procedure, fSource.get(), nullptr).Run();
    NOPROutputStats empty;
    NOPROutput(&procedure, &procedure, fSource.get(), &empty).Run();
    EXPECT_EQ(Outline(fOutput), "");
}

TEST_F(Driver, WritesSummariesThenEachTestUnderItsHeadings)
{
    Add(18, "R_HodgesLehman_2", {{kWeight}, {kFeed}});
    Add(1, "DefaultEqualProbabilities_O_ChiSquare_1", {{kFeed}});
    Add(6, "PoissonDistribution_O_KolmogorovSmirnov_2", {{kGone}, {1}});
    Test& blocked = Add(21, "DefaultAllDistinctValuesUsed_I_MannWhitneyU_2", {{kWeight}, {kFeed}});
    AddError(blocked, 4711);
    auto& pairs = Add<Stats::HTIKruskalWallis>(24, "DefaultAllDistinctValuesUsed_I_KruskalWallis_2",
                                               {{kWeight}, {kFeed}});
    AddError(pairs, 222328, "0;1");
    pairs.fPairwise.fComparisonKind = comparison::kStepwise;
    Output().Run();
    EXPECT_EQ(Outline(fOutput),
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
    // clang-format off
    ExpectEach<std::tuple<TestKind, Parameters>, std::string>({
        {{1, {{kFeed}}}, "heading <feed>\n", "one sample"},
        {{1, {{kGone}}}, "", "one sample without a variable"},
        {{1, {{}}}, "", "no field"},
        {{13, {{kFeed, kCity, kDay}}}, "heading @[%1:, ^1]1([<feed>, <city>, <day>])\n", "a list of related fields"},
        {{13, {{kFeed}}}, "", "one related field is no list"},
        {{13, {{kFeed, kNoField}}}, "heading @[%1:, ^1]1([<feed>])\n", "the other field of two stands alone"},
        {{12, {{kFeed}, {kGone}}}, "heading @[%1:, ^1]1([<feed>])\n", "and so of two parameters"},
        {{12, {{kFeed}, {}}}, "", "both parameters need a value"},
        {{24, {{kWeight}, {kFeed}}}, "heading @^1 across ^2(<weight>; <feed>)\n", "groups"},
        {{24, {{kWeight}, {kNoField}}}, "", "groups need both fields"},
        {{24, {{-1}, {kFeed}}}, "", "a negative index"},
    }, [&](TestKind kind, const Parameters& parameters) { return SubHeading(Add(kind, "", parameters)); });
    // clang-format on
    Test& unknown = Add(1, "", {{kFeed}});
    unknown.fSampleKind = 0;
    EXPECT_EQ(SubHeading(unknown), "") << "no family";
}

}  // namespace
