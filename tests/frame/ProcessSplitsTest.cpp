#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "frame/NOPRProcCustom.h"

#include "host/data/OBS.h"
#include "host/framework/SplitResult.h"
#include "host/pivot/BpProcedure.h"

#include "refhost/data/VariableData.h"
#include "refhost/framework/InvariantBroken.h"

#include "support/DocumentBuilder.h"
#include "support/OutputRecorder.h"

namespace {

using testing::ElementsAre;

SplitResult Split(const std::string& document)
{
    SplitResult split;
    split.fDocument = document;
    return split;
}

/// A document with one chi-square test of its one field.
std::string ReadableDocument()
{
    return DocumentBuilder()
        .AddField({.name = "weight"})
        .AddTest(Algorithm("OChiSquare", "reject",
                           {Condition("DefaultEqualProbabilities_O_ChiSquare_1", {{0}}),
                            Statistics({{"TotalN", 71}, {"AsymptoticSig", 0.003}})}))
        .Text();
}

constexpr char kChiSquareHeading[] =
    "heading @One-Sample Chi-Square Test\n"
    "  heading <weight>\n"
    "    table @One-Sample Chi-Square Test Summary\n";

class Procedure : public testing::Test {
protected:
    static std::unique_ptr<ProcedureDataSource> MakeSource()
    {
        std::vector<refhost::VariableData> variables(2);
        variables[0].fName = "weight";
        variables[1].fName = "feed";
        return refhost::MakeDataSource(std::move(variables));
    }

    std::unique_ptr<CFProcCustom> Attached()
    {
        std::unique_ptr<CFProcCustom> procedure(GetCFProcCustom());
        procedure->Attach(&fRecorder.Procedure(), fSource.get());
        return procedure;
    }

    bool Process(const std::vector<SplitResult>& splits)
    {
        std::vector<std::string> none;
        return Attached()->ProcessSplits(none, splits);
    }

    std::unique_ptr<ProcedureDataSource> fSource = MakeSource();
    OutputRecorder fRecorder{fSource.get()};
};

TEST_F(Procedure, WritesEachSplit)
{
    EXPECT_TRUE(Process({Split(ReadableDocument()), Split(ReadableDocument())}));
    const std::string once = std::string("table @Hypothesis Test Summary\n") + kChiSquareHeading;
    EXPECT_EQ(fRecorder.Outline(), once + once);
}

TEST_F(Procedure, StopsAtADocumentThatCannotBeRead)
{
    const std::string once = std::string("table @Hypothesis Test Summary\n") + kChiSquareHeading;
    for (const std::string& unreadable :
         {std::string(), std::string("no document"),
          ReadableDocument().substr(0, ReadableDocument().size() / 2)}) {
        OutputRecorder recorder(fSource.get());
        std::unique_ptr<CFProcCustom> procedure(GetCFProcCustom());
        procedure->Attach(&recorder.Procedure(), fSource.get());
        std::vector<std::string> none;
        EXPECT_FALSE(procedure->ProcessSplits(
            none, {Split(ReadableDocument()), Split(unreadable), Split(ReadableDocument())}));
        EXPECT_EQ(recorder.Outline(), once) << "the first alone";
    }
}

TEST_F(Procedure, TellsASplitByAHeadingOrByDimensions)
{
    struct Row {
        bool asHeading;
        const char* before;
        std::size_t dimensions;
    };
    const OBS one(1);
    for (const Row& row : {Row{true, "heading '[%1 = %2:, ^1 = ^2:]1'([<feed>, <feed>=1])\n", 2},
                           Row{false, "", 3}}) {
        OutputRecorder recorder(fSource.get());
        std::unique_ptr<CFProcCustom> procedure(GetCFProcCustom());
        procedure->Attach(&recorder.Procedure(), fSource.get());
        SplitResult split = Split(ReadableDocument());
        split.fSplitVariables = {1};
        split.fSplitValues = {&one};
        split.fSplitAsHeading = row.asHeading;
        std::string scratch;
        EXPECT_TRUE(procedure->ProcessSplit(scratch, split));
        EXPECT_THAT(recorder.Outline(), testing::StartsWith(row.before));
        EXPECT_EQ(recorder.Table("Hypothesis Test Summary").Dimensions().size(), row.dimensions);
    }
}

TEST_F(Procedure, BreaksOnAFilledListAndOnNoSplit)
{
    const auto procedure = Attached();
    const auto broken = [&](std::vector<std::string> documents,
                            const std::vector<SplitResult>& splits) {
        try {
            procedure->ProcessSplits(documents, splits);
        } catch (const refhost::InvariantBroken& invariant) {
            return std::string(invariant.what());
        }
        return std::string();
    };
    EXPECT_EQ(broken({""}, {Split(ReadableDocument())}), "vPMMLStr.size() == 0");
    EXPECT_EQ(broken({""}, {}), "vPMMLStr.size() == 0");
    EXPECT_EQ(broken({}, {}), "nSplits > 0");
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

TEST_F(Procedure, CopiesLikeItsBase)
{
    NOPRProcCustom first(&fRecorder.Procedure(), fSource.get());
    first.SetExtraVariables(0, {});
    std::string scratch;
    NOPRProcCustom second(first);
    EXPECT_TRUE(second.ProcessSplit(scratch, Split(ReadableDocument())));
    NOPRProcCustom third;
    third = second;
    EXPECT_TRUE(third.ProcessSplit(scratch, Split(ReadableDocument())));
}

}  // namespace
