#pragma once

#include <memory>

class BpProcedure;
class QORT_DataSource;

namespace refhost {

/// The output procedure of the current run: it writes through the run's `OutputBuilder`, at its
/// top. As long as it lives, formats that follow a variable find it in `source`, which may be null.
/// One at a time.
std::unique_ptr<BpProcedure> MakeProcedure(const QORT_DataSource* source);

/// The data of the procedure that is alive; null where there is none.
const QORT_DataSource* FormatDataSource();

}  // namespace refhost
