#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/Cases.h"
#include "support/DocumentBuilder.h"
#include "support/Reading.h"

namespace {

using testing::IsEmpty;
using Stats = NOPROutputStats;

std::string Minimal() { return DocumentBuilder().Text(); }

std::string WithTest(const Element& test) { return DocumentBuilder().AddTest(test).Text(); }

TEST(Read, TakesTheFrameAndFailsWithoutItsRequiredParts)
{
    // clang-format off
    ExpectEach<std::string, bool>({
        {Minimal(), true, "no dictionary and no test"},
        {"", false, "no text"},
        {"  ", false, "no element"},
        {"<StatXML>", false, "not closed"},
        {"plain words", false, "no XML"},
        {Replaced(Minimal(), "/></DescriptiveSummary>", "></DescriptiveSummary>"), false, "not well-formed"},
        {"<!DOCTYPE StatXML [<!ENTITY a \"b\">]>" + Minimal(), false, "entities are refused"},
        {"<?xml version=\"1.0\" encoding=\"UTF-8\"?>" + Minimal(), true, "a declaration"},
        {"<Other>" + Minimal() + "</Other>", false, "another root"},
        {Replaced(Minimal(), "<PMMLModel modelType=\"NonParametricTests\"/>", ""), false, "no model"},
        {Replaced(Minimal(), " modelType=\"NonParametricTests\"", ""), false, "no model type"},
        {Replaced(Minimal(), "=\"NonParametricTests\"", "=\"nonparametrictests\""), false, "case counts"},
        {Replaced(Minimal(), "<Counts/>", ""), false, "no counts"},
        {Replaced(Minimal(), "<DescriptiveModel>", "<DescriptiveModel><DescriptiveSummary/></DescriptiveModel><DescriptiveModel>"),
            true, "the path is found where an earlier branch leads nowhere"},
        {Replaced(Minimal(), "<NonParametricTests/>", ""), false, "no tests"},
        {Replaced(Minimal(), "<FieldInfos/>", ""), false, "no field information"},
        {Replaced(Minimal(), "<FieldInfos/>", "<FieldInfos/><Unknown><Attribute/></Unknown>"), true, "what is not named is ignored"},
        {WithTest(Algorithm("ORuns", "retain")), true, "a test without tables"},
        {WithTest(Element("Algorithm")), true, "a test without a name"},
    }, [](const std::string& document) {
        const Reading reading(document);
        EXPECT_THAT(reading.fReports, IsEmpty());
        return reading.fRead;
    });
    // clang-format on
}

TEST(Read, GivesTheSameResultTheSecondTimeAndAddsNothing)
{
    const std::string document = WithTest(Algorithm("ORuns", "retain"));
    Stats stats;
    NOPRParseOutXML reader(nullptr, &stats, &document);
    EXPECT_TRUE(reader.Read());
    EXPECT_TRUE(reader.Read());
    EXPECT_EQ(stats.GetTests().size(), 1U);
}

TEST(ReadCounts, TakesWhatIsThereAndLeavesTheRestAtZero)
{
    const Reading reading(DocumentBuilder()
                              .SetCounts("totalFreq", "11")
                              .SetCounts("totalCount", "12")
                              .SetCounts("droppedCount", "-3")
                              .SetCounts("badWeightCount", "4")
                              .SetCounts("droppedFreq", "many")
                              .Text());
    EXPECT_EQ(reading.fStats.GetTotalFreq(), 11);
    EXPECT_EQ(reading.fStats.GetTotalCount(), 12);
    EXPECT_EQ(reading.fStats.GetDroppedCount(), -3);
    EXPECT_EQ(reading.fStats.GetBadWeightCount(), 4);
    EXPECT_EQ(reading.fStats.GetDroppedFreq(), 0) << "a text that is no number counts as not there";
}

TEST(ReadTests, TakesTheLevelsOfTheAnalysis)
{
    const Reading reading(DocumentBuilder()
                              .SetTests("number", "7")
                              .SetTests("sigLevel", "0.05")
                              .SetTests("confidenceLevel", "0.95")
                              .SetTests("missingTreatment", "listwise")
                              .Text());
    EXPECT_EQ(reading.fStats.GetTestCount(), 7) << "taken as it is, not compared with the tests";
    EXPECT_EQ(reading.fStats.GetSigLevel(), 0.05);
    EXPECT_EQ(reading.fStats.GetConfidenceLevel(), 0.95);
    EXPECT_TRUE(reading.fStats.GetListwise());

    const Reading bare(DocumentBuilder().SetTests("missingTreatment", "Listwise").Text());
    EXPECT_TRUE(IsMissing(bare.fStats.GetSigLevel())) << "missing, not 0";
    EXPECT_TRUE(IsMissing(bare.fStats.GetConfidenceLevel()));
    EXPECT_FALSE(bare.fStats.GetListwise()) << "case counts";
}

TEST(ReadTests, KeepsTestsInDocumentOrderByTheListOfTheirKind)
{
    const Reading reading(
        DocumentBuilder()
            .AddTest(Algorithm("IMedian", "reject"))
            .AddTest(Algorithm("RHodgesLehmannEstimatePairs", ""))
            .AddTest(Algorithm("OKolmogorovSmirnovNormal", "retain",
                               {StructuredTable("Condition", {Element("Attribute")})}))
            .AddTest(Algorithm("OChiSquare", "retain "))
            .Text());
    ASSERT_TRUE(reading.fRead) << "a kind without a record is passed over whole";
    ASSERT_EQ(reading.fStats.GetTests().size(), 2U);
    ASSERT_EQ(reading.fStats.GetIntervalTests().size(), 1U);
    const Stats::BaseHypothesisTest* median = reading.fStats.GetTest(0);
    EXPECT_EQ(median->fTestKind, kind::kMedian);
    EXPECT_EQ(median->fSampleKind, sample::kIndependent);
    EXPECT_EQ(median->fDecision, decision::kReject);
    EXPECT_EQ(reading.fStats.GetTest(1)->fDecision, 0) << "a trailing blank makes another word";
    EXPECT_EQ(reading.fStats.GetIntervalTest(0)->fTestKind, kind::kHodgesLehmannPairs);
}

}  // namespace
