#include <benchmark/benchmark.h>

#include <fstream>
#include <sstream>

#include "frame/NOPRProcCustom.h"
#include "model/NOPRTestRecords.h"
#include "reader/NOPRParseOutXML.h"

#include "refhost/document/HostRun.h"
#include "refhost/document/OutputBuilder.h"
#include "refhost/job/JobFile.h"
#include "refhost/pivot/PivotProcedure.h"
#include "refhost/strings/TextTable.h"
#include "refhost/writers/Writers.h"

#include "host/framework/SplitResult.h"
#include "host/pivot/BpProcedure.h"

/// What one split costs, by its steps: the document read into records, and the whole way into each
/// format of output. The documents are those of the examples.

namespace {

using namespace refhost;

const char* const kExamples[] = {"chick-feed", "department-ratings", "motor-trend"};

/// An example's job with the text of its first document.
struct Example {
    explicit Example(const std::string& name)
        : fJob(ReadJobFile(std::string(NONPAR_SOURCE_DIR "/examples/") + name + "/job.json"))
    {
        std::ostringstream text;
        text << std::ifstream(fJob.fSplits.front().fDocument, std::ios::binary).rdbuf();
        fSplits[0].fDocument = text.str();
    }

    Job fJob;
    std::vector<SplitResult> fSplits = std::vector<SplitResult>(1);
};

void ReadDocument(benchmark::State& state, const std::string& name)
{
    const Example example(name);
    const std::string& document = example.fSplits[0].fDocument;
    for (auto _ : state) {
        NOPROutputStats stats;
        NOPRParseOutXML reader(example.fJob.fDataSource.get(), &stats, &document);
        benchmark::DoNotOptimize(reader.Read());
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(document.size()));
}

void WriteSplit(benchmark::State& state, const std::string& name, const WriterRow& writer)
{
    Example example(name);
    TextTable texts;
    std::string reason;
    texts.Load(NONPAR_SOURCE_DIR "/refhost/texts/en.json", reason);
    const TextTable::Scope active(texts);
    std::vector<std::string> noDocuments;
    for (auto _ : state) {
        const auto sink = writer.fMake({.fFile = "/dev/null"});
        OutputBuilder output(*sink);
        HostRun run{.fOutput = &output, .fTemplateFolder = NONPAR_SOURCE_DIR "/refhost/templates"};
        const HostRun::Scope scope(run);
        const auto top = MakeProcedure(example.fJob.fDataSource.get());
        NOPRProcCustom procedure;
        procedure.Attach(top.get(), example.fJob.fDataSource.get());
        sink->Begin({});
        procedure.ProcessSplits(noDocuments, example.fSplits);
        sink->End(RunEnd());
    }
    const std::size_t bytes = example.fSplits[0].fDocument.size();
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(bytes));
}

}  // namespace

int main(int argc, char** argv)
{
    for (const std::string name : kExamples) {
        benchmark::RegisterBenchmark(("read/" + name).c_str(), ReadDocument, name);
        for (const WriterRow& writer : Writers()) {
            if (writer.fFormat == "xlsx") continue;  // a workbook is no stream
            const std::string label = std::string(writer.fFormat) + "/" + name;
            benchmark::RegisterBenchmark(label.c_str(), WriteSplit, name, writer);
        }
    }
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
