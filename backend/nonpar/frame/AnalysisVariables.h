#pragma once

#include <vector>

class CommandDescriptor;
class CommandSpec;
class QORT_DataSource;

/// Appends the indices of the variables that a command tests or groups by, in the order of its
/// subcommands. Names that don't validate are left out, without a report.
void AppendCommandVariables(const CommandSpec& spec, const CommandDescriptor& descriptor,
                            const QORT_DataSource* dataSource, std::vector<int>& variables);

/// Sorts ascending and leaves each index once.
void SortEachOnce(std::vector<int>& variables);
