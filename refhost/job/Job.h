#pragma once

#include <memory>
#include <string>
#include <vector>

#include "host/command/CommandSpec.h"
#include "host/data/OBS.h"
#include "host/data/QORT_DataSource.h"

namespace refhost {

/// One split of a job: the result document's file, and how the split is told.
struct JobSplit {
    std::string fDocument;
    std::vector<int> fVariables;  ///< indices in the job's data source
    std::vector<OBS> fValues;     ///< parallel to `fVariables`; dates in the document's unit
    bool fAsHeading = true;
};

/// A job: the data that its documents speak of, the command that computed them, and the splits.
struct Job {
    std::string fTitle;
    std::unique_ptr<ProcedureDataSource> fDataSource;
    std::unique_ptr<CommandSpec> fCommand;
    int fExtraVariable = -1;  ///< negative: none
    std::vector<int> fExtraVariables;
    std::vector<JobSplit> fSplits;  ///< at least one
};

}  // namespace refhost
