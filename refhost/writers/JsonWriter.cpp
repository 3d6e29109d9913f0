#include "refhost/writers/JsonWriter.h"

#include <new>

#include "refhost/document/WriteFailure.h"
#include "refhost/writers/ByteOutput.h"
#include "refhost/writers/JsonEmitter.h"
#include "refhost/writers/JsonNodes.h"

namespace refhost {

namespace {

class JsonWriter final : public PartedSink {
public:
    explicit JsonWriter(std::unique_ptr<ByteOutput> output)
        : fOutput(std::move(output)), fJson(*fOutput), fNodes(fJson)
    {
    }

    void Begin(const RunStart& start) override
    {
        fJson.BeginObject();
        fJson.BreakLine(1);
        fJson.Key("analysisVariables");
        if (start.fHasAnalysisVariables) {
            fJson.BeginArray();
            for (const int variable : start.fAnalysisVariables)
                fJson.Integer(variable);
            fJson.EndArray();
        } else {
            fJson.Null();
        }
        fJson.BreakLine(1);
        fJson.Key("output");
        fJson.BeginArray();
    }

    void BeginSplit(std::size_t) override {}

    void EndSplit() override { fOutput->Flush(); }

    void OpenHeading(TextRef label) override { fNodes.Open(label); }

    void CloseHeading() override { fNodes.Close(); }

    void Node(OutputNodePtr&& node) override
    {
        try {
            fNodes.Write(*node);
        } catch (const std::bad_alloc&) {
            throw WriteFailure("out of memory");  // half a node is no JSON any more
        }
    }

    void End(const RunEnd& end) override
    {
        fJson.EndArray();
        fJson.BreakLine(1);
        fJson.Key("result");
        fJson.Bool(end.fResult);
        fJson.BreakLine(1);
        fJson.Key("failure");
        if (end.fFailure.empty()) {
            fJson.Null();
        } else {
            fJson.String(end.fFailure);
        }
        fJson.BreakLine(0);
        fJson.EndObject();
        fOutput->Put('\n');
        fOutput->Close();
    }

    std::unique_ptr<PartedSink> ForParts(const RunStart&) const override
    {
        auto parts = std::make_unique<JsonWriter>(std::make_unique<ByteOutput>());
        parts->fJson.BeginMembers();
        return parts;
    }

    SplitPart TakePart() override
    {
        fJson.EndMembers();
        fJson.BeginMembers();  // the first of the next part has no comma either
        return {.fBytes = fOutput->Take()};
    }

    void PutPart(const SplitPart& part) override
    {
        if (!part.fBytes.empty()) fJson.Members(part.fBytes);
        fOutput->Flush();
    }

private:
    std::unique_ptr<ByteOutput> fOutput;
    JsonEmitter fJson;
    JsonNodes fNodes;
};

}  // namespace

std::unique_ptr<PartedSink> MakeJsonWriter(std::unique_ptr<ByteOutput> output)
{
    return std::make_unique<JsonWriter>(std::move(output));
}

}  // namespace refhost
