#pragma once

#include <memory>
#include <string>
#include <vector>

#include "host/command/CommandSpec.h"

namespace refhost {

struct ParameterData {
    std::string fName;
    std::vector<std::string> fVariables;
};

struct SubcommandData {
    std::string fName;
    std::vector<ParameterData> fParameters;
};

/// A parsed command. Of two subcommands or parameters of one name, the first counts.
std::unique_ptr<CommandSpec> MakeCommand(const std::vector<SubcommandData>& subcommands);

}  // namespace refhost
