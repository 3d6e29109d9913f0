#include "charts/Dispatch.h"

#include "model/TestQueries.h"

void DrawFrom(std::span<const ViewRow> rows, const DrawRequest& request)
{
    if (!request.fTest || CountErrors(request.fTest->fMessages) != 0) return;
    for (const ViewRow& row : rows)
        if (row.fKind == request.fTest->fTestKind) row.fDraw(request);
}
