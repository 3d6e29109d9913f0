#include "refhost/writers/TextWriter.h"

#include <gtest/gtest.h>

#include "refhost/writers/ByteOutput.h"
#include "refhost/writers/ReportWords.h"
#include "refhost/writers/Writers.h"

#include "host/pivot/BpError.h"

#include "refhost/writers/SampleOutput.h"

#include "support/Cases.h"

namespace refhost {
namespace {

TEST(TextWriter, WritesARunForAMail)
{
    CollectedOutput run;
    BpError("A name is not known.", BpErrorShow::Output, BpErrorLevel::Warning);
    {
        BpHeading heading = run.Procedure().Heading(Literal("Tooth length"));
        BpHeading inner = heading.Heading(Literal("Dose"));
        BpPivotTable table = inner.PivotTable(Literal("Summary"), Literal("s"), false);
        BpDimension rows = table.Dimension(Literal("Statistics"), Sort::AsCreated);
        rows.Position(Place::Rows, 1, true, false);
        rows.Category(Literal("Total N")).Cell(BpNumber(60, BpProcedure::Count()));
        rows.Category(Literal("Sig.")).Cell(BpNumber(-1e308 * 10, BpProcedure::Significance()));
    }
    ChartNode chart;
    chart.fTitle = "Boxes";
    chart.fSubtitle = "by dose";
    chart.fDescription = "Three boxes that rise with the dose.";
    chart.fSources = {
        {"graphdata",
         {{"len", {4.0, 8.0, 6.0}}, {"dose", {"low", "low", "high"}}, {"none", {}}, {"n", {3.0}}},
         3}};

    std::string text;
    const auto writer = MakeTextWriter(std::make_unique<ByteOutput>(text), 32);
    RunStart start;
    start.fTitle = "Guinea pigs";
    writer->Begin(start);
    Replay(run.TakeNodes(), *writer);
    writer->Node(std::make_unique<OutputNode>(OutputNode{std::move(chart)}));
    writer->End({.fResult = false, .fFailure = {}, .fNotice = "Stopped in the second split."});
    EXPECT_EQ(text, 1 + R"(
Guinea pigs
═══════════

Warning: A name is not known.

Tooth length
════════════

Dose
────

Summary
┌─────────┬────┐
│ Total N │ 60 │
│ Sig.    │  . │
└─────────┴────┘

Chart: Boxes
  by dose
  Three boxes that rise with the
  dose.
  graphdata, rows: 3
    len: 3 numbers, 4 to 8, mean
    6
    dose: 3 values: low, high
    none: no values
    n: 3

This report is not complete. The
run ended early:
Stopped in the second split.
)");
}

TEST(NoticeLines, TellWhyAnOutputIsNotComplete)
{
    const std::string early = "This report is not complete. The run ended early:";
    // clang-format off
    ExpectEach<RunEnd, std::vector<std::string>>({
        {{true, "", ""}, {}, "a complete run"},
        {{false, "fields != 0", ""}, {early, "fields != 0"}, "a broken invariant"},
        {{true, "", "Stopped."}, {early, "Stopped."}, "the run's own notice"},
        {{false, "x", "Stopped."}, {early, "Stopped.", "x"}, "both"},
        {{false, "", ""}, {"This report is not complete: a result document could not be read."}, "an unreadable document"},
    }, [](const RunEnd& end) { return NoticeLines(end, "en"); });
    // clang-format on
}

TEST(Writers, AreFoundByTheirFormat)
{
    EXPECT_EQ(FindWriter("doc"), nullptr);
    for (const WriterRow& row : Writers()) {
        SCOPED_TRACE(row.fFormat);
        EXPECT_EQ(FindWriter(row.fFormat), &row);
        const std::string file = testing::TempDir() + "writers" + std::string(row.fExtension);
        const auto writer = row.fMake({.fFile = file});
        writer->Begin({});
        writer->End({});
        EXPECT_EQ(std::remove(file.c_str()), 0) << "each writes the file that was named";
    }
}

}  // namespace
}  // namespace refhost
