#include "refhost/writers/TextWriter.h"

#include <string_view>

#include "refhost/writers/ByteOutput.h"
#include "refhost/writers/ChartInWords.h"
#include "refhost/writers/ReportWords.h"
#include "refhost/writers/TerminalTable.h"
#include "refhost/writers/TerminalText.h"

namespace refhost {

namespace {

/// What underlines headings, outermost first; deeper ones take the last.
constexpr std::string_view kUnderlines[] = {"═", "─", "·"};

class TextWriter final : public PartedSink {
public:
    TextWriter(std::unique_ptr<ByteOutput> output, int terminalWidth)
        : fOutput(std::move(output)), fWidth(terminalWidth)
    {
    }

    void Begin(const RunStart& start) override
    {
        fLanguage = start.fLanguage;
        if (!start.fTitle.empty()) Heading(Printable(start.fTitle), 0);
    }

    void BeginSplit(std::size_t) override {}

    void EndSplit() override { fOutput->Flush(); }

    void OpenHeading(TextRef label) override
    {
        Heading(label ? Printable(label->fShown) : std::string(), fDepth++);
    }

    void CloseHeading() override { --fDepth; }

    void Node(OutputNodePtr&& node) override
    {
        std::visit([this](const auto& content) { Write(content); }, node->fContent);
    }

    void End(const RunEnd& end) override
    {
        const std::vector<std::string> notice = NoticeLines(end, fLanguage);
        if (!notice.empty()) Part();
        for (const std::string& line : notice)
            Paragraph("", line);
        fOutput->Close();
    }

    std::unique_ptr<PartedSink> ForParts(const RunStart& start) const override
    {
        auto parts = std::make_unique<TextWriter>(std::make_unique<ByteOutput>(), fWidth);
        parts->fLanguage = start.fLanguage;
        return parts;
    }

    SplitPart TakePart() override
    {
        fIsFirst = true;
        return {.fBytes = fOutput->Take()};
    }

    void PutPart(const SplitPart& part) override
    {
        if (!part.fBytes.empty()) Part();
        fOutput->Write(part.fBytes);
        fOutput->Flush();
    }

private:
    void Write(const TableNode& table)
    {
        Part();
        WriteTerminalTable(table, fWidth, *fOutput);
    }

    void Write(const ErrorNode& error)
    {
        Part();
        Paragraph(Lead("warning"), error.fText);
    }

    void Write(const ChartNode& chart)
    {
        Part();
        const std::string& title = chart.fTitle.empty() ? chart.fTemplate : chart.fTitle;
        Paragraph(Lead("chart"), title);
        for (const std::string* text : {&chart.fSubtitle, &chart.fDescription, &chart.fFootnote})
            if (!text->empty() && *text != title) Paragraph("  ", *text);
        for (const ChartSource& source : chart.fSources) {
            const std::string rows = std::to_string(source.fRows);
            Paragraph("  ", ReportSentence(fLanguage, "rows", {source.fName, rows}));
            for (const std::string& line : SummarizeSource(source, fLanguage))
                Paragraph("    ", line);
        }
    }

    std::string Lead(std::string_view key) const
    {
        return std::string(ReportWord(fLanguage, key)) + ": ";
    }

    /// A blank line before every part but the first.
    void Part()
    {
        if (!fIsFirst) fOutput->Put('\n');
        fIsFirst = false;
    }

    void Heading(const std::string& text, unsigned depth)
    {
        Part();
        std::size_t width = 0;
        for (const std::string& line : WrapText(text, Room(0))) {
            fOutput->Write(line);
            fOutput->Put('\n');
            width = std::max(width, DisplayWidth(line));
        }
        const std::size_t kind = std::min<std::size_t>(depth, std::size(kUnderlines) - 1);
        for (std::size_t column = 0; column < width; ++column)
            fOutput->Write(kUnderlines[kind]);
        fOutput->Put('\n');
    }

    /// A lead of blanks indents all lines, any other the first only.
    void Paragraph(std::string_view lead, const std::string& text)
    {
        const bool indents = lead.find_first_not_of(' ') == std::string_view::npos;
        std::vector<std::string> lines = WrapText(
            Printable(indents ? text : std::string(lead) + text), Room(indents ? lead.size() : 0));
        for (const std::string& line : lines) {
            if (indents) fOutput->Write(lead);
            fOutput->Write(line);
            fOutput->Put('\n');
        }
    }

    std::size_t Room(std::size_t taken) const
    {
        const auto width = static_cast<std::size_t>(std::max(fWidth, 1));
        return width > taken ? width - taken : 1;
    }

    std::unique_ptr<ByteOutput> fOutput;
    int fWidth;
    std::string fLanguage;
    unsigned fDepth = 0;  // of open headings
    bool fIsFirst = true;
};

}  // namespace

std::unique_ptr<PartedSink> MakeTextWriter(std::unique_ptr<ByteOutput> output, int terminalWidth)
{
    return std::make_unique<TextWriter>(std::move(output), terminalWidth);
}

}  // namespace refhost
