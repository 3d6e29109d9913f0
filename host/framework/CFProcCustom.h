#pragma once

#include <string>
#include <vector>

class BpProcedure;
class CommandDescriptor;
class CommandSpec;
class ProcedureDataSource;
class QORT_DataSource;
struct SplitResult;

/// A procedure of the host. The order of the virtual operations is part of the contract.
class CFProcCustom {
public:
    CFProcCustom();
    CFProcCustom(BpProcedure* procedure, ProcedureDataSource* dataSource);
    CFProcCustom(const CFProcCustom&);
    CFProcCustom& operator=(const CFProcCustom&);
    virtual ~CFProcCustom();

    /// Tells the host which variables a parsed command touches; they stand in
    /// `GetAnalysisVariables` afterwards. True when the call went through.
    virtual bool CollectAnalysisVariables(const CommandSpec* spec,
                                          const CommandDescriptor* descriptor);

    /// Writes the output of all splits, in order, up to the first whose document can't be read.
    /// `vPMMLStr` must be empty, and there must be a split.
    virtual bool ProcessSplits(std::vector<std::string>& vPMMLStr,
                               const std::vector<SplitResult>& splits);

    /// Writes the output of one split; false when its document could not be read.
    virtual bool ProcessSplit(std::string& scratch, const SplitResult& split);

    virtual void SetStatJSON(const std::vector<std::string>& documents);
    virtual bool ProcessOutputJSON();

    /// What the host sets on an object made by the default constructor before it calls any virtual
    /// operation. Nothing of it is owned by this object.
    void Attach(BpProcedure* procedure, const QORT_DataSource* dataSource);

    /// Variable indices that the host wants among the analysis variables; a negative
    /// `extraVariable` stands for none.
    void SetExtraVariables(int extraVariable, std::vector<int> extraVariables);

    /// Variable indices, ascending, each once; empty where nothing was collected.
    const std::vector<int>& GetAnalysisVariables() const;

protected:
    /// The output procedure: tables and headings hang under it; it is the top heading too.
    BpProcedure* fProcedure = nullptr;
    const QORT_DataSource* fDataSource = nullptr;
    std::vector<int> fAnalysisVariables;
    int fExtraVariable = -1;
    std::vector<int> fExtraVariables;
};
