#include "fuzz/targets/FuzzTargets.h"
#include "fuzz/targets/HostData.h"
#include "fuzz/targets/SplitRun.h"

namespace fuzz {

void RunDocument(std::string_view input)
{
    SplitResult split = MakeSplit(input.size());  // any way to choose one that a case repeats
    split.fDocument = input;
    WriteInAllFormats(HostData(), split);
}

}  // namespace fuzz
