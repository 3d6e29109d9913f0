#include "views/independent/IndependentSamples.h"

#include "charts/DispatchGuard.h"
#include "model/RecordOf.h"
#include "views/independent/IJonckheere_Terpstra.h"
#include "views/independent/IMedian.h"
#include "views/independent/IMoses.h"
#include "views/independent/ISHistogram.h"
#include "views/independent/KruskalWallis.h"

namespace {

using Stats = NOPROutputStats;
using DrawView = void (*)(const FacSTDictionary*, const NOPROutputStats*,
                          const Stats::BaseHypothesisTest*, const std::string&, bool);

template <class View, class Record>
void Draw(const FacSTDictionary* dictionary, const NOPROutputStats* stats,
          const Stats::BaseHypothesisTest* test, const std::string& splitText, bool appendSplit)
{
    View view(dictionary, stats, RecordOf<Record>(test));
    view.Render(splitText, appendSplit);
}

struct ViewRow {
    TestKind fKind;
    DrawView fDraw;
};

// clang-format off
constexpr ViewRow kViews[] = {
    {kind::kMoses,                       Draw<IMoses, Stats::HTIMoses>},
    {kind::kMannWhitney,                 Draw<ISHistogram, Stats::HTIMannWhitneyU>},
    {kind::kWaldWolfowitz,               Draw<ISHistogram, Stats::HTIWaldWolfowitzRuns>},
    {kind::kTwoSampleKolmogorovSmirnov,  Draw<ISHistogram, Stats::HTIKolmogorovSmirnov>},
    {kind::kKruskalWallis,               Draw<KruskalWallis, Stats::HTIKruskalWallis>},
    {kind::kJonckheereTerpstra,          Draw<IJonckheere_Terpstra, Stats::HTIJonckheereTerpstra>},
    {kind::kMedian,                      Draw<IMedian, Stats::HTIMedian>},
};
// clang-format on

}  // namespace

void IndependentSamples::DrawTest(const NOPROutputStats::BaseHypothesisTest* test,
                                  const std::string& splitText, bool appendSplit)
{
    if (!MayDraw(test, {kind::kMoses, kind::kMedian})) return;
    for (const ViewRow& row : kViews)
        if (row.fKind == test->fTestKind)
            row.fDraw(fDictionary, fStats, test, splitText, appendSplit);
}
