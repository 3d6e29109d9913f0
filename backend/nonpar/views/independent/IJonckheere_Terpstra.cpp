#include "views/independent/IJonckheere_Terpstra.h"

#include "charts/ChartWords.h"
#include "charts/ViewSteps.h"

IJonckheere_Terpstra::IJonckheere_Terpstra(const FacSTDictionary* dictionary,
                                           const NOPROutputStats* stats,
                                           const NOPROutputStats::HTIJonckheereTerpstra* test)
    : Boxplot(dictionary, stats)
{
    SetTitle(LookUpText(dictionary,
                        "Independent-Samples Jonckheere-Terpstra Test for Ordered Alternatives"));
    if (!test) return;
    SetBoxPlot(&test->fBoxPlot);
    SetCondition(&test->fCondition);
}
