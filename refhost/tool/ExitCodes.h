#pragma once

namespace refhost {

/// What the tool's exit codes mean.
enum ExitCode : int {
    kExitDone = 0,        ///< every split went through
    kExitUnreadable = 1,  ///< a result document could not be read; earlier splits are in the output
    kExitWrong = 2,       ///< the job, an option or a file is wrong, output can't be written, or
                          ///< memory ran out
    kExitInvariant =
        3,  ///< a document broke an invariant; what was written before is in the output
    kExitInterrupted = 130  ///< stopped by the user; what was written until then is in the output
};

}  // namespace refhost
