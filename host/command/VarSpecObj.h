#pragma once

#include <memory>
#include <vector>

class QORT_DataSource;
class QortVarName;

/// What the host's parser knows of a command's form.
class CommandDescriptor {};

/// How names that stand twice in a list are taken; 3 keeps each where it stands.
enum class RepeatVarOptions : int { Keep = 3 };

/// Validates the names of a parameter against the data source.
class VarSpecObj {
public:
    VarSpecObj(const char* parameter, const char* subcommand, const CommandDescriptor& descriptor,
               const QORT_DataSource* dataSource, bool allowNew);
    ~VarSpecObj();
    VarSpecObj(const VarSpecObj&) = delete;
    VarSpecObj& operator=(const VarSpecObj&) = delete;

    /// False: a name that does not validate raises no report.
    void SetErrorReport(bool report);

    /// True when every name is that of a variable; otherwise none counts.
    bool ValidateVariables(const std::vector<QortVarName>& names, RepeatVarOptions repeats);

    /// The indices of the last successful `ValidateVariables`, in the order of the names.
    const std::vector<int>& GetValidVarList() const;

    /// The index of one variable; negative where there is none of that name.
    int ValidateVariable(const QortVarName& name);

private:
    class Impl;
    std::unique_ptr<Impl> fImpl;
};
