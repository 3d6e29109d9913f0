#include "frame/NOPRProcCustom.h"

#include <memory>
#include <new>

#include "frame/AnalysisVariables.h"

#include "model/NOPROutputStats.h"
#include "output/NOPROutput.h"
#include "reader/NOPRParseOutXML.h"

#include "host/framework/Assertion.h"
#include "host/framework/CFMetaData.h"
#include "host/framework/SplitResult.h"
#include "host/pivot/BpProcedure.h"

NOPRProcCustom::NOPRProcCustom() = default;

NOPRProcCustom::NOPRProcCustom(BpProcedure* procedure, ProcedureDataSource* dataSource)
    : CFProcCustom(procedure, dataSource)
{
}

NOPRProcCustom::NOPRProcCustom(const NOPRProcCustom&) = default;
NOPRProcCustom& NOPRProcCustom::operator=(const NOPRProcCustom&) = default;
NOPRProcCustom::~NOPRProcCustom() = default;

bool NOPRProcCustom::CollectAnalysisVariables(const CommandSpec* spec,
                                              const CommandDescriptor* descriptor)
{
    if (!spec || !descriptor) return true;

    std::vector<int> variables = fExtraVariables;
    if (fExtraVariable >= 0) variables.push_back(fExtraVariable);
    AppendCommandVariables(*spec, *descriptor, fDataSource, variables);
    if (variables.empty()) return true;
    SortEachOnce(variables);
    fAnalysisVariables = variables;
    return true;
}

bool NOPRProcCustom::ProcessSplits(std::vector<std::string>& vPMMLStr,
                                   const std::vector<SplitResult>& splits)
{
    CFAssert(vPMMLStr.empty(), "vPMMLStr.size() == 0");
    const std::size_t nSplits = splits.size();
    CFAssert(nSplits > 0, "nSplits > 0");

    std::string scratch;
    for (const SplitResult& split : splits) {
        if (!ProcessSplit(scratch, split)) return false;
    }
    return true;
}

bool NOPRProcCustom::ProcessSplit(std::string& /*scratch*/, const SplitResult& split)
{
    NOPROutputStats stats;
    stats.SetDataSource(fDataSource);
    stats.SetSplit(&split);
    NOPRParseOutXML reader(fDataSource, &stats, &split.fDocument);
    if (!reader.Read()) return false;

    std::unique_ptr<BpHeading> heading = stats.SplitHeading(fProcedure);
    BpHeading* top = heading ? heading.get() : fProcedure;
    NOPROutput output(fProcedure, top, fDataSource, &stats);
    output.Run();
    heading.reset();  // the split's output is complete
    return true;
}

extern "C" CFProcCustom* GetCFProcCustom() { return new (std::nothrow) NOPRProcCustom(); }
