#include "views/onesample/OneSample.h"

#include "views/onesample/Binomial.h"
#include "views/onesample/ChiSquare.h"
#include "views/onesample/KolmogorovSmirnov.h"
#include "views/onesample/OneSampleRuns.h"
#include "views/onesample/OneSampleWilcoxonSignedRanks.h"

#include "charts/DispatchGuard.h"
#include "model/RecordOf.h"

namespace {

constexpr KindRange kFamily = {kind::kChiSquare, kind::kOneSampleKolmogorovSmirnov};

}  // namespace

void OneSample::DrawTest(const NOPROutputStats::BaseHypothesisTest* test, unsigned fieldIndex,
                         const std::string& splitText, bool appendSplit)
{
    if (!MayDraw(test, kFamily)) return;

    using Stats = NOPROutputStats;
    switch (test->fTestKind) {
        case kind::kChiSquare: {
            ChiSquare view(fDictionary, fStats, RecordOf<Stats::HTOChiSquare>(test));
            view.Render(splitText, appendSplit);
            break;
        }
        case kind::kBinomial: {
            Binomial view(fDictionary, fStats, RecordOf<Stats::HTOBinomial>(test));
            view.Render(splitText, appendSplit);
            break;
        }
        case kind::kRuns: {
            OneSampleRuns view(fDictionary, fStats, RecordOf<Stats::HTORuns>(test));
            view.Render(splitText, appendSplit);
            break;
        }
        case kind::kOneSampleWilcoxon: {
            OneSampleWilcoxonSignedRanks view(fDictionary, fStats,
                                              RecordOf<Stats::HTOWilcoxonSignedRanks>(test));
            view.SelectField(fieldIndex);
            view.Render(splitText, appendSplit);
            break;
        }
        case kind::kOneSampleKolmogorovSmirnov: {
            KolmogorovSmirnov view(fDictionary, fStats, test);
            view.SelectField(fieldIndex);
            view.Render(splitText, appendSplit);
            break;
        }
        default:  // an estimated interval has no chart
            break;
    }
}
