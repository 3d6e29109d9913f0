#pragma once

#include <string>
#include <vector>

#include "host/framework/CFProcCustom.h"

/// The procedure object that the host drives: the output step of the nonparametric tests.
class NOPRProcCustom : public CFProcCustom {
public:
    NOPRProcCustom();
    NOPRProcCustom(BpProcedure* procedure, ProcedureDataSource* dataSource);
    NOPRProcCustom(const NOPRProcCustom&);
    NOPRProcCustom& operator=(const NOPRProcCustom&);
    ~NOPRProcCustom() override;

    /// Always true. Names that don't validate are left out; with nothing collected the analysis
    /// variables stay as they were.
    bool CollectAnalysisVariables(const CommandSpec* spec,
                                  const CommandDescriptor* descriptor) override;

    /// False at the first split whose document can't be read; later ones are not tried.
    bool ProcessSplits(std::vector<std::string>& vPMMLStr,
                       const std::vector<SplitResult>& splits) override;

    /// A split whose document can't be read writes nothing.
    bool ProcessSplit(std::string& scratch, const SplitResult& split) override;
};

/// A new procedure object, which the caller owns; null where there is no memory for one.
extern "C" __attribute__((visibility("default"))) CFProcCustom* GetCFProcCustom();
