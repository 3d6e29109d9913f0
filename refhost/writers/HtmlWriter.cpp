#include "refhost/writers/HtmlWriter.h"

#include <algorithm>
#include <utility>

#include "refhost/vega/VegaTheme.h"
#include "refhost/writers/ByteOutput.h"
#include "refhost/writers/Escape.h"
#include "refhost/writers/HtmlChart.h"
#include "refhost/writers/HtmlOutline.h"
#include "refhost/writers/HtmlTable.h"
#include "refhost/writers/ReportWords.h"
#include "refhost/writers/WebAssets.h"

namespace refhost {

namespace {

constexpr std::size_t kHighestHeading = 2;  // h1 is the title of the page
constexpr std::size_t kDeepestHeading = 6;

/// The scripts that draw, in the order in which they run.
constexpr const WebAsset* kDrawing[] = {&web::kVega, &web::kVegaLite, &web::kVegaEmbed};

/// No network at all, and no script or style but those of the page itself.
std::string Policy()
{
    std::string policy = "default-src 'none'; img-src data: blob:; base-uri 'none'; ";
    policy.append("form-action 'none'; style-src '").append(web::kStyle.fHash);
    policy.append("'; script-src '").append(web::kReport.fHash).append("'");
    for (const WebAsset* script : kDrawing)
        policy.append(" '").append(script->fHash).append("'");
    return policy;
}

class HtmlWriter final : public PartedSink {
public:
    explicit HtmlWriter(std::unique_ptr<ByteOutput> output) : fOutput(std::move(output)) {}

    void Begin(const RunStart& start) override
    {
        SetLanguage(start);
        fTitle = start.fTitle.empty() ? Word("results") : start.fTitle;
        WritePageUpTo("results");
        Hand();
    }

    /// Ids are counted in each split from the start, so that they don't hang on those before it.
    void BeginSplit(std::size_t split) override
    {
        fIdPrefix = split == 0 ? std::string() : "p" + std::to_string(split + 1) + "-";
        fHeadings = fTables = fCharts = 0;
    }

    void EndSplit() override { Hand(); }

    void OpenHeading(TextRef text) override
    {
        const std::string id = NextId('s', fHeadings);
        const std::string name = HeadingElement();
        const std::string_view label = Shown(text);
        fOutline.Open("heading", id, label);
        fMarkup.append("<section id=\"").append(id).append("\">\n<").append(name);
        fMarkup.append("><a href=\"#").append(id).append("\">");
        AppendMarkupText(fMarkup, label);
        fMarkup.append("</a></").append(name).append(">\n");
        ++fDepth;
    }

    void CloseHeading() override
    {
        fMarkup.append("</section>\n");
        fOutline.Close();
        --fDepth;
    }

    bool PreparesNodes() const override { return true; }

    void Prepare(OutputNode& node) const override
    {
        const auto* chart = std::get_if<ChartNode>(&node.fContent);
        if (!chart) return;
        std::string body;
        AppendChartBody(body, *chart, fLanguage);
        node.fPrepared = std::move(body);
    }

    void Node(OutputNodePtr&& node) override
    {
        const std::size_t whole = fMarkup.size();
        try {
            const std::string prepared = std::move(node->fPrepared);
            std::visit([&](const auto& content) { Append(content, prepared); }, node->fContent);
        } catch (...) {
            fMarkup.resize(whole);  // half a node would break the page around it
            throw;
        }
        if (fMarkup.size() > kLargeMarkup) Hand(/*flush=*/false);
    }

    void End(const RunEnd& end) override
    {
        fEnd = end;
        WritePageUpTo("");
        Hand();
        fOutput->Close();
    }

    std::unique_ptr<PartedSink> ForParts(const RunStart& start) const override
    {
        auto parts = std::make_unique<HtmlWriter>(std::make_unique<ByteOutput>());
        parts->SetLanguage(start);
        return parts;
    }

    SplitPart TakePart() override
    {
        SplitPart part{.fBytes = fOutput->Take(), .fHasCharts = std::exchange(fHasCharts, false)};
        ByteOutput outline(part.fOutline);
        fOutline.MoveTo(outline);
        outline.Flush();
        return part;
    }

    void PutPart(const SplitPart& part) override
    {
        Hand(/*flush=*/false);
        fOutput->Write(part.fBytes);
        fOutput->Flush();
        fOutline.Add(part.fOutline);
        fHasCharts = fHasCharts || part.fHasCharts;
    }

private:
    void SetLanguage(const RunStart& start)
    {
        fLanguage = start.fLanguage.empty() ? "en" : start.fLanguage;
    }

    std::string_view Word(std::string_view key) const { return ReportWord(fLanguage, key); }

    // --- nodes ---

    void Append(const TableNode& table, std::string_view)
    {
        const std::string id = NextId('t', fTables);
        AppendTable(fMarkup, table, id, fLanguage);
        AddEntry("table", id, Shown(table.fTitle));
    }

    void Append(const ChartNode& chart, std::string_view body)
    {
        const std::string id = NextId('c', fCharts);
        fHasCharts = true;
        AppendChart(fMarkup, chart, id, fLanguage, body);
        AddEntry("chart", id, chart.fTitle.empty() ? Word("untitled") : chart.fTitle);
    }

    void Append(const ErrorNode& error, std::string_view)
    {
        fMarkup.append("<p class=\"report\">");
        AppendMarkupText(fMarkup, error.fText);
        fMarkup.append("</p>\n");
    }

    /// Headings nest deeper than pages have elements for.
    std::string HeadingElement() const
    {
        return "h" + std::to_string(std::min(kHighestHeading + fDepth, kDeepestHeading));
    }

    std::string_view Shown(const TextRef& text) const
    {
        return text && !text->fShown.empty() ? text->fShown : Word("untitled");
    }

    void AddEntry(std::string_view kind, std::string_view id, std::string_view label)
    {
        fOutline.Open(kind, id, label);
        fOutline.Close();
    }

    std::string NextId(char kind, std::size_t& count) const
    {
        return fIdPrefix + kind + std::to_string(++count);
    }

    // --- the page around them ---

    /// Writes the skeleton from where it was left up to a place, or to its end.
    void WritePageUpTo(std::string_view stop)
    {
        while (!fPage.empty()) {
            const std::size_t open = fPage.find("{{");
            fMarkup.append(fPage.substr(0, open));
            if (open == std::string_view::npos) fPage = {};
            if (fPage.empty()) return;
            const std::size_t close = fPage.find("}}", open);
            const std::string_view place = fPage.substr(open + 2, close - open - 2);
            fPage.remove_prefix(close + 2);
            if (place == stop) return;
            Fill(place);
        }
    }

    struct PlaceRow {
        std::string_view fName;
        void (HtmlWriter::*fFill)();
    };

    void Fill(std::string_view place)
    {
        for (const PlaceRow& row : kPlaces)
            if (row.fName == place) return (this->*row.fFill)();
        AppendMarkupText(fMarkup, Word(place));
    }

    void FillLanguage() { AppendMarkupText(fMarkup, fLanguage); }
    void FillTitle() { AppendMarkupText(fMarkup, fTitle); }
    void FillPolicy() { fMarkup.append(Policy()); }
    void FillStyle() { fMarkup.append(web::kStyle.fText); }
    void FillScript() { fMarkup.append(web::kReport.fText); }

    void FillEntries()
    {
        if (fOutline.IsEmpty()) return;
        fMarkup.append("<ul>\n");
        Hand(/*flush=*/false);
        fOutline.MoveTo(*fOutput);
        fMarkup.append("</ul>\n");
    }

    /// What a reader of an incomplete report has to know; the page shows it above the results.
    void FillNotice()
    {
        const std::vector<std::string> lines = NoticeLines(fEnd, fLanguage);
        if (lines.empty()) return;
        fMarkup.append("<aside class=\"notice\" aria-label=\"").append(Word("notice"));
        fMarkup.append("\">\n");
        for (const std::string& line : lines) {
            fMarkup.append("<p>");
            AppendMarkupText(fMarkup, line);
            fMarkup.append("</p>\n");
        }
        fMarkup.append("</aside>\n");
    }

    void FillFooter()
    {
        if (!fHasCharts) return;
        fMarkup.append("<footer class=\"page-end\"><details><summary>").append(Word("licences"));
        fMarkup.append("</summary>\n<pre>");
        AppendMarkupText(fMarkup, web::kNotices);
        fMarkup.append("</pre></details></footer>\n");
    }

    void FillCharts()
    {
        if (!fHasCharts) return;
        fMarkup.append("<script type=\"application/json\" id=\"chart-themes\">{\"light\":");
        AppendScriptJson(fMarkup, VegaThemeText(VegaTheme::Light));
        fMarkup.append(",\"dark\":");
        AppendScriptJson(fMarkup, VegaThemeText(VegaTheme::Dark));
        fMarkup.append("}</script>\n");
        for (const WebAsset* script : kDrawing) {
            fMarkup.append("<script>");
            Hand(/*flush=*/false);
            fOutput->Write(script->fText);  // large, and needs no gathering
            fMarkup.append("</script>\n");
        }
    }

    static constexpr PlaceRow kPlaces[] = {
        {"language", &HtmlWriter::FillLanguage}, {"title", &HtmlWriter::FillTitle},
        {"policy", &HtmlWriter::FillPolicy},     {"style", &HtmlWriter::FillStyle},
        {"script", &HtmlWriter::FillScript},     {"entries", &HtmlWriter::FillEntries},
        {"notice", &HtmlWriter::FillNotice},     {"footer", &HtmlWriter::FillFooter},
        {"charts", &HtmlWriter::FillCharts},
    };

    /// Markup is gathered for a moment and handed on, so memory doesn't grow with the report.
    void Hand(bool flush = true)
    {
        fOutput->Write(fMarkup);
        fMarkup.clear();
        if (flush) fOutput->Flush();
    }

    static constexpr std::size_t kLargeMarkup = 1U << 16U;

    std::unique_ptr<ByteOutput> fOutput;
    std::string fMarkup;
    std::string fLanguage;
    std::string fTitle;
    std::string_view fPage = web::kPage;  // what is not written yet
    HtmlOutline fOutline;
    RunEnd fEnd;
    std::size_t fDepth = 0;  // of open headings
    bool fHasCharts = false;
    std::string fIdPrefix;      // of the current split
    std::size_t fHeadings = 0;  // for ids, which are never made of labels
    std::size_t fTables = 0;
    std::size_t fCharts = 0;
};

}  // namespace

std::unique_ptr<PartedSink> MakeHtmlWriter(std::unique_ptr<ByteOutput> output)
{
    return std::make_unique<HtmlWriter>(std::move(output));
}

}  // namespace refhost
