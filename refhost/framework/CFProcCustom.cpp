#include "host/framework/CFProcCustom.h"

#include <utility>

#include "host/data/QORT_DataSource.h"

CFProcCustom::CFProcCustom() = default;

CFProcCustom::CFProcCustom(BpProcedure* procedure, ProcedureDataSource* dataSource)
    : fProcedure(procedure), fDataSource(dataSource)
{
}

CFProcCustom::CFProcCustom(const CFProcCustom&) = default;

CFProcCustom& CFProcCustom::operator=(const CFProcCustom&) = default;

CFProcCustom::~CFProcCustom() = default;

// A procedure that leaves these as they are touches no variable and writes nothing.

bool CFProcCustom::CollectAnalysisVariables(const CommandSpec*, const CommandDescriptor*)
{
    return true;
}

bool CFProcCustom::ProcessSplits(std::vector<std::string>&, const std::vector<SplitResult>&)
{
    return false;
}

bool CFProcCustom::ProcessSplit(std::string&, const SplitResult&) { return false; }

// No procedure of this host takes its results as JSON.

void CFProcCustom::SetStatJSON(const std::vector<std::string>&) {}

bool CFProcCustom::ProcessOutputJSON() { return false; }

void CFProcCustom::Attach(BpProcedure* procedure, const QORT_DataSource* dataSource)
{
    fProcedure = procedure;
    fDataSource = dataSource;
}

void CFProcCustom::SetExtraVariables(int extraVariable, std::vector<int> extraVariables)
{
    fExtraVariable = extraVariable;
    fExtraVariables = std::move(extraVariables);
}

const std::vector<int>& CFProcCustom::GetAnalysisVariables() const { return fAnalysisVariables; }
