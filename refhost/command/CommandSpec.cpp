#include "host/command/CommandSpec.h"

#include "refhost/command/CommandData.h"

class SubComObj::Impl {
public:
    std::map<std::string, ParamObj> fParameters;
};

class CommandSpec::Impl {
public:
    std::map<std::string, SubComObj> fSubcommands;
};

namespace {

template <class Map>
const typename Map::mapped_type* Find(const Map& map, const char* name)
{
    const auto found = map.find(name);
    return found == map.end() ? nullptr : &found->second;
}

}  // namespace

ParamObj::ParamObj(std::vector<QortVarName> names) : fNames(std::move(names)) {}

void ParamObj::getVarList(std::vector<QortVarName>& names) const { names = fNames; }

QortVarName ParamObj::getVarName() const
{
    return fNames.empty() ? QortVarName() : fNames.front();
}

SubComObj::SubComObj(std::unique_ptr<Impl> impl) : fImpl(std::move(impl)) {}
SubComObj::~SubComObj() = default;

const ParamObj* SubComObj::getParamObj(const char* name) const
{
    return Find(fImpl->fParameters, name);
}

CommandSpec::CommandSpec(std::unique_ptr<Impl> impl) : fImpl(std::move(impl)) {}
CommandSpec::~CommandSpec() = default;

const SubComObj* CommandSpec::getSubComObj(const char* name) const
{
    return Find(fImpl->fSubcommands, name);
}

namespace refhost {

std::unique_ptr<CommandSpec> MakeCommand(const CommandData& data)
{
    auto command = std::make_unique<CommandSpec::Impl>();
    for (const auto& [subcommand, parameters] : data) {
        auto held = std::make_unique<SubComObj::Impl>();
        for (const auto& [parameter, names] : parameters)
            held->fParameters.emplace(parameter,
                                      ParamObj(std::vector<QortVarName>(names.begin(), names.end())));
        command->fSubcommands.try_emplace(subcommand, std::move(held));
    }
    return std::make_unique<CommandSpec>(std::move(command));
}

}  // namespace refhost
