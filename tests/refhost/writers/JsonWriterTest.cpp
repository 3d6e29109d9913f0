#include "refhost/writers/JsonWriter.h"

#include <gtest/gtest.h>
#include <rapidjson/document.h>
#include <rapidjson/istreamwrapper.h>
#include <rapidjson/schema.h>
#include <rapidjson/stringbuffer.h>

#include <fstream>
#include <limits>

#include "refhost/writers/ByteOutput.h"
#include "refhost/writers/JsonEmitter.h"

#include "refhost/writers/SampleOutput.h"

namespace refhost {
namespace {

std::string Written(std::vector<OutputTreeNode> nodes, const RunStart& start, const RunEnd& end)
{
    std::string text;
    const auto writer = MakeJsonWriter(std::make_unique<ByteOutput>(text));
    writer->Begin(start);
    Replay(std::move(nodes), *writer);
    writer->End(end);
    return text;
}

template <class Content>
OutputTreeNode Node(Content content)
{
    return {{}, {}, std::make_unique<OutputNode>(OutputNode{std::move(content)})};
}

/// Where a text departs from the schema of the output; empty where it follows it.
std::string DepartsFromSchema(const std::string& json)
{
    std::ifstream file(NONPAR_SOURCE_DIR "/docs/output.schema.json");
    rapidjson::IStreamWrapper input(file);
    rapidjson::Document schemaText;
    if (schemaText.ParseStream(input).HasParseError()) return "the schema is no JSON";
    const rapidjson::SchemaDocument schema(schemaText);
    rapidjson::Document document;
    if (document.Parse<rapidjson::kParseValidateEncodingFlag>(json.data(), json.size())
            .HasParseError())
        return "no JSON at byte " + std::to_string(document.GetErrorOffset());
    rapidjson::SchemaValidator validator(schema);
    if (document.Accept(validator)) return "";
    rapidjson::StringBuffer place;
    validator.GetInvalidDocumentPointer().StringifyUriFragment(place);
    return std::string("breaks the schema at ") + place.GetString();
}

TEST(JsonWriter, WritesAnEmptyRun)
{
    EXPECT_EQ(Written({}, {}, {}), 1 + R"(
{
 "analysisVariables":null,
 "output":[],
 "result":false,
 "failure":null
})"
                                       "\n");
    RunStart start;
    start.fHasAnalysisVariables = true;
    start.fAnalysisVariables = {0, 3};
    EXPECT_EQ(Written({}, start, {.fResult = true, .fFailure = "x == \"y\"", .fNotice = {}}),
              1 + R"(
{
 "analysisVariables":[0,3],
 "output":[],
 "result":true,
 "failure":"x == \"y\""
})"
                  "\n");
}

TEST(JsonWriter, WritesATableLineByLine)
{
    PivotRun run;
    {
        BpHeading heading = run.Procedure().Heading(Literal("H"));
        BpPivotTable table = heading.PivotTable(Literal("T"), Literal("S"), false);
        table.MinDataColumnWidth(60);
        BpDimension rows = table.Dimension(Literal("D"), Sort::AsCreated);
        rows.Position(Place::Columns, 1, true, false);
        BpGroup group = rows.Group(Literal("g"), true, Sort::AsCreated);
        BpCategory category = group.Category(BpNumber(0.5, BpProcedure::Proportion()));
        category.CellNote(BpAnnotation(Literal("n")));
        BpComposite list("[%1:, ^1]1", false);
        list.Sublist();
        list.Add(BpVariable(nullptr, Show::Preferred));
        list.Add(BpDataValue(nullptr, 1e22, Preference::Preferred));
        list.EndSublist();
        list.Finish();
        group.Note(BpAnnotation(list));
    }
    const std::string json = Written(run.TakeNodes(), {}, {});
    EXPECT_EQ(DepartsFromSchema(json), "");
    EXPECT_EQ(json, 1 + R"(
{
 "analysisVariables":null,
 "output":[
  {"type":"heading","label":{"string":"H","lookup":false,"text":"H"},"children":[
   {"type":"table","title":{"string":"T","lookup":false,"text":"T"},
    "subtype":{"string":"S","lookup":false,"text":"S"},
    "caption":null,
    "minDataColumnWidth":60,"maxDataColumnWidth":null,
    "dimensions":[
     {"title":{"string":"D","lookup":false,"text":"D"},"sort":2,"place":"columns","flags":[true,false],"items":[
      {"group":{"string":"g","lookup":false,"text":"g"},"notes":[{"composite":"[%1:, ^1]1","lookup":false,"parts":[{"sublist":[{"variable":"","text":""},{"value":1e+22,"of":"","text":"1e+22"}]}],"text":", 1e+22"}],"items":[
       {"category":{"number":0.5,"format":"Proportion","text":"0.500"},"notes":[]}]}]}],
    "cells":[
     {"at":[0],"content":null,"notes":[{"string":"n","lookup":false,"text":"n"}]}]}]}],
 "result":false,
 "failure":null
}
)");
}

TEST(JsonWriter, WritesChartsAndReports)
{
    ChartNode chart;
    chart.fTemplate = "NPAR.viztemplate";
    chart.fText = "<v/>";
    chart.fSources = {{"graphdata",
                       {{"x", {1.5, -std::numeric_limits<double>::max(), "s"}}, {"y", {{}, 2.0}}},
                       3}};
    chart.fCalls = {{"XDocument.setEditor", {std::int64_t{2}}},
                    {"XVariable.addRelabel", {"Row", ChartHostValue{2.0}, std::monostate(), true}}};
    chart.fTitle = "not in the record";
    std::vector<OutputTreeNode> nodes;
    nodes.push_back(Node(std::move(chart)));
    nodes.push_back(Node(ErrorNode{"bad \x1f \xff", 2, 1}));
    const std::string json = Written(std::move(nodes), {}, {});
    EXPECT_EQ(DepartsFromSchema(json), "");
    EXPECT_EQ(json, 1 + R"(
{
 "analysisVariables":null,
 "output":[
  {"type":"chart","template":"NPAR.viztemplate",
   "text":"<v/>",
   "sources":[
    {"name":"graphdata","variables":["x","y"],"rows":[
     {"x":1.5},
     {"x":null,"y":2},
     {"x":"s"}]}],
   "calls":[
    ["XDocument.setEditor",2],
    ["XVariable.addRelabel","Row",{"value":2},null,true]]},
  {"type":"error","text":"bad \u001F �","show":2,"level":1}],
 "result":false,
 "failure":null
}
)");
}

TEST(JsonWriter, FollowsTheSchemaInAllTables)
{
    PivotRun run;
    WriteHypothesisTable(run.Procedure());
    WriteSubsetsTable(run.Procedure());
    WriteIntervalTable(run.Procedure());
    EXPECT_EQ(DepartsFromSchema(Written(run.TakeNodes(), {}, {})), "");
}

TEST(JsonWriter, IsHeldToTheSchema)
{
    EXPECT_EQ(DepartsFromSchema(R"({"analysisVariables":null,"output":[],"result":true})"),
              "breaks the schema at #");
    EXPECT_EQ(DepartsFromSchema(R"({"analysisVariables":null,"result":true,"failure":null,
                                    "output":[{"type":"error","text":"","show":2}]})"),
              "breaks the schema at #/output/0");
}

TEST(JsonEmitter, WritesTheShortestNumbers)
{
    struct Row {
        double number;
        const char* json;
        const char* why;
    };
    for (const Row& row : {Row{0.1, "[0.1]", "shortest"}, Row{5.0, "[5]", "no fraction"},
                           Row{1.0 / 3.0, "[0.3333333333333333]", "all digits that it needs"},
                           Row{1e300, "[1e+300]", "an exponent"}, Row{5e-324, "[5e-324]", "tiny"},
                           Row{-std::numeric_limits<double>::max(), "[null]", "missing"},
                           Row{std::numeric_limits<double>::quiet_NaN(), "[null]", "not finite"}}) {
        SCOPED_TRACE(row.why);
        std::string text;
        ByteOutput output(text);
        JsonEmitter json(output);
        json.BeginArray();
        json.Number(row.number);
        json.EndArray();
        output.Flush();
        EXPECT_EQ(text, row.json);
    }
}

}  // namespace
}  // namespace refhost
