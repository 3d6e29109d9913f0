#include "output/NOPROutput.h"
#include "output/TableParts.h"

#include "model/TestQueries.h"

#include "host/framework/Conversions.h"
#include "host/pivot/BpPivotTable.h"
#include "host/pivot/BpProcedure.h"

void NOPROutput::MessageCellNotes(BpCategory category, const Messages& messages)
{
    for (const auto& message : messages) {
        if (!IsPairMessage(message.fCode)) category.CellNote(MessageNote(message));
    }
}

BpAnnotation NOPROutput::MessageNote(const NOPROutputStats::WarningMessage& message)
{
    const std::string key = Integer2String(message.fCode);
    if (message.fParameters.empty()) return LookupNote(key);

    BpComposite text(key, kLookup);
    for (const auto& parameter : message.fParameters) {
        if (parameter.fValues.empty()) continue;  // takes no place
        const double value = parameter.fValues.front();
        text.Add(BpNumber(value, BpProcedure::CountOrCoefficent(value)));
    }
    text.Finish();
    return BpAnnotation(text);
}
