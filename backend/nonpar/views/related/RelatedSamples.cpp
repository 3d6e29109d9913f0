#include "views/related/RelatedSamples.h"

#include "charts/Dispatch.h"
#include "views/related/MarginalHomogeneity.h"
#include "views/related/RSCochransQ.h"
#include "views/related/RSHistogram.h"
#include "views/related/RSMcNemarChangeTestView.h"
#include "views/related/RSPairedDifferences.h"

namespace {

using Stats = NOPROutputStats;

template <class Record>
void DrawDifferences(const DrawRequest& request)
{
    const Record* test = RecordOf<Record>(request.fTest);
    if (!test) return;
    RSPairedDifferences view(request.fDictionary, request.fStats, &test->fCounts, test,
                             test->fTestKind);
    view.Render(request.fSplitText, request.fAppendSplit);
}

template <class View, class Record>
void DrawComparison(const DrawRequest& request)
{
    const Record* test = RecordOf<Record>(request.fTest);
    View view(request.fStats, test ? &test->fComparison : nullptr, request.fDictionary);
    view.Render(request.fSplitText, request.fAppendSplit);
}

// clang-format off
constexpr ViewRow kViews[] = {
    {kind::kSign,                DrawDifferences<Stats::HTRSign>},
    {kind::kPairedWilcoxon,      DrawDifferences<Stats::HTRWilcoxonSignedRanks>},
    {kind::kCochran,             DrawRecord<RSCochransQ, Stats::HTRCochransQ>},
    {kind::kMcNemar,             DrawComparison<RSMcNemarChangeTestView, Stats::HTRMcNemar>},
    {kind::kFriedman,            DrawRecord<RSHistogram, Stats::HTRFriedmansTwoWayByRanks>},
    {kind::kKendall,             DrawRecord<RSHistogram, Stats::HTRKendallsCoefficient>},
    {kind::kMarginalHomogeneity, DrawComparison<MarginalHomogeneity, Stats::HTRMarginalHomogeneity>},
};
// clang-format on

}  // namespace

void RelatedSamples::DrawTest(const NOPROutputStats::BaseHypothesisTest* test,
                              const std::string& splitText, bool appendSplit)
{
    DrawFrom(kViews, {fDictionary, fStats, test, splitText, appendSplit});
}
