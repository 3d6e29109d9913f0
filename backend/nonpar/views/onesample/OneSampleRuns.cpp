#include "views/onesample/OneSampleRuns.h"

#include "charts/ChartWords.h"
#include "charts/NumberText.h"
#include "charts/TemplateText.h"
#include "charts/ViewSteps.h"
#include "model/NOPRTestRecords.h"
#include "model/Positions.h"

#include "host/chart/XDocument.h"
#include "host/chart/XGraph.h"

namespace {

constexpr char kTitle[] = "One-Sample Runs Test";
constexpr char kTemplate[] = "NPAROneSampleRunsTest.viztemplate";

/// A number of the template with a placeholder of fixed width, found by the text before it.
struct Placeholder {
    std::string_view fMark;
    std::size_t fOffset;
    std::size_t fWidth;
};

// The two line guides are told apart by their old values, which belong to their marks.
constexpr Placeholder kRangeMaximum = {"<range max=\"", 12, 3};
constexpr Placeholder kCurveMean = {"parameter=\"", 11, 2};
constexpr Placeholder kCurveSpread = {"secondaryParameter=\"", 20, 1};
constexpr Placeholder kObservedGuide = {"<lineGuide x=\"20", 14, 2};
constexpr Placeholder kMeanGuide = {"<lineGuide x=\"500", 14, 3};

/// The top edge of the graph, which makes room for a subtitle.
constexpr char kTopWithoutSubtitle[] = "10%";
constexpr char kTopWithSubtitle[] = "15%";

void Fill(std::string& text, const Placeholder& placeholder, const ChartString& number)
{
    OverwriteBehind(text, placeholder.fMark, placeholder.fOffset, placeholder.fWidth,
                    number.toUTF8());
}

}  // namespace

struct OneSampleRuns::State {
    const FacSTDictionary* fDictionary;
    const NOPROutputStats::HTORuns* fTest;
};

OneSampleRuns::OneSampleRuns(const FacSTDictionary* dictionary, const NOPROutputStats* /*stats*/,
                             const NOPROutputStats::HTORuns* test)
    : fState(std::make_unique<State>(State{dictionary, test}))
{
}

OneSampleRuns::~OneSampleRuns() = default;

bool OneSampleRuns::Render(const std::string& splitText, bool appendSplit)
try {
    if (!fState->fTest) return false;

    std::string text = XDocument::fetchTemplateFile(kTemplate);
    if (text.empty()) return false;
    EditTemplate(text, !splitText.empty());

    XDocument document(text);
    PrepareDocument(document);
    const ChartString title = LookUpText(fState->fDictionary, kTitle);
    SetTitles(document.getExternalGraph(), title, splitText);

    const ChartString description = Description(title, splitText, appendSplit);
    document.SetDescription(description.xc_str());
    document.applyCTemplate(false);
    return Send(document);
} catch (...) {
    return false;
}

void OneSampleRuns::EditTemplate(std::string& text, bool hasSplit) const
{
    const NOPROutputStats::HTORuns& test = *fState->fTest;
    const FacSTDictionary* dictionary = fState->fDictionary;
    const ChartString mean = ExactText(test.fMean);
    const ChartString observed = ExactText(test.fObservedRunNumber);
    ChartString observedText = LookUpText(dictionary, "Observed Number of Runs = ^1");
    FillPlace(observedText, observed);

    Fill(text, kRangeMaximum, IntegerText(CutToInt(2.0 * test.fMean)));
    Fill(text, kCurveMean, mean);
    Fill(text, kCurveSpread, ExactText(test.fStdDev));
    Fill(text, kObservedGuide, observed);
    ReplaceToken(text, "ObservedRunsText", observedText.toUTF8());
    Fill(text, kMeanGuide, mean);
    ReplaceTokenByWord(text, "TooFewRuns", dictionary, "Too few runs");
    ReplaceTokenByWord(text, "TooManyRuns", dictionary, "Too many runs");
    if (hasSplit) ReplaceToken(text, kTopWithoutSubtitle, kTopWithSubtitle);
}
