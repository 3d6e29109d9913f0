#include "fuzz/targets/SplitRun.h"

#include <memory>
#include <string>

#include "fuzz/targets/OutputChecks.h"

#include "frame/NOPRProcCustom.h"

#include "refhost/document/HostRun.h"
#include "refhost/document/OutputBuilder.h"
#include "refhost/framework/InvariantBroken.h"
#include "refhost/framework/ReadFailure.h"
#include "refhost/pivot/PivotProcedure.h"
#include "refhost/strings/TextTable.h"
#include "refhost/writers/ByteOutput.h"
#include "refhost/writers/HtmlWriter.h"
#include "refhost/writers/JsonWriter.h"
#include "refhost/writers/PartedSink.h"
#include "refhost/writers/TextWriter.h"
#include "refhost/writers/Writers.h"

#include "host/framework/SplitResult.h"
#include "host/pivot/BpProcedure.h"

namespace fuzz {

namespace {

using namespace refhost;
using Bytes = std::unique_ptr<ByteOutput>;

/// In the order of `Format`.
struct FormatRow {
    std::unique_ptr<PartedSink> (*fMake)(Bytes output);
    void (*fCheck)(std::string_view text);
};

// clang-format off
constexpr FormatRow kFormats[] = {
    {[](Bytes output) { return MakeJsonWriter(std::move(output)); }, CheckJson},
    {[](Bytes output) { return MakeHtmlWriter(std::move(output)); }, CheckHtml},
    {[](Bytes output) { return MakeTextWriter(std::move(output), kDefaultTerminalWidth); }, CheckText},
};
// clang-format on

const TextTable& EnglishTexts()
{
    static const TextTable texts = [] {
        TextTable table;
        std::string reason;
        Require(table.Load(NONPAR_SOURCE_DIR "/refhost/texts/en.json", reason), reason);
        return table;
    }();
    return texts;
}

/// What the tool does for a job of one split. False where the read failed or an invariant broke.
bool Write(const QORT_DataSource& source, const std::vector<SplitResult>& splits,
           const FormatRow& format, std::string& text)
{
    const auto sink = format.fMake(std::make_unique<ByteOutput>(text));
    OutputBuilder output(*sink);
    HostRun run{.fOutput = &output, .fTemplateFolder = NONPAR_SOURCE_DIR "/refhost/templates"};
    const HostRun::Scope scope(run);
    ForgetReadFailure();
    ForgetBrokenInvariant();
    sink->Begin({});
    sink->BeginSplit(0);
    RunEnd end;
    {
        const auto top = MakeProcedure(&source);
        NOPRProcCustom procedure;
        procedure.Attach(top.get(), &source);
        std::vector<std::string> noDocuments;
        try {
            end.fResult = procedure.ProcessSplits(noDocuments, splits);
        } catch (const InvariantBroken& broken) {
            end.fFailure = broken.what();
        }
    }
    output.ThrowFailure();
    sink->EndSplit();
    sink->End(end);
    return end.fResult;
}

}  // namespace

bool WriteInFormat(const QORT_DataSource& source, const SplitResult& split, Format format)
{
    const TextTable::Scope scope(EnglishTexts());
    const FormatRow& row = kFormats[static_cast<std::size_t>(format)];
    std::string text;
    const bool isRead = Write(source, {split}, row, text);
    row.fCheck(text);
    return isRead;
}

bool WriteInAllFormats(const QORT_DataSource& source, const SplitResult& split)
{
    bool isRead = true;
    for (const Format format : {Format::Json, Format::Html, Format::Text})
        isRead = WriteInFormat(source, split, format) && isRead;
    return isRead;
}

}  // namespace fuzz
