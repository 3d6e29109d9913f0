#pragma once

#include <memory>
#include <string>
#include <unordered_map>

#include "host/pivot/BpCellText.h"

class BpProcedure;
class QORT_DataSource;

namespace refhost {

/// The output procedure of the current run: it writes through the run's `OutputBuilder`, at its
/// top. As long as it lives, formats that follow a variable find it in `source`, which may be null.
/// One at a time.
std::unique_ptr<BpProcedure> MakeProcedure(const QORT_DataSource* source);

/// The data of the procedure that is alive; null where there is none.
const QORT_DataSource* FormatDataSource();

/// Texts by the keys that gave them.
using KeptTexts = std::unordered_map<std::string, std::shared_ptr<BpCellText::Impl>>;

/// What the latest procedure keeps of the text table; null without a procedure.
KeptTexts* TextsOfRun();

}  // namespace refhost
