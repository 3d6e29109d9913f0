#include "charts/DispatchGuard.h"

#include "model/NOPRTestRecords.h"
#include "model/TestQueries.h"

bool MayDraw(const NOPROutputStats::BaseHypothesisTest* test, KindRange family)
{
    if (!test || CountErrors(test->fMessages) != 0) return false;
    return family.fFirst <= test->fTestKind && test->fTestKind <= family.fLast;
}
