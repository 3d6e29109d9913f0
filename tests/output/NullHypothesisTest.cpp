#include "OutputTest.h"

#include <algorithm>
#include <map>

#include "output/ConditionKeys.h"

#include "support/Cases.h"

namespace {

class NullHypothesis : public OutputTest {
protected:
    /// What the cell of a test with this condition was made from.
    std::string Cell(TestKind testKind, const std::string& key, const Parameters& parameters,
                     const std::vector<std::string>& texts = {})
    {
        Test& test = Add(testKind, key, parameters);
        test.fValsNotInCategories = texts;
        CollectedOutput written(fSource.get());
        NOPROutput output(&written.Procedure(), &written.Procedure(), fSource.get(), &fStats);
        {
            BpPivotTable table =
                written.Procedure().PivotTable(BpString("T", false), BpString("T", false), false);
            BpDimension dimension = table.Dimension(BpString("D", false), Sort::AsCreated);
            output.NullHypothesisCell(dimension.Category(BpString("C", false)), test);
        }
        return FirstCell(written);
    }
};

// Parameter 0 is weight (field 0), 1 is 1, 2 is 2 and so on, so that as field 1 is feed, as value
// index 1 is 20 and 2 is 30.
constexpr char kField[] = "<weight>";
constexpr char kTwoFields[] = "<weight>; <feed>";
constexpr char kFieldList[] = "[<weight>]";
constexpr char kCutPoint[] = "<weight>; <weight>=1";

/// How the places of a key of one sample read, written down apart from the table of keys.
// clang-format off
const std::map<std::pair<TestKind, std::string>, std::string> kOneSample = {
    {{1, "DefaultEqualProbabilities_O_ChiSquare_1"}, kField},
    {{1, "UserSpecifiesProbabilities_O_ChiSquare_1"}, kField},
    {{2, "ACutPointIsSpecified_O_Binomial_4"}, "<weight>; <weight>=1; 2:Significance; 3:Significance"},
    {{2, "ABinaryTestVariableIsSpecified_O_Binomial_5"}, "<weight>; <weight>=20; <weight>=30; 3:Significance; 4:Significance"},
    {{2, "CategoryListsAreSpecified_O_Binomial_5"}, "<weight>; [<weight>=20]; [<weight>=30]; 3:Significance; 4:Significance"},
    {{3, "ABinaryTestVariableIsSpecified_O_Runs_3"}, "<weight>; <weight>=20; <weight>=30"},
    {{3, "CategoryListsAreSpecified_O_Runs_3"}, "<weight>; [<weight>=20]; [<weight>=30]"},
    {{3, "ACutPointIsSpecified_O_Runs_2"}, kCutPoint},
    {{4, "O_WilcoxonSignedRanks_2"}, kCutPoint},
    {{5, "ACutPointIsSpecified_O_Binomial_2"}, "<weight>; 1:Significance"},
    {{5, "ABinaryTestVariableIsSpecified_O_Binomial_2"}, "<weight>; <weight>=20"},
    {{5, "CategoryListsAreSpecified_O_Binomial_2"}, "<weight>; [<weight>=20]"},
    {{6, "UniformDistribution_O_KolmogorovSmirnov_3"}, "<weight>; <weight>=1; <weight>=2"},
    {{6, "NormalDistribution_O_KolmogorovSmirnov_3"}, "<weight>; <weight>=1; 2:StdDev"},
    {{6, "PoissonDistribution_O_KolmogorovSmirnov_2"}, kCutPoint},
    {{6, "ExponentialDistribution_O_KolmogorovSmirnov_2"}, kCutPoint},
};
// clang-format on

TEST_F(NullHypothesis, FillsThePlacesOfEachKey)
{
    std::size_t ofOneSample = 0;
    for (const ConditionKey& row : ConditionKeys()) {
        const std::string key(row.fKey);
        SCOPED_TRACE(key);
        Parameters parameters;
        for (int p = 0; p < key.back() - '0'; ++p)
            parameters.push_back({static_cast<double>(p)});
        std::string parts = key.ends_with("_1") ? kFieldList : kTwoFields;
        if (const auto found = kOneSample.find({row.fKind, key}); found != kOneSample.end()) {
            parts = found->second;
            ++ofOneSample;
        }
        EXPECT_EQ(Cell(row.fKind, key, parameters), "@" + key + "(" + parts + ")");
    }
    EXPECT_EQ(ofOneSample, kOneSample.size());
    EXPECT_EQ(ConditionKeys().size(), 42U);
}

TEST_F(NullHypothesis, NamesAnUnknownKey)
{
    const std::string unknown = "'Unknown Condition Key: ";
    // clang-format off
    ExpectEach<std::tuple<TestKind, std::string>, std::string>({
        {{2, "ACutPointIsSpecified_O_Binomial_2"}, unknown + "ACutPointIsSpecified_O_Binomial_2'", "a key of kind 5"},
        {{2, "ACutPointIsSpecified_O_Binomial_3"}, unknown + "ACutPointIsSpecified_O_Binomial_3'", "another number of places"},
        {{2, "acutpointisspecified_O_Binomial_4"}, unknown + "acutpointisspecified_O_Binomial_4'", "case counts"},
        {{2, ""}, unknown + "'", "no key"},
        {{11, "R_Sign_2 "}, unknown + "R_Sign_2 '", "a blank makes another key"},
    }, [&](TestKind kind, const std::string& key) { return Cell(kind, key, {}); });
    // clang-format on
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
    const auto cochran = [&](const std::vector<double>& fields) {
        return Cell(13, "CategoryListsAreSpecified_R_CochransQ_1", {fields});
    };
    // clang-format off
    ExpectEach<std::vector<double>, std::string>({
        {{kWeight, kFeed, kDay}, "@CategoryListsAreSpecified_R_CochransQ_1([<weight>, <feed>, <day>])", "in order"},
        {{}, "@CategoryListsAreSpecified_R_CochransQ_1([' '])", "an empty list is a blank"},
        {{kFeed, kGone, kDay}, "@CategoryListsAreSpecified_R_CochransQ_1([<feed>, 'Unknown Variable'])", "a field without a variable ends the list"},
    }, cochran);
    ExpectEach<Parameters, std::string>({
        {{{kNoField}, {kFeed}}, "@R_Sign_2('Unknown Variable'; <feed>)", "no such field"},
        {{{-1}, {kFeed}}, "@R_Sign_2('Unknown Variable'; <feed>)", "a negative index"},
        {{{1e300}, {-1e300}}, "@R_Sign_2('Unknown Variable'; 'Unknown Variable')", "indices beyond integers"},
        {{{}, {1.9}}, "@R_Sign_2(' '; <feed>)", "an empty parameter keeps its place; indices are cut"},
    }, [&](const Parameters& fields) { return Cell(11, "R_Sign_2", fields); });
    // clang-format on
}

TEST_F(NullHypothesis, ShowsValuesOfTheField)
{
    const auto parts = [&](const Parameters& parameters, const std::vector<std::string>& texts) {
        const std::string key = "CategoryListsAreSpecified_O_Binomial_5";
        const std::string cell = Cell(2, key, parameters, texts);
        return cell.starts_with("@" + key) ? cell.substr(1 + key.size()) : cell;
    };
    const std::vector<double> missing = {MissingValue};
    const std::vector<double> one = {1};
    const std::string ones = "1:Significance; 1:Significance)";
    // clang-format off
    ExpectEach<std::tuple<Parameters, std::vector<std::string>>, std::string>({
        {{{{kFeed}, {0, 2}, {1}, {0.4}, {}}, {}}, "(<feed>; [<feed>=1, <feed>=3]; [<feed>=2]; 0.4:Significance; ' ')", "in order"},
        {{{{kWeight}, missing, {}, one, one}, {}}, "(<weight>; [<weight>=missing]; [' ']; " + ones, "the missing value of a numeric field, and an empty list"},
        {{{{kCity}, missing, {0}, one, one}, {}}, "(<city>; [<city>=' ']; [<city>='Rome    ']; " + ones, "the blank value of a string field"},
        {{{{kFeed}, {7, 0, -1, 8, 1}, {9}, one, one}, {"x", "y"}}, "(<feed>; ['x', <feed>=1, 'y', 'Unknown Variable']; ['x']; " + ones, "texts in turn, from the first in each place; without one the list stops"},
        {{{{kGone}, {0}, {0}, one, one}, {"x"}}, "('Unknown Variable'; ['Unknown Variable']; ['Unknown Variable']; " + ones, "a field without a variable"},
        {{{{kNoField}, {0}, {}, one, one}, {}}, "('Unknown Variable'; ['Unknown Variable']; ['Unknown Variable']; " + ones, "no such field"},
        {{{{kFeed, kFeed}, {0}, {0}, one, one}, {}}, "(<feed>; <feed>; 'Incorrect Parameter Index'; 'Incorrect Parameter Index'; " + ones, "two fields are none, and there is no list then"},
        {{{{-1}, {0}, {0}, one, one}, {}}, "('Unknown Variable'; 'Incorrect Parameter Index'; 'Incorrect Parameter Index'; " + ones, "a negative field"},
        {{{{}, {0}, {0}, one, one}, {}}, "(' '; 'Incorrect Parameter Index'; 'Incorrect Parameter Index'; " + ones, "no field"},
    }, parts);
    // clang-format on
}

TEST_F(NullHypothesis, TakesNoTextsForPlainIndices)
{
    EXPECT_EQ(Cell(3, "CategoryListsAreSpecified_O_Runs_3", {{kFeed}, {0, 7}, {1}}, {"x"}),
              "@CategoryListsAreSpecified_O_Runs_3(<feed>; [<feed>=1, 'Unknown Variable']; "
              "[<feed>=2])");
}

TEST_F(NullHypothesis, ShowsNumbersInTheFormatOfTheTestField)
{
    // clang-format off
    ExpectEach<Parameters, std::string>({
        {{{kWeight}, {1}, {2}}, "@NormalDistribution_O_KolmogorovSmirnov_3(<weight>; <weight>=1; 2:StdDev)", "a number"},
        {{{kDay}, {1}, {2}}, "@NormalDistribution_O_KolmogorovSmirnov_3(<day>; <day>=12219465600; 172800:StdDev)", "days become the host's seconds"},
        {{{kCity}, {1}, {2}}, "@NormalDistribution_O_KolmogorovSmirnov_3(<city>; 1:Significance; 2:StdDev)", "a string field has no number format"},
        {{{kGone}, {1}, {2}}, "@NormalDistribution_O_KolmogorovSmirnov_3('Unknown Variable'; 1:Significance; 2:Significance)", "no variable"},
        {{{kWeight}, {1}, {}}, "@NormalDistribution_O_KolmogorovSmirnov_3(<weight>; <weight>=1; ' ')", "without a value the place is a blank"},
    }, [&](const Parameters& parameters) { return Cell(6, "NormalDistribution_O_KolmogorovSmirnov_3", parameters); });
    // clang-format on
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
        CollectedOutput written(source.get());
        NOPROutput(&written.Procedure(), &written.Procedure(), source.get(), &stats)
            .HypothesisTestSummary();
        const std::string cell = FirstCell(written);
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
    fOutput.Procedure().Heading(sentence);
    EXPECT_EQ(Outline(fOutput),
              "heading 's'('Incorrect Parameter Index'; 'Incorrect Parameter Index'; 'Incorrect "
              "Parameter Index'; 'Incorrect Parameter Index')\n");
}

}  // namespace
