#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

class CommandSpec;

namespace refhost {

/// What a parsed command holds: subcommand, parameter, the names that it lists.
using CommandData = std::map<std::string, std::map<std::string, std::vector<std::string>>>;

std::unique_ptr<CommandSpec> MakeCommand(const CommandData& data);

}  // namespace refhost
