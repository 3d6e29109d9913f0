#include "OutputTest.h"

#include <algorithm>

#include "output/ConditionKeys.h"

namespace {

constexpr double kFirst = 0;
constexpr double kSecond = 1;

class NullHypothesis : public OutputTest {
protected:
    /// What the cell of a test with this condition was made from.
    std::string Cell(TestKind testKind, const std::string& key, const Parameters& parameters,
                     const std::vector<std::string>& texts = {})
    {
        return CellOf(Add(testKind, key, parameters), texts);
    }

    std::string CellOf(Test& test, const std::vector<std::string>& texts = {})
    {
        test.fValsNotInCategories = texts;
        OutputRecorder recorder(fSource.get());
        NOPROutput output(&recorder.Procedure(), &recorder.Procedure(), fSource.get(), &fStats);
        {
            BpPivotTable table =
                recorder.Procedure().PivotTable(BpString("T", false), BpString("T", false), false);
            BpDimension dimension = table.Dimension(BpString("D", false), Sort::AsCreated);
            output.NullHypothesisCell(dimension.Category(BpString("C", false)), test);
        }
        return recorder.Table("T").Cell({"C"});
    }
};

/// How the places of a key read, written down apart from the table of keys.
struct KeyRow {
    TestKind kind;
    const char* key;
    const char* parts;
};

// Parameter 0 is weight (field 0), 1 is 1, 2 is 2 and so on, so that as field 1 is feed, as value
// index 1 is 20 and 2 is 30.
constexpr char kField[] = "<weight>";
constexpr char kTwoFields[] = "<weight>; <feed>";
constexpr char kFieldList[] = "[<weight>]";
constexpr char kCutPoint[] = "<weight>; <weight>=1";

constexpr KeyRow kKeys[] = {
    {1, "DefaultEqualProbabilities_O_ChiSquare_1", kField},
    {1, "UserSpecifiesProbabilities_O_ChiSquare_1", kField},
    {2, "ACutPointIsSpecified_O_Binomial_4",
     "<weight>; <weight>=1; 2:Significance; 3:Significance"},
    {2, "ABinaryTestVariableIsSpecified_O_Binomial_5",
     "<weight>; <weight>=20; <weight>=30; 3:Significance; 4:Significance"},
    {2, "CategoryListsAreSpecified_O_Binomial_5",
     "<weight>; [<weight>=20]; [<weight>=30]; 3:Significance; 4:Significance"},
    {3, "ABinaryTestVariableIsSpecified_O_Runs_3", "<weight>; <weight>=20; <weight>=30"},
    {3, "CategoryListsAreSpecified_O_Runs_3", "<weight>; [<weight>=20]; [<weight>=30]"},
    {3, "ACutPointIsSpecified_O_Runs_2", kCutPoint},
    {4, "O_WilcoxonSignedRanks_2", kCutPoint},
    {5, "ACutPointIsSpecified_O_Binomial_2", "<weight>; 1:Significance"},
    {5, "ABinaryTestVariableIsSpecified_O_Binomial_2", "<weight>; <weight>=20"},
    {5, "CategoryListsAreSpecified_O_Binomial_2", "<weight>; [<weight>=20]"},
    {6, "UniformDistribution_O_KolmogorovSmirnov_3", "<weight>; <weight>=1; <weight>=2"},
    {6, "NormalDistribution_O_KolmogorovSmirnov_3", "<weight>; <weight>=1; 2:StdDev"},
    {6, "PoissonDistribution_O_KolmogorovSmirnov_2", kCutPoint},
    {6, "ExponentialDistribution_O_KolmogorovSmirnov_2", kCutPoint},
    {11, "R_Sign_2", kTwoFields},
    {12, "R_WilcoxonSignedRanks_2", kTwoFields},
    {13, "DefaultAllDistinctValuesUsed_R_CochransQ_1", kFieldList},
    {13, "CategoryListsAreSpecified_R_CochransQ_1", kFieldList},
    {14, "CategoryListsAreSpecified_R_McNemar_2", kTwoFields},
    {14, "AllDistinctValuesUsed_R_McNemar_2", kTwoFields},
    {15, "R_FriedmansTwoWayByRanks_1", kFieldList},
    {16, "R_KendallsCoefficient_1", kFieldList},
    {17, "AllDistinctValuesUsed_R_MarginalHomogeneity_2", kTwoFields},
    {18, "R_HodgesLehman_2", kTwoFields},
    {19, "AllDistinctValuesUsed_I_HodgesLehman_2", kTwoFields},
    {19, "CategoryListsAreSpecified_I_HodgesLehman_2", kTwoFields},
    {20, "DefaultAllDistinctValuesUsed_I_Moses_2", kTwoFields},
    {20, "CategoryListsAreSpecified_I_Moses_2", kTwoFields},
    {21, "DefaultAllDistinctValuesUsed_I_MannWhitneyU_2", kTwoFields},
    {21, "CategoryListsAreSpecified_I_MannWhitneyU_2", kTwoFields},
    {22, "DefaultAllDistinctValuesUsed_I_WaldWolfowitzRuns_2", kTwoFields},
    {22, "CategoryListsAreSpecified_I_WaldWolfowitzRuns_2", kTwoFields},
    {23, "DefaultAllDistinctValuesUsed_I_KolmogorovSmirnov_2", kTwoFields},
    {23, "CategoryListsAreSpecified_I_KolmogorovSmirnov_2", kTwoFields},
    {24, "DefaultAllDistinctValuesUsed_I_KruskalWallis_2", kTwoFields},
    {24, "CategoryListsAreSpecified_I_KruskalWallis_2", kTwoFields},
    {25, "DefaultAllDistinctValuesUsed_I_JonckheereTerpstra_2", kTwoFields},
    {25, "CategoryListsAreSpecified_I_JonckheereTerpstra_2", kTwoFields},
    {26, "DefaultAllDistinctValuesUsed_I_Median_2", kTwoFields},
    {26, "CategoryListsAreSpecified_I_Median_2", kTwoFields},
};

TEST_F(NullHypothesis, FillsThePlacesOfEachKey)
{
    EXPECT_EQ(ConditionKeys().size(), std::size(kKeys));
    for (const KeyRow& row : kKeys) {
        SCOPED_TRACE(row.key);
        const std::string key = row.key;
        Parameters parameters;
        for (int p = 0; p < key.back() - '0'; ++p)
            parameters.push_back({static_cast<double>(p)});
        EXPECT_EQ(Cell(row.kind, key, parameters), "@" + key + "(" + row.parts + ")");
    }
}

TEST_F(NullHypothesis, KnowsAKeyOnlyUnderItsOwnKind)
{
    for (const ConditionKey& row : ConditionKeys()) {
        for (const auto& test : TestKinds()) {
            const bool known = FindConditionKey(test.fKind, row.fKey) != nullptr;
            EXPECT_EQ(known, test.fKind == row.fKind) << test.fKind << " " << row.fKey;
        }
    }
}

TEST_F(NullHypothesis, NamesAnUnknownKey)
{
    struct Row {
        TestKind kind;
        const char* key;
        const char* why;
    };
    for (const Row& row :
         {Row{2, "ACutPointIsSpecified_O_Binomial_2", "a key of kind 5"},
          Row{2, "ACutPointIsSpecified_O_Binomial_3", "another number of places"},
          Row{2, "acutpointisspecified_O_Binomial_4", "case counts"}, Row{2, "", "no key"},
          Row{11, "R_Sign_2 ", "a blank makes another key"}}) {
        SCOPED_TRACE(row.why);
        EXPECT_EQ(Cell(row.kind, row.key, {}),
                  "'Unknown Condition Key: " + std::string(row.key) + "'");
    }
}

TEST_F(NullHypothesis, BreaksOnAnotherNumberOfParameters)
{
    for (const ConditionKey& row : ConditionKeys()) {
        SCOPED_TRACE(row.fKey);
        const std::string expected =
            "data.fParameters.size() == " + std::string(1, row.fKey.back());
        Parameters one(row.Places().size() + 1, {kWeight});
        EXPECT_EQ(BrokenBy([&] { Cell(row.fKind, std::string(row.fKey), one); }), expected);
        EXPECT_EQ(BrokenBy([&] { Cell(row.fKind, std::string(row.fKey), {}); }), expected);
    }
}

TEST_F(NullHypothesis, ShowsListsOfFields)
{
    struct Row {
        TestKind kind;
        const char* key;
        Parameters parameters;
        const char* parts;
        const char* why;
    };
    const char* cochran = "CategoryListsAreSpecified_R_CochransQ_1";
    const char* sign = "R_Sign_2";
    for (const Row& row :
         {Row{13, cochran, {{kWeight, kFeed, kDay}}, "[<weight>, <feed>, <day>]", "in order"},
          Row{13, cochran, {{}}, "[' ']", "an empty list is a blank"},
          Row{13,
              cochran,
              {{kFeed, kGone, kDay}},
              "[<feed>, 'Unknown Variable']",
              "a field without a variable ends the list"},
          Row{11, sign, {{kNoField}, {kFeed}}, "'Unknown Variable'; <feed>", "no such field"},
          Row{11, sign, {{-1}, {kFeed}}, "'Unknown Variable'; <feed>", "a negative index"},
          Row{11,
              sign,
              {{1e300}, {-1e300}},
              "'Unknown Variable'; 'Unknown Variable'",
              "indices beyond integers"},
          Row{11,
              sign,
              {{}, {1.9}},
              "' '; <feed>",
              "an empty parameter keeps its place; indices are cut"}}) {
        SCOPED_TRACE(row.why);
        EXPECT_EQ(Cell(row.kind, row.key, row.parameters),
                  "@" + std::string(row.key) + "(" + row.parts + ")");
    }
}

TEST_F(NullHypothesis, ShowsValuesOfTheField)
{
    struct Row {
        Parameters parameters;
        std::vector<std::string> texts;
        const char* parts;
        const char* why;
    };
    const Parameters::value_type missing = {MissingValue};
    for (const Row& row :
         {Row{{{kFeed}, {0, 2}, {kSecond}, {0.4}, {}},
              {},
              "<feed>; [<feed>=1, <feed>=3]; [<feed>=2]; 0.4:Significance; ' '",
              "in order"},
          Row{{{kWeight}, missing, {}, {1}, {1}},
              {},
              "<weight>; [<weight>=missing]; [' ']; 1:Significance; 1:Significance",
              "the missing value of a numeric field, and an empty list"},
          Row{{{kCity}, missing, {kFirst}, {1}, {1}},
              {},
              "<city>; [<city>=' ']; [<city>='Rome    ']; 1:Significance; 1:Significance",
              "the blank value of a string field"},
          Row{{{kFeed}, {7, 0, -1, 8, 1}, {9}, {1}, {1}},
              {"x", "y"},
              "<feed>; ['x', <feed>=1, 'y', 'Unknown Variable']; ['x']; 1:Significance; "
              "1:Significance",
              "texts in turn, from the first in each place; without one the list stops"},
          Row{{{kGone}, {0}, {0}, {1}, {1}},
              {"x"},
              "'Unknown Variable'; ['Unknown Variable']; ['Unknown Variable']; 1:Significance; "
              "1:Significance",
              "a field without a variable"},
          Row{{{kNoField}, {0}, {}, {1}, {1}},
              {},
              "'Unknown Variable'; ['Unknown Variable']; ['Unknown Variable']; 1:Significance; "
              "1:Significance",
              "no such field"},
          Row{{{kFeed, kFeed}, {0}, {0}, {1}, {1}},
              {},
              "<feed><feed>; 'Incorrect Parameter Index'; 'Incorrect Parameter Index'; "
              "1:Significance; 1:Significance",
              "two fields are none, and there is no list then"},
          Row{{{-1}, {0}, {0}, {1}, {1}},
              {},
              "'Unknown Variable'; 'Incorrect Parameter Index'; 'Incorrect Parameter Index'; "
              "1:Significance; 1:Significance",
              "a negative field"},
          Row{{{}, {0}, {0}, {1}, {1}},
              {},
              "' '; 'Incorrect Parameter Index'; 'Incorrect Parameter Index'; 1:Significance; "
              "1:Significance",
              "no field"}}) {
        SCOPED_TRACE(row.why);
        std::string parts = row.parts;
        const auto twoFields = parts.find("><");
        if (twoFields != std::string::npos) parts.replace(twoFields, 2, ">; <");
        EXPECT_EQ(Cell(2, "CategoryListsAreSpecified_O_Binomial_5", row.parameters, row.texts),
                  "@CategoryListsAreSpecified_O_Binomial_5(" + parts + ")");
    }
}

TEST_F(NullHypothesis, TakesNoTextsForPlainIndices)
{
    EXPECT_EQ(Cell(3, "CategoryListsAreSpecified_O_Runs_3", {{kFeed}, {0, 7}, {1}}, {"x"}),
              "@CategoryListsAreSpecified_O_Runs_3(<feed>; [<feed>=1, 'Unknown Variable']; "
              "[<feed>=2])");
}

TEST_F(NullHypothesis, ShowsNumbersInTheFormatOfTheTestField)
{
    struct Row {
        int field;
        const char* parts;
        const char* why;
    };
    for (const Row& row :
         {Row{kWeight, "<weight>; <weight>=1; 2:StdDev", "a number"},
          Row{kDay, "<day>; <day>=12219465600; 172800:StdDev", "days become the host's seconds"},
          Row{kCity, "<city>; 1:Significance; 2:StdDev", "a string field has no number format"},
          Row{kGone, "'Unknown Variable'; 1:Significance; 2:Significance", "no variable"}}) {
        SCOPED_TRACE(row.why);
        EXPECT_EQ(Cell(6, "NormalDistribution_O_KolmogorovSmirnov_3",
                       {{static_cast<double>(row.field)}, {1}, {2}}),
                  "@NormalDistribution_O_KolmogorovSmirnov_3(" + std::string(row.parts) + ")");
    }
    EXPECT_EQ(Cell(6, "NormalDistribution_O_KolmogorovSmirnov_3", {{kWeight}, {1}, {}}),
              "@NormalDistribution_O_KolmogorovSmirnov_3(<weight>; <weight>=1; ' ')")
        << "without a value the place is a blank";
}

TEST_F(NullHypothesis, ScalesTheStandardDeviationOfDays)
{
    for (int type = 0; type < 256; ++type) {
        std::vector<refhost::VariableData> variables(1);
        variables[0].fName = "field";
        variables[0].fFormat = {12, static_cast<std::uint8_t>(type), 0};
        const auto source = refhost::MakeDataSource(std::move(variables));
        NOPROutputStats stats;
        FieldInfoData* field = stats.AddFieldInfo();
        field->fFieldIndex = 0;
        field->fVariable = source->GetVariable(0);
        Test* test = stats.CreateTest(sample::kOne, 6, 0);
        test->fCondition.fConditionKey = "NormalDistribution_O_KolmogorovSmirnov_3";
        test->fCondition.fParameters = {{0, {0}}, {1, {1}}, {2, {2}}};
        OutputRecorder recorder(source.get());
        NOPROutput(&recorder.Procedure(), &recorder.Procedure(), source.get(), &stats)
            .HypothesisTestSummary();
        const std::string cell =
            recorder.Table("Hypothesis Test Summary").Cell({"1", "Null Hypothesis"});
        const std::vector<int> days = {20, 23, 24, 28, 29, 30, 38, 39};
        const bool scaled = std::ranges::count(days, type) > 0;
        EXPECT_TRUE(cell.ends_with(scaled ? "; 172800:StdDev)" : "; 2:StdDev)"))
            << type << " " << cell;
    }
}

TEST_F(NullHypothesis, BreaksOnAFieldAtAnotherPosition)
{
    fStats.GetFieldInfo(kFeed)->fFieldIndex = 7;
    EXPECT_EQ(BrokenBy([&] {
                  Cell(11, "R_Sign_2", {{kWeight}, {kFeed}});
              }),
              "curIndex == data->fFieldIndex");
    EXPECT_EQ(BrokenBy([&] {
                  BpComposite sentence("s", false);
                  Stats::ConditionData condition;
                  condition.fParameters = {{0, {kFeed}}, {1, {0}}};
                  Output().AddValueIndices(sentence, condition, 0, 1, false);
              }),
              "fIndex == data->fFieldIndex");
}

TEST_F(NullHypothesis, TellsOfAParameterThatIsNotThere)
{
    Stats::ConditionData condition;
    condition.fParameters = {{0, {kFeed}}};
    const NOPROutput output = Output();
    BpComposite sentence("s", false);
    output.AddFieldList(sentence, condition, 1, true);
    output.AddValues(sentence, condition, 1, nullptr, true);
    output.AddValueIndices(sentence, condition, 0, 1, true);
    output.AddValueIndices(sentence, condition, 1, 0, true);
    sentence.Finish();
    {
        fRecorder.Procedure().Heading(sentence);
    }
    EXPECT_EQ(fRecorder.Outline(),
              "heading 's'('Incorrect Parameter Index'; 'Incorrect Parameter Index'; 'Incorrect "
              "Parameter Index'; 'Incorrect Parameter Index')\n");
}

}  // namespace
