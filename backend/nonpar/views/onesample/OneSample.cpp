#include "views/onesample/OneSample.h"

#include "views/onesample/Binomial.h"
#include "views/onesample/ChiSquare.h"
#include "views/onesample/KolmogorovSmirnov.h"
#include "views/onesample/OneSampleRuns.h"
#include "views/onesample/OneSampleWilcoxonSignedRanks.h"

#include "charts/Dispatch.h"

namespace {

using Stats = NOPROutputStats;

/// The view of a record that stands over the distribution of a field.
template <class View, class Record>
void DrawField(const DrawRequest& request)
{
    View view(request.fDictionary, request.fStats, RecordOf<Record>(request.fTest));
    view.SelectField(request.fFieldIndex);
    view.Render(request.fSplitText, request.fAppendSplit);
}

// clang-format off
constexpr ViewRow kViews[] = {
    {kind::kChiSquare,                  DrawRecord<ChiSquare, Stats::HTOChiSquare>},
    {kind::kBinomial,                   DrawRecord<Binomial, Stats::HTOBinomial>},
    {kind::kRuns,                       DrawRecord<OneSampleRuns, Stats::HTORuns>},
    {kind::kOneSampleWilcoxon,          DrawField<OneSampleWilcoxonSignedRanks, Stats::HTOWilcoxonSignedRanks>},
    {kind::kOneSampleKolmogorovSmirnov, DrawField<KolmogorovSmirnov, Stats::BaseHypothesisTest>},
};
// clang-format on

}  // namespace

void OneSample::DrawTest(const NOPROutputStats::BaseHypothesisTest* test, unsigned fieldIndex,
                         const std::string& splitText, bool appendSplit)
{
    DrawFrom(kViews, {fDictionary, fStats, test, splitText, appendSplit, fieldIndex});
}
