#include "views/independent/IndependentSamples.h"

#include "charts/Dispatch.h"
#include "views/independent/IJonckheere_Terpstra.h"
#include "views/independent/IMedian.h"
#include "views/independent/IMoses.h"
#include "views/independent/ISHistogram.h"
#include "views/independent/KruskalWallis.h"

namespace {

using Stats = NOPROutputStats;

// clang-format off
constexpr ViewRow kViews[] = {
    {kind::kMoses,                      DrawRecord<IMoses, Stats::HTIMoses>},
    {kind::kMannWhitney,                DrawRecord<ISHistogram, Stats::HTIMannWhitneyU>},
    {kind::kWaldWolfowitz,              DrawRecord<ISHistogram, Stats::HTIWaldWolfowitzRuns>},
    {kind::kTwoSampleKolmogorovSmirnov, DrawRecord<ISHistogram, Stats::HTIKolmogorovSmirnov>},
    {kind::kKruskalWallis,              DrawRecord<KruskalWallis, Stats::HTIKruskalWallis>},
    {kind::kJonckheereTerpstra,         DrawRecord<IJonckheere_Terpstra, Stats::HTIJonckheereTerpstra>},
    {kind::kMedian,                     DrawRecord<IMedian, Stats::HTIMedian>},
};
// clang-format on

}  // namespace

void IndependentSamples::DrawTest(const NOPROutputStats::BaseHypothesisTest* test,
                                  const std::string& splitText, bool appendSplit)
{
    DrawFrom(kViews, {fDictionary, fStats, test, splitText, appendSplit});
}
