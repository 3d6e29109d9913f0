#pragma once

#include <memory>
#include <string>
#include <vector>

#include "host/data/OBS.h"
#include "host/data/QORT_DataSource.h"
#include "host/data/QORT_Format.h"

namespace refhost {

struct ValueLabel {
    OBS fValue;  ///< a string is padded; a date is in the unit of result documents
    std::string fLabel;
};

/// What a variable of the host is made from.
struct VariableData {
    std::string fName;
    std::string fLabel;  ///< empty: the name stands for it
    bool fIsString = false;
    QORT_Format fFormat;
    std::vector<ValueLabel> fValueLabels;  ///< of two for one value, the first counts
};

/// The variables, in their order. Where two bear one name, the first is found by it.
std::unique_ptr<ProcedureDataSource> MakeDataSource(std::vector<VariableData> variables);

}  // namespace refhost
