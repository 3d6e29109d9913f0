#include "views/independent/IJonckheere_Terpstra.h"

IJonckheere_Terpstra::IJonckheere_Terpstra(const FacSTDictionary* dictionary,
                                           const NOPROutputStats* stats,
                                           const NOPROutputStats::HTIJonckheereTerpstra* test)
    : Boxplot(dictionary, stats)
{
    SetTest("Independent-Samples Jonckheere-Terpstra Test for Ordered Alternatives", test);
}
