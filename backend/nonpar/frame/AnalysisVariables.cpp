#include "frame/AnalysisVariables.h"

#include <algorithm>

#include "host/command/CommandSpec.h"
#include "host/command/VarSpecObj.h"

namespace {

constexpr char kTest[] = "TEST";
constexpr char kGroup[] = "GROUP";
constexpr bool kAllowNew = false;
constexpr bool kReportErrors = false;

struct Subcommand {
    const char* fName;
    bool fHasGroup;
};

// clang-format off
constexpr Subcommand kSubcommands[] = {
    {"ONESAMPLE",   false},
    {"INDEPENDENT", true},
    {"RELATED",     false},
};
// clang-format on

/// What validates the names of one command.
struct Validation {
    const CommandDescriptor& fDescriptor;
    const QORT_DataSource* fDataSource;
};

/// All names of the parameter count, or none.
void AppendTestVariables(const SubComObj& subcommand, const char* name,
                         const Validation& validation, std::vector<int>& variables)
{
    const ParamObj* parameter = subcommand.getParamObj(kTest);
    if (!parameter) return;

    std::vector<QortVarName> names;
    parameter->getVarList(names);
    VarSpecObj validator(kTest, name, validation.fDescriptor, validation.fDataSource, kAllowNew);
    validator.SetErrorReport(kReportErrors);
    if (names.empty() || !validator.ValidateVariables(names, RepeatVarOptions::Keep)) return;
    const std::vector<int>& valid = validator.GetValidVarList();
    variables.insert(variables.end(), valid.begin(), valid.end());
}

void AppendGroupVariable(const SubComObj& subcommand, const char* name,
                         const Validation& validation, std::vector<int>& variables)
{
    const ParamObj* parameter = subcommand.getParamObj(kGroup);
    if (!parameter) return;

    const QortVarName group = parameter->getVarName();
    VarSpecObj validator(kGroup, name, validation.fDescriptor, validation.fDataSource, kAllowNew);
    validator.SetErrorReport(kReportErrors);
    if (group.IsEmpty()) return;
    const int variable = validator.ValidateVariable(group);
    if (variable >= 0) variables.push_back(variable);
}

}  // namespace

void AppendCommandVariables(const CommandSpec& spec, const CommandDescriptor& descriptor,
                            const QORT_DataSource* dataSource, std::vector<int>& variables)
{
    const Validation validation{descriptor, dataSource};
    for (const Subcommand& row : kSubcommands) {
        const SubComObj* subcommand = spec.getSubComObj(row.fName);
        if (!subcommand) continue;
        AppendTestVariables(*subcommand, row.fName, validation, variables);
        if (row.fHasGroup) AppendGroupVariable(*subcommand, row.fName, validation, variables);
    }
}

void SortEachOnce(std::vector<int>& variables)
{
    std::sort(variables.begin(), variables.end());
    variables.erase(std::unique(variables.begin(), variables.end()), variables.end());
}
