#pragma once

#include <memory>
#include <string>
#include <vector>

/// A variable's name as it stands in a command.
class QortVarName {
public:
    QortVarName() = default;
    explicit QortVarName(std::string name) : fName(static_cast<std::string&&>(name)) {}
    bool IsEmpty() const { return fName.empty(); }
    const std::string& GetName() const { return fName; }

private:
    std::string fName;
};

/// A parameter of a subcommand. It belongs to the command.
class ParamObj {
public:
    explicit ParamObj(std::vector<QortVarName> names);

    /// Replaces `names` by the names that the parameter lists.
    void getVarList(std::vector<QortVarName>& names) const;

    /// The one name of the parameter; empty where it has none.
    QortVarName getVarName() const;

private:
    std::vector<QortVarName> fNames;
};

/// A subcommand. It belongs to the command.
class SubComObj {
public:
    class Impl;
    explicit SubComObj(std::unique_ptr<Impl> impl);
    ~SubComObj();

    /// Null where the subcommand has no such parameter.
    const ParamObj* getParamObj(const char* name) const;

private:
    std::unique_ptr<Impl> fImpl;
};

/// A parsed command. The host owns it.
class CommandSpec {
public:
    class Impl;
    explicit CommandSpec(std::unique_ptr<Impl> impl);
    ~CommandSpec();

    /// Null where the command has no such subcommand.
    const SubComObj* getSubComObj(const char* name) const;

private:
    std::unique_ptr<Impl> fImpl;
};
