#include <utility>

#include "reader/NOPRXMLGeneral.h"
#include "reader/ReaderSteps.h"

#include "model/NOPRTestRecords.h"

#include "host/framework/Conversions.h"

namespace {

using Message = NOPROutputStats::WarningMessage;

void SetAttribute(XMLAttribute& attribute, Message& entry)
{
    if (attribute.fName == "code")
        entry.fCode = String2Integer(attribute.fValue);
    else if (attribute.fName == "type")
        entry.fType = MessageTypeFromName(attribute.fValue);
    else if (attribute.fName == "paramNum")
        entry.fCount = String2Integer(attribute.fValue);
    else if (attribute.fName == "group")
        entry.fGroup = std::move(attribute.fValue);
    else
        AppendParameter(attribute, entry.fParameters);
}

}  // namespace

bool ReadMessages(const SDOMXMLWrapper& element,
                  std::vector<NOPROutputStats::WarningMessage>& messages)
{
    StructuredTableData data;
    const bool isRead = ReadStructuredTable(element, data);
    messages.resize(data.fStrucTables.size());
    for (std::size_t index = 0; index < messages.size(); ++index) {
        Message& entry = messages[index];
        for (XMLAttribute& attribute : data.fStrucTables[index].fAttributes)
            SetAttribute(attribute, entry);
        if (!std::cmp_equal(entry.fCount, entry.fParameters.size())) return false;
    }
    return isRead;
}
