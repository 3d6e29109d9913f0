#include "refhost/job/JobFile.h"

#include <filesystem>
#include <fstream>

#include "refhost/data/MissingValue.h"

#include "host/data/QORT_ValueLabelMap.h"
#include "host/data/QORT_Variable.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/Cases.h"
#include "support/DocumentBuilder.h"

namespace refhost {

namespace {

constexpr const char* kJob = R"({
  "title": "Chick weights",
  "variables": [
    {"name": "weight", "label": "Weight in grams", "type": "numeric"},
    {"name": "feed", "type": "string", "format": {"type": 1, "width": 6, "decimals": 0},
     "valueLabels": [{"value": "ca", "label": "Casein"}, {"value": "be", "label": "Bean"}]},
    {"name": "day", "type": "numeric", "format": {"type": 20, "width": 11, "decimals": 0},
     "valueLabels": [{"value": "1970-01-03", "label": "the third"}]},
    {"name": "time", "type": "numeric", "format": {"type": 86, "width": 20, "decimals": 0}},
    {"name": "span", "type": "numeric", "format": {"type": 21, "width": 11, "decimals": 0}}
  ],
  "extraVariable": "day",
  "extraVariables": ["feed", "weight"],
  "command": {"ONESAMPLE": {"TEST": ["weight", "nobody"]}, "INDEPENDENT": {"GROUP": "feed"}},
  "splits": [
    {"document": "a.xml", "variables": ["feed", "day", "time", "weight"],
     "values": ["ca", "1970-01-02", "1970-01-01T00:01:00", null], "asHeading": false},
    {"document": "sub/b.xml", "variables": ["day"], "values": [2.5]},
    {"document": "/c.xml", "variables": [], "values": []}
  ]
})";

std::string Replaced(const char* part, const char* by) { return ::Replaced(kJob, part, by); }

Job JobOf(const std::string& text) { return ReadJobText(text, "job", "folder"); }

std::string ReasonOf(const std::string& text)
{
    try {
        JobOf(text);
        return "(a job)";
    } catch (const JobError& error) {
        return error.what();
    }
}

}  // namespace

TEST(ReadJobText, ReadsEverythingThatAJobSays)
{
    const Job job = JobOf(kJob);
    EXPECT_EQ(job.fTitle, "Chick weights");
    EXPECT_EQ(job.fExtraVariable, 2);
    EXPECT_THAT(job.fExtraVariables, testing::ElementsAre(1, 0));

    ASSERT_EQ(job.fSplits.size(), 3u);
    const JobSplit& first = job.fSplits[0];
    EXPECT_EQ(first.fDocument, "folder/a.xml");
    EXPECT_THAT(first.fVariables, testing::ElementsAre(1, 2, 3, 0));
    ASSERT_EQ(first.fValues.size(), 4u);
    EXPECT_EQ(first.fValues[0].Text(), "ca    ") << "padded to the format's width";
    EXPECT_EQ(first.fValues[1].Number(), 1) << "days of a date";
    EXPECT_EQ(first.fValues[2].Number(), 60) << "seconds of a date with a time";
    EXPECT_EQ(first.fValues[3].Number(), kMissingValue) << "null";
    EXPECT_FALSE(first.fAsHeading);
    EXPECT_EQ(job.fSplits[1].fDocument, "folder/sub/b.xml");
    EXPECT_EQ(job.fSplits[1].fValues[0].Number(), 2.5) << "a number is in the document's unit";
    EXPECT_TRUE(job.fSplits[1].fAsHeading) << "unless it says otherwise";
    EXPECT_EQ(job.fSplits[2].fDocument, "/c.xml");

    const QORT_DataSource* source = job.fDataSource.get();
    EXPECT_EQ(source->GetVariable(0)->GetFormat(), (QORT_Format{8, 5, 2})) << "the usual format";
    const QORT_ValueLabelMap feeds(source->GetVariable(1)->GetValueLabels());
    EXPECT_STREQ(feeds.GetLabel(first.fValues[0]), "Casein");
    const QORT_ValueLabelMap days(source->GetVariable(2)->GetValueLabels());
    EXPECT_STREQ(days.GetLabel(OBS(2.0)), "the third");

    const CommandSpec* command = job.fCommand.get();
    std::vector<QortVarName> names;
    command->getSubComObj("ONESAMPLE")->getParamObj("TEST")->getVarList(names);
    ASSERT_EQ(names.size(), 2u);
    EXPECT_EQ(names[1].GetName(), "nobody") << "names in a command may be unknown";
    const SubComObj* independent = command->getSubComObj("INDEPENDENT");
    EXPECT_EQ(independent->getParamObj("GROUP")->getVarName().GetName(), "feed");
    EXPECT_EQ(independent->getParamObj("TEST"), nullptr);
    EXPECT_EQ(command->getSubComObj("RELATED"), nullptr);
}

TEST(ReadJobText, NamesTheKeyThatIsWrongAndWhy)
{
    // clang-format off
    ExpectEach<std::string, std::string>({
        {"", "job: no JSON at line 1, column 1: The document is empty."},
        {"{\n \"splits\": [}", "job: no JSON at line 2, column 13: Invalid value."},
        {"{\"title\": \"\xFF\"}", "job: no JSON at line 1, column 12: Invalid encoding in string."},
        {std::string(kJob) + "x", "job: no JSON at line 21, column 2: The document root must not be followed by other values."},
        {Replaced("[2.5]", "[1e999]"), "job: no JSON at line 18, column 64: Number too big to be stored in double."},
        {Replaced("\"weight\", \"nobody", R"("weight\u0000x", "nobody)"), "job: the text that ends at line 14, column 52 holds U+0000"},
        {Replaced("title", R"(title\u0000)"), "job: the text that ends at line 2, column 15 holds U+0000"},
        {"[]", "job: the job: the value has the wrong type (the rule: object)"},
        {"{}", "job: the job: it lacks \"variables\", \"splits\""},
        {"{\"variables\": [{\"name\": \"splits\", \"type\": \"numeric\"}]} [", "job: the job: it lacks \"splits\""},
        {std::string(1000000, '['), "job: the job: the value has the wrong type (the rule: object)"},
        {"{\"splits\": " + std::string(1000000, '['), "job: /splits/0: the value has the wrong type (the rule: object)"},
        {Replaced("\"title\"", "\"titel\""), "job: /titel: this key is unknown"},
        {Replaced("title", "rrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrr\u65E5\u65E5"), "job: /rrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrr...: this key is unknown"},
        {Replaced("\"Chick weights\"", "3"), "job: /title: the value has the wrong type (the rule: string)"},
        {Replaced("\"asHeading\": false", "\"heading\": false"), "job: /splits/0/heading: this key is unknown"},
        {Replaced("\"asHeading\": false", "\"asHeading\": 1"), "job: /splits/0/asHeading: the value has the wrong type (the rule: boolean)"},
        {Replaced("\"document\": \"a.xml\", ", ""), "job: /splits/0: it lacks \"document\""},
        {Replaced("\"a.xml\"", "\"\""), "job: /splits/0/document: the text is empty"},
        {Replaced("\"type\": \"numeric\"", "\"type\": \"number\""), "job: /variables/0/type: the value is none of those that are allowed (the rule: numeric, string)"},
        {Replaced("\"width\": 6", "\"width\": 0"), "job: /variables/1/format/width: the number is too small (the rule: 1)"},
        {Replaced("\"width\": 6", "\"width\": 65536"), "job: /variables/1/format/width: the number is too large (the rule: 32767)"},
        {Replaced("\"width\": 6", "\"width\": 6.5"), "job: /variables/1/format/width: the value has the wrong type (the rule: integer)"},
        {Replaced("\"width\": 6, ", ""), "job: /variables/1/format: it lacks \"width\""},
        {Replaced("\"INDEPENDENT\": {\"GROUP\"", "\"RELATED\": {\"GROUP\""), "job: /command/RELATED/GROUP: this key is unknown"},
        {Replaced("\"INDEPENDENT\": {\"GROUP\": \"feed\"", "\"ONESAMPLE\": {\"TEST\": []"), "job: /command/ONESAMPLE: the key stands twice"},
        {Replaced("\"value\": \"ca\"", "\"value\": null"), "job: /variables/1/valueLabels/0/value: the value has the wrong type (the rule: number, string)"},
        {Replaced("null]", "true]"), "job: /splits/0/values/3: the value has the wrong type (the rule: number, string, null)"},
        {R"({"variables": [], "splits": []})", "job: /splits: the list is empty"},
        {Replaced("\"value\": \"ca\"", "\"value\": 1"), "job: /variables/1/valueLabels/0/value: a string variable has texts"},
        {Replaced("\"1970-01-02\"", "\"1970-02-30\""), "job: /splits/0/values/1: \"1970-02-30\" is no date"},
        {Replaced("null]", "\"12\"]"), "job: /splits/0/values/3: a numeric variable has numbers"},
        {Replaced("\"ca\", \"1970", "null, \"1970"), "job: /splits/0/values/0: a string variable has texts"},
        {Replaced(", null]", "]"), "job: /splits/0: 3 values stand beside 4 variables"},
        {Replaced("[\"day\"]", "[\"Day\"]"), "job: /splits/1/variables/0: there is no variable \"Day\""},
        {Replaced("\"extraVariable\": \"day\"", "\"extraVariable\": \"dya\""), "job: /extraVariable: there is no variable \"dya\""},
        {Replaced("[\"feed\", \"weight\"]", "[\"feed\", \"\"]"), "job: /extraVariables/1: there is no variable \"\""},
        {Replaced("\"name\": \"feed\"", "\"name\": \"weight\""), "job: /variables/1/name: another variable has this name"},
    }, ReasonOf);
    // clang-format on
}

TEST(ReadJobText, LetsOutWhatMayBeLeftOut)
{
    EXPECT_EQ(ReasonOf(R"({"variables": [], "splits": [{"document": "a", "variables": [],
                          "values": []}]})"),
              "(a job)");
    EXPECT_EQ(ReasonOf(Replaced("\"extraVariable\": \"day\"", "\"extraVariable\": null")),
              "(a job)");
    EXPECT_EQ(ReasonOf(Replaced("Chick", "[[[[[[[[[[[[[[[[[[[[[[[[[[[[[[[[[[[[\\\"[")), "(a job)")
        << "brackets in a text";
}

TEST(ReadJobFile, TakesDocumentsRelativeToTheFile)
{
    EXPECT_THROW(ReadJobFile("/nowhere/job.json"), JobError);
    EXPECT_THROW(ReadJobFile("/"), JobError) << "a folder";

    const std::filesystem::path file = std::filesystem::path(testing::TempDir()) / "job.json";
    std::ofstream(file) << kJob;
    EXPECT_EQ(ReadJobFile(file.string()).fSplits[0].fDocument,
              (file.parent_path() / "a.xml").string());
    std::filesystem::remove(file);
}

TEST(ReadJobFile, KeepsNumbersToTheLastBit)
{
    // clang-format off
    ExpectEach<const char*, double>({
        {"0.30000000000000004", 0.1 + 0.2},
        {"2.2250738585072011e-308", 2.2250738585072011e-308},
        {"0e308", 0.0},
        {"0.0E-30", 0.0},
        {"1e-999", 0.0},
        {"-3", -3.0},
        {"18446744073709551616", 18446744073709551616.0},
    }, [](const char* text) { return JobOf(Replaced("2.5", text)).fSplits[1].fValues[0].Number(); });
    // clang-format on
}

}  // namespace refhost
