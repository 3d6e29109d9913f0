#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <rapidjson/document.h>
#include <rapidjson/istreamwrapper.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <set>
#include <utility>

#include "output/ConditionKeys.h"
#include "output/NOPROutput.h"

#include "model/NOPRTestIdentity.h"
#include "model/TestQueries.h"

#include "host/pivot/BpHeading.h"
#include "host/pivot/BpProcedure.h"

#include "refhost/document/HostRun.h"
#include "refhost/document/OutputBuilder.h"
#include "refhost/pivot/PivotProcedure.h"
#include "refhost/writers/ByteOutput.h"
#include "refhost/writers/JsonWriter.h"

#include "support/DocumentBuilder.h"
#include "support/Reading.h"

namespace {

using testing::IsEmpty;
using Section = std::map<std::string, std::string>;
using Marks = std::multiset<std::string>;

/// A text file as it stands: section, key and text.
std::map<std::string, Section> Load(const std::string& language)
{
    std::ifstream stream(NONPAR_SOURCE_DIR "/refhost/texts/" + language + ".json");
    rapidjson::IStreamWrapper input(stream);
    rapidjson::Document document;
    document.ParseStream(input);
    std::map<std::string, Section> texts;
    if (document.HasParseError() || !document.IsObject()) return texts;
    for (const auto& [name, section] : std::as_const(document).GetObject())
        for (const auto& [key, text] : section.GetObject())
            EXPECT_TRUE(texts[name.GetString()].emplace(key.GetString(), text.GetString()).second)
                << key.GetString() << " stands twice in " << language;
    return texts;
}

const Section& Texts(const std::string& section, const std::string& language = "en")
{
    static const std::map<std::string, std::map<std::string, Section>> kTexts = {
        {"en", Load("en")}, {"de", Load("de")}};
    return kTexts.at(language).at(section);
}

/// All matches of a pattern in a text, in alphabetical order.
Marks Matches(const std::string& text, const char* pattern)
{
    const std::regex marks(pattern);
    Marks found;
    for (std::sregex_iterator match(text.begin(), text.end(), marks), end; match != end; ++match)
        found.insert(match->str());
    return found;
}

/// Places, list forms and line breaks of a text, and what it ends in where a number or a name
/// follows.
Marks MarksOf(const std::string& text)
{
    Marks marks = Matches(text, R"(\[[^\]]*\]\d|\^\d|\\n)");
    if (text.ends_with(' ') || text.ends_with('=')) marks.insert(text.substr(text.size() - 1));
    return marks;
}

std::set<std::string> Keys(const Section& section)
{
    std::set<std::string> keys;
    for (const auto& [key, text] : section)
        keys.insert(key);
    return keys;
}

/// Fails where the section has no text for a key.
void ExpectText(const std::string& section, const std::string& key)
{
    EXPECT_TRUE(Texts(section).contains(key)) << '"' << key << "\" has no text in " << section;
}

TEST(TextFiles, HaveTheSameKeysPlacesAndListsInEveryLanguage)
{
    for (const char* section : {"pivot", "charts"}) {
        SCOPED_TRACE(section);
        EXPECT_EQ(Keys(Texts(section, "de")), Keys(Texts(section)));
        for (const auto& [key, text] : Texts(section)) {
            const auto other = Texts(section, "de").find(key);
            if (other == Texts(section, "de").end()) continue;
            EXPECT_EQ(MarksOf(other->second), MarksOf(text)) << key;
            EXPECT_FALSE(text.empty() || other->second.empty()) << key;
        }
    }
}

TEST(TextFiles, FillThePlacesThatAKeyShows)
{
    for (const char* section : {"pivot", "charts"})
        for (const auto& [key, text] : Texts(section))
            if (const Marks inKey = MarksOf(key); !inKey.empty()) {
                EXPECT_EQ(MarksOf(text), inKey) << key;
            }
}

TEST(TextFiles, HaveASentenceWithAllPlacesForEachCondition)
{
    for (const ConditionKey& condition : ConditionKeys()) {
        const std::string key(condition.fKey);
        ASSERT_TRUE(Texts("pivot").contains(key)) << key;
        std::set<std::string> places;
        for (std::size_t place = 1; place <= condition.Places().size(); ++place)
            places.insert("^" + std::to_string(place));
        const Marks found = Matches(Texts("pivot").at(key), R"(\^\d)");
        EXPECT_EQ(std::set<std::string>(found.begin(), found.end()), places) << key;
    }
}

TEST(TextFiles, NameEveryTestInTablesAndCharts)
{
    for (const TestKindRow& row : TestKinds()) {
        NOPROutputStats stats;
        if (!stats.CreateTest(sample::kOne, row.fKind, 0)) continue;
        const std::string title(row.fTitle);
        ExpectText("pivot", title);
        ExpectText("charts", title);
        if (!stats.GetTests().empty()) ExpectText("pivot", title + " Summary");
    }
    for (const ConditionKey& condition : ConditionKeys()) {
        NOPROutputStats::HTOKolmogorovSmirnov test;
        test.fTestKind = condition.fKind;
        test.fCondition.fConditionKey = condition.fKey;
        if (test.fTestKind != kind::kOneSampleKolmogorovSmirnov) continue;
        ExpectText("charts", TestHeadingTitle(test));
        ExpectText("pivot", TestHeadingTitle(test) + " Summary");
    }
}

TEST(TextFiles, ExplainEachMessageOfAPairWithoutPlaces)
{
    for (int code = 200000; code < 300000; ++code) {
        if (!IsPairMessage(code)) continue;
        const std::string key = std::to_string(code);
        ASSERT_TRUE(Texts("pivot").contains(key)) << key;
        EXPECT_THAT(MarksOf(Texts("pivot").at(key)), IsEmpty());
    }
}

/// The keys that the tables of a document ask for.
std::set<std::string> KeysOfTables(const Reading& reading)
{
    std::string json;
    {
        const auto writer = refhost::MakeJsonWriter(std::make_unique<refhost::ByteOutput>(json));
        refhost::OutputBuilder builder(*writer);
        refhost::HostRun run{&builder, {}};
        const refhost::HostRun::Scope scope(run);
        writer->Begin({});
        const auto procedure = refhost::MakeProcedure(reading.fDataSource.get());
        NOPROutput(procedure.get(), procedure.get(), reading.fDataSource.get(), &reading.fStats)
            .Run();
        writer->End({});
    }
    static const std::regex kLookup(R"~("(?:string|composite)":"([^"]*)","lookup":true)~");
    const std::sregex_token_iterator keys(json.begin(), json.end(), kLookup, 1);
    return {keys, std::sregex_token_iterator()};
}

/// The algorithm name of a kind.
std::string_view NameOf(TestKind testKind)
{
    return std::ranges::find(TestKinds(), testKind, &TestKindRow::fKind)->fName;
}

/// A test of a condition with what makes tables and footnotes of its kind differ.
Element TestOf(const ConditionKey& condition, const char* decision, double totalN,
               const char* significance)
{
    Element parameters = StructuredTable(
        "Condition", {Attribute("ConditionKey", condition.fKey), Attribute("isUseSample", "true")});
    for (std::size_t place = 0; place < condition.Places().size(); ++place)
        parameters.Add(Attribute("%" + std::to_string(place), place == 0 ? "0" : "1"));
    Element test = Algorithm(NameOf(condition.fKind), decision, {parameters});
    const std::string shape = totalN < 5 ? "Pairwise" : "Stepwise";
    if (condition.fKind >= kind::kCochran)
        test.Add(StructuredTable(
            shape + "Result",
            {Attribute("fieldIndex", 1.0), SimpleTable(shape + "Info", "", "", {{0, 1}, {1, 2}}),
             SimpleTable("Content", "", "1 2 3 4 5 6 7", {{0, 1, 2, 3, 4, 5, 6}})}));
    if (condition.fKind == kind::kBinomialInterval) {
        for (const char* method : {"ClopperPearson", "Jeffreys", "ProfileLikelihood"})
            test.Add(StructuredTable(
                method, {Attribute("computeECIMethod", method), StructuredTable("Bounds")}));
        return test;
    }
    Element statistics = Statistics({{"TotalN", totalN}});
    statistics.Add(Attribute(significance, ">0.2"));
    for (const char* block : {"YatesContinuityCorrection", "ObservedControlGroup",
                              "TrimmedControlGroup", "MinimumPossible", "MaximumPossible"})
        statistics.Add(
            StructuredTable(block, {Attribute("TestStatistic", block[1] == 'i' ? 4.0 : 5.0),
                                    Attribute("AsymptoticSig1Tailed", 0.5)}));
    return test.Add(significance[0] == 'A' ? statistics : Statistics({{significance, 0.5}}));
}

TEST(TextFiles, HoldEveryKeyThatTheTablesOfAllKindsAskFor)
{
    DocumentBuilder builder;
    builder.SetTests("sigLevel", "0.05").SetTests("confidenceLevel", "0.95");
    const std::vector<ValueSpec> values = {{"0", "zero"}, {"1", "one"}};
    builder.AddField({.name = "x", .values = values}).AddField({.name = "y", .values = values});
    for (const ConditionKey& condition : ConditionKeys()) {
        builder.AddTest(TestOf(condition, "reject", 3, "AsymptoticSig2Tailed"));
        builder.AddTest(TestOf(condition, "retain", 50, "AsymptoticSig2Tailed"));
        builder.AddTest(TestOf(condition, "", 50, "FisherExactSig"));
    }
    std::vector<refhost::VariableData> variables(2);
    variables[0].fName = "x";
    variables[1].fName = "y";
    const Reading reading(builder.Text(), variables);
    ASSERT_TRUE(reading.fRead);

    const std::set<std::string> keys = KeysOfTables(reading);
    EXPECT_GT(keys.size(), 100U) << "the tables ask for far more";
    for (const std::string& key : keys)
        ExpectText("pivot", key);
}

TEST(TextFiles, HoldEveryNameOfTheExamples)
{
    std::size_t documents = 0;
    for (const auto& entry :
         std::filesystem::recursive_directory_iterator(NONPAR_SOURCE_DIR "/examples")) {
        if (entry.path().extension() != ".xml") continue;
        SCOPED_TRACE(entry.path().filename());
        std::ifstream stream(entry.path(), std::ios::binary);
        const Reading reading({std::istreambuf_iterator<char>(stream), {}});
        ASSERT_TRUE(reading.fRead);
        EXPECT_THAT(reading.fReports, IsEmpty());
        for (const std::string& key : KeysOfTables(reading))
            ExpectText("pivot", key);
        ++documents;
    }
    EXPECT_GT(documents, 10U);
}

}  // namespace
