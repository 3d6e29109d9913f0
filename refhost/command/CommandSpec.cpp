#include "host/command/CommandSpec.h"

#include <unordered_map>
#include <utility>

#include "refhost/command/CommandData.h"

namespace {

template <class Object>
const Object* FindByName(const std::unordered_map<std::string, Object>& objects, const char* name)
{
    const auto found = name ? objects.find(name) : objects.end();
    return found == objects.end() ? nullptr : &found->second;
}

}  // namespace

ParamObj::ParamObj(std::vector<QortVarName> names) : fNames(std::move(names)) {}

void ParamObj::getVarList(std::vector<QortVarName>& names) const { names = fNames; }

QortVarName ParamObj::getVarName() const { return fNames.empty() ? QortVarName() : fNames.front(); }

class SubComObj::Impl {
public:
    explicit Impl(const refhost::SubcommandData& data)
    {
        for (const refhost::ParameterData& parameter : data.fParameters)
            fParameters.emplace(
                parameter.fName,
                std::vector<QortVarName>(parameter.fVariables.begin(), parameter.fVariables.end()));
    }

    std::unordered_map<std::string, ParamObj> fParameters;
};

SubComObj::SubComObj(std::unique_ptr<Impl> impl) : fImpl(std::move(impl)) {}

SubComObj::~SubComObj() = default;

const ParamObj* SubComObj::getParamObj(const char* name) const
{
    return FindByName(fImpl->fParameters, name);
}

class CommandSpec::Impl {
public:
    explicit Impl(const std::vector<refhost::SubcommandData>& subcommands)
    {
        for (const refhost::SubcommandData& data : subcommands)
            fSubcommands.try_emplace(data.fName, std::make_unique<SubComObj::Impl>(data));
    }

    std::unordered_map<std::string, SubComObj> fSubcommands;
};

CommandSpec::CommandSpec(std::unique_ptr<Impl> impl) : fImpl(std::move(impl)) {}

CommandSpec::~CommandSpec() = default;

const SubComObj* CommandSpec::getSubComObj(const char* name) const
{
    return FindByName(fImpl->fSubcommands, name);
}

std::unique_ptr<CommandSpec> refhost::MakeCommand(const std::vector<SubcommandData>& subcommands)
{
    return std::make_unique<CommandSpec>(std::make_unique<CommandSpec::Impl>(subcommands));
}
