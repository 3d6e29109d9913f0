#include "OutputTest.h"

#include <algorithm>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr char kNormal[] = "NormalDistribution_O_KolmogorovSmirnov_3";
constexpr char kUniform[] = "UniformDistribution_O_KolmogorovSmirnov_3";
constexpr char kRunsNote[] = "@The test statistic is the number of runs.";
constexpr char kSpanNote[] = "@The test statistic is the span.";

class TestDetail : public OutputTest {
protected:
    RecordedTable Write(const Test& test)
    {
        {
            BpHeading heading = fRecorder.Procedure().Heading(BpString("H", false));
            Output().TestDetailTable(heading, test);
        }
        const std::string title = fRecorder.Outline().substr(sizeof("heading 'H'\n  table @") - 1);
        return fRecorder.Table(title.substr(0, title.find('\n')));
    }
};

TEST_F(TestDetail, ListsTheNumbersWithTheirFormats)
{
    Test& test = Add(6, kUniform, {{kWeight}, {0}, {1}});
    AddBlock(test, "", {{"TotalN", 71}, {"TestStatistic", 1.5}});
    AddBlock(test, "Block", {{"DegreeOfFreedom", 3}, {"Sig", MissingValue}});
    const RecordedTable table = Write(test);
    EXPECT_EQ(table.Title(), "@One-Sample Kolmogorov-Smirnov Uniform Test Summary");
    EXPECT_EQ(table.Subtype(), "'One-Sample Kolmogorov-Smirnov Uniform Test Summary'");
    EXPECT_EQ(table.Widths(), "150..");
    EXPECT_EQ(table.Caption(), "none");
    EXPECT_THAT(table.Dimensions(), ElementsAre("@Statistics sort 2 rows true false"));
    EXPECT_THAT(table.PassedLabels(0),
                ElementsAre("@TotalN", "@TestStatistic", "@Block", "@DegreeOfFreedom", "@Sig"));
    EXPECT_EQ(table.Cell({"TotalN"}), "71:Count");
    EXPECT_EQ(table.Cell({"TestStatistic"}), "1.5:Significance");
    EXPECT_EQ(table.Cell({"Block/DegreeOfFreedom"}), "3:Count");
    EXPECT_EQ(table.Cell({"Block/Sig"}), "missing:Significance");
}

TEST_F(TestDetail, AsksForTheTestStatisticAlways)
{
    const RecordedTable table = Write(Add(1));
    EXPECT_THAT(table.LabelsOf(0), ElementsAre("TestStatistic"));
    EXPECT_EQ(table.CellCount(), 0U);
}

TEST_F(TestDetail, NotesTheMessagesOfTheWholeTest)
{
    Test& test = Add(1);
    AddBlock(test, "", {{"TestStatistic", 2}});
    AddMessage(test, 111, message::kHelp);
    AddMessage(test, 222328, message::kError, {}, "0;1");
    AddMessage(test, 112, message::kWarning, {{}, {3.5, 9}, {4}});
    AddMessage(test, 113, message::kWarning, {{}});
    EXPECT_THAT(Write(test).CellNotes({"TestStatistic"}),
                ElementsAre("@111", "@112(3.5:CountOrCoefficient; 4:CountOrCoefficient)", "@113()"))
        << "pair messages stand elsewhere, and empty parameters take no place";
}

struct RunsCase {
    std::vector<std::pair<const char*, double>> blocks;
    std::vector<std::string> labels;
    std::vector<std::string> noted;
    const char* why;
};

TEST_F(TestDetail, ShowsRunsOnceWhereTiesLeaveOneNumber)
{
    const RunsCase cases[] = {{{{"MinimumPossible", 5}, {"MaximumPossible", 5}, {"Behind", 1}},
                               {"TotalN", "TestStatistic", "Sig"},
                               {"TestStatistic"},
                               "one flat list, and nothing of what stands behind"},
                              {{{"MinimumPossible", 5}, {"MaximumPossible", 6}, {"Behind", 1}},
                               {"TotalN", "MinimumPossible/TestStatistic", "MinimumPossible/Sig",
                                "MaximumPossible/TestStatistic", "MaximumPossible/Sig",
                                "Behind/TestStatistic", "Behind/Sig"},
                               {"MinimumPossible/TestStatistic", "MaximumPossible/TestStatistic"},
                               "a group for each"},
                              {{{"MinimumPossible", 5}},
                               {"TotalN", "MinimumPossible/TestStatistic", "MinimumPossible/Sig",
                                "MaximumPossible/TestStatistic"},
                               {"MinimumPossible/TestStatistic", "MaximumPossible/TestStatistic"},
                               "one block alone: the other group holds the note only"}};
    for (const RunsCase& row : cases) {
        SCOPED_TRACE(row.why);
        OutputRecorder recorder(fSource.get());
        Test& test = Add(22);
        AddBlock(test, "", {{"TotalN", 9}});
        for (const auto& [name, statistic] : row.blocks)
            AddBlock(test, name, {{"TestStatistic", statistic}, {"Sig", 0.5}});
        AddMessage(test, 111);
        NOPROutput(&recorder.Procedure(), &recorder.Procedure(), fSource.get(), &fStats)
            .TestDetailTable(recorder.Procedure(), test);
        const RecordedTable table =
            recorder.Table("Independent-Samples Wald-Wolfowitz Runs Test Summary");
        EXPECT_EQ(table.LabelsOf(0), row.labels);
        for (const std::string& label : row.labels) {
            const bool noted = std::ranges::count(row.noted, label) > 0;
            const std::vector<std::string> none;
            EXPECT_EQ(table.LabelNotes(0, label),
                      noted ? std::vector<std::string>{kRunsNote} : none)
                << label;
            EXPECT_EQ(table.CellNotes({label}), noted ? std::vector<std::string>{"@111"} : none)
                << label;
        }
    }
}

TEST_F(TestDetail, NotesTheSpansOfBlocksThatHaveOne)
{
    Test& test = Add(20);
    AddBlock(test, "ObservedControlGroup", {{"TestStatistic", 5}});
    AddBlock(test, "TrimmedControlGroup", {{"Sig", 0.5}});
    AddMessage(test, 111);
    const RecordedTable table = Write(test);
    EXPECT_THAT(table.LabelNotes(0, "ObservedControlGroup/TestStatistic"), ElementsAre(kSpanNote));
    EXPECT_THAT(table.LabelsOf(0), ElementsAre("ObservedControlGroup/TestStatistic",
                                               "TrimmedControlGroup/Sig", "TestStatistic"));
    EXPECT_THAT(table.CellNotes({"TestStatistic"}), ElementsAre("@111"));
    EXPECT_THAT(table.CellNotes({"ObservedControlGroup/TestStatistic"}), IsEmpty());
}

class SignificanceCell : public OutputTest {
protected:
    RecordedTable Write()
    {
        Output().HypothesisTestSummary();
        return fRecorder.Table("Hypothesis Test Summary");
    }
};

TEST_F(SignificanceCell, TakesTheLastNameWithSigInIt)
{
    struct Row {
        std::vector<Stats::StatisticResult> blocks;
        const char* content;
        const char* why;
    };
    const std::vector<Row> rows = {
        {{{"", {{"AsymptoticSig", 0.1}, {"TotalN", 3}}}}, "0.1:Significance", "one"},
        {{{"", {{"Sig", 0.1}, {"mySigma", 0.2}, {"sig", 0.3}}}},
         "0.2:Significance",
         "anywhere in the name, case counts"},
        {{{"", {{"Sig", 0.1}}}, {"B", {{"Sig", 0.2}}}, {"C", {{"TotalN", 1}}}},
         "0.2:Significance",
         "the later block"},
        {{{"", {{"TotalN", 1}}}}, "missing:Significance", "none"},
        {{}, "missing:Significance", "no numbers at all"}};
    for (const Row& row : rows)
        Add(1).fStatistics = row.blocks;
    const RecordedTable table = Write();
    for (std::size_t row = 0; row < rows.size(); ++row) {
        SCOPED_TRACE(rows[row].why);
        EXPECT_EQ(table.Cell({std::to_string(row + 1), "Sig."}), rows[row].content);
    }
}

TEST_F(SignificanceCell, ShowsABlockingMessageAlone)
{
    Test& blocked = Add(26);
    AddBlock(blocked, "", {{"FisherExactSig", 0.1}});
    AddMessage(blocked, 111, message::kWarning);
    AddMessage(blocked, 222331, message::kError, {}, "0;1");
    AddMessage(blocked, 112, message::kError, {{7}});
    AddMessage(blocked, 113, message::kError);
    Test& pairOnly = Add(26);
    AddBlock(pairOnly, "", {{"FisherExactSig", 0.1}});
    AddMessage(pairOnly, 220013, message::kError, {}, "0;1");
    const RecordedTable table = Write();
    EXPECT_THAT(table.CellNotes({"1", "Sig."}), ElementsAre("@112(7:CountOrCoefficient)"));
    EXPECT_EQ(table.Cell({"1", "Sig."}), "0.1:Significance");
    EXPECT_THAT(table.CellNotes({"2", "Sig."}), ElementsAre("@HTSFootNoteFootNoteFisherExactSig"));
}

TEST_F(SignificanceCell, TakesTheFirstFootnoteThatApplies)
{
    struct Row {
        TestKind kind;
        std::vector<Stats::StatisticResult> blocks;
        const char* note;
        const char* why;
    };
    const auto runs = [](double least, double greatest, const char* name) {
        return std::vector<Stats::StatisticResult>{
            {"MinimumPossible", {{"TestStatistic", least}, {name, 0.1}}},
            {"MaximumPossible", {{"TestStatistic", greatest}, {name, 0.2}}}};
    };
    const std::vector<Row> rows = {
        {26,
         {{"", {{"FisherExactSig", 0.1}}}},
         "@HTSFootNoteFootNoteFisherExactSig",
         "Fisher's, before the exact one"},
        {24, {{"", {{"FisherExactSig", 0.1}}}}, "@HTSFootNoteShowExact", "of another kind"},
        {2, {{"", {{"ExactSig1Tailed", 0.1}}}}, "@HTSFootNoteShowExact", "an exact one"},
        {2, {{"", {{"AsymptoticSig", 0.1}}}}, "", "an asymptotic one"},
        {22, runs(3, 4, "AsymptoticSig"), "@HTSFootNoteUsingMaxWhenTies", "ties leave it open"},
        {22, runs(4, 4, "AsymptoticSig"), "", "ties make no difference"},
        {22, runs(3, 4, "ExactSig"), "@HTSFootNoteShowExact", "exact goes before ties"},
        {21, runs(3, 4, "AsymptoticSig"), "", "no runs test"},
        {22, {{"MinimumPossible", {{"TestStatistic", 3}}}}, "", "one number alone"},
        {26,
         {{"YatesContinuityCorrection", {{"AsymptoticSig2Tailed", 0.1}}}},
         "@HTSFootNoteYateAsymSig",
         "Yates"},
        {26, {{"YatesContinuityCorrection", {{"Sig", 0.1}}}}, "", "not asymptotic"},
        {26, {{"Other", {{"AsymptoticSig", 0.1}}}}, "", "another block"},
        {25, {{"YatesContinuityCorrection", {{"AsymptoticSig", 0.1}}}}, "", "another kind"}};
    for (const Row& row : rows)
        Add(row.kind).fStatistics = row.blocks;
    const RecordedTable table = Write();
    for (std::size_t row = 0; row < rows.size(); ++row) {
        SCOPED_TRACE(rows[row].why);
        const std::vector<std::string> notes = table.CellNotes({std::to_string(row + 1), "Sig."});
        if (rows[row].note[0] == '\0')
            EXPECT_THAT(notes, IsEmpty());
        else
            EXPECT_THAT(notes, ElementsAre(rows[row].note));
    }
}

class EstimatedNormal : public OutputTest {};

TEST_F(EstimatedNormal, NotesSummaryAndDetailAlike)
{
    struct Row {
        const char* key;
        bool useSample;
        bool lowerBound;
        double totalN;
        const char* content;
        std::vector<std::string> notes;
        const char* why;
    };
    const std::string tooFew = "@HTSFootNoteFisherCantCompute";
    const std::string corrected = "@HTSFootNoteFootNoteFisherLillifors";
    const std::string bound = "@HTSFootNoteFootNoteFisherLowerBound";
    for (const Row& row :
         {Row{kNormal, true, false, 4, "missing", {tooFew}, "too few cases"},
          Row{kNormal, true, true, 4, "missing", {tooFew}, "too few, whatever the bound"},
          Row{kNormal, true, false, 5, "0.3", {corrected}, "five are enough"},
          Row{kNormal, true, true, 5, "0.2", {corrected, bound}, "only a bound is known"},
          Row{kNormal, true, false, -1, "0.3", {corrected}, "no number of cases"},
          Row{kNormal, false, true, 4, "0.3", {}, "given parameters"},
          Row{kUniform, true, true, 4, "0.3", {}, "another distribution"}}) {
        SCOPED_TRACE(row.why);
        NOPROutputStats stats;
        stats.CreateTest(sample::kOne, 6, 0);
        auto* test = dynamic_cast<Stats::HTOKolmogorovSmirnov*>(stats.GetTests()[0].get());
        test->fCondition.fConditionKey = row.key;
        test->fCondition.fParameters = {{0, {0}}, {1, {1}}, {2, {2}}};
        test->fIsUseSample = row.useSample;
        test->fHasLowerBoundSig = row.lowerBound;
        AddBlock(*test, "", {{"AsymptoticSig2Tailed", 0.3}});
        if (row.totalN >= 0) AddBlock(*test, "Not this one", {{"TotalN", 1}});
        if (row.totalN >= 0) test->fStatistics[0].fValues.push_back({"TotalN", row.totalN});

        OutputRecorder recorder(fSource.get());
        BpProcedure& procedure = recorder.Procedure();
        NOPROutput output(&procedure, &procedure, fSource.get(), &stats);
        output.HypothesisTestSummary();
        output.TestDetailTable(procedure, *test);
        const std::string content = std::string(row.content) + ":Significance";
        const RecordedTable summary = recorder.Table("Hypothesis Test Summary");
        EXPECT_EQ(summary.Cell({"1", "Sig."}), content);
        EXPECT_EQ(summary.CellNotes({"1", "Sig."}), row.notes);
        const RecordedTable detail =
            recorder.Table(std::string("One-Sample Kolmogorov-Smirnov ") +
                           (row.key == kNormal ? "Normal" : "Uniform") + " Test Summary");
        EXPECT_EQ(detail.Cell({"AsymptoticSig2Tailed"}), content);
        EXPECT_EQ(detail.CellNotes({"AsymptoticSig2Tailed"}), row.notes);
    }
}

}  // namespace
