#include "host/command/VarSpecObj.h"

#include "host/command/CommandSpec.h"
#include "host/data/QORT_DataSource.h"

class VarSpecObj::Impl {
public:
    const QORT_DataSource* fDataSource;
    std::vector<int> fValid;
};

/// The reference host's commands are parsed by the time they come here, so what remains of the
/// parser's knowledge is the data source.
VarSpecObj::VarSpecObj(const char* /*parameter*/, const char* /*subcommand*/,
                       const CommandDescriptor& /*descriptor*/, const QORT_DataSource* dataSource,
                       bool /*allowNew*/)
    : fImpl(std::make_unique<Impl>(Impl{dataSource, {}}))
{
}

VarSpecObj::~VarSpecObj() = default;

/// Names that don't validate are never reported here.
void VarSpecObj::SetErrorReport(bool /*report*/) {}

bool VarSpecObj::ValidateVariables(const std::vector<QortVarName>& names,
                                   RepeatVarOptions /*repeats*/)
{
    std::vector<int> indices;
    indices.reserve(names.size());
    for (const QortVarName& name : names) {
        const int index = ValidateVariable(name);
        if (index < 0) return false;
        indices.push_back(index);
    }
    fImpl->fValid = std::move(indices);
    return true;
}

const std::vector<int>& VarSpecObj::GetValidVarList() const { return fImpl->fValid; }

int VarSpecObj::ValidateVariable(const QortVarName& name)
{
    constexpr int kUnknown = -1;
    if (!fImpl->fDataSource) return kUnknown;
    return fImpl->fDataSource->FindVarIndex(name.GetName().c_str(), 0);
}
