#include "refhost/writers/JsonWriter.h"

#include <gtest/gtest.h>

#include <limits>

#include "refhost/writers/ByteOutput.h"
#include "refhost/writers/JsonEmitter.h"

#include "refhost/writers/SampleOutput.h"

#include "support/Cases.h"

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

TEST(JsonWriter, WritesAnEmptyRun)
{
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

TEST(JsonEmitter, WritesTheShortestNumbers)
{
    // clang-format off
    ExpectEach<double, std::string>({
        {0.1, "[0.1]", "shortest"},
        {5.0, "[5]", "no fraction"},
        {1.0 / 3.0, "[0.3333333333333333]", "all digits that it needs"},
        {1e300, "[1e+300]", "an exponent"},
        {5e-324, "[5e-324]", "tiny"},
        {-std::numeric_limits<double>::max(), "[null]", "missing"},
        {std::numeric_limits<double>::quiet_NaN(), "[null]", "not finite"},
    }, [](double number) {
        std::string text;
        ByteOutput output(text);
        JsonEmitter json(output);
        json.BeginArray();
        json.Number(number);
        json.EndArray();
        output.Flush();
        return text;
    });
    // clang-format on
}

}  // namespace
}  // namespace refhost
