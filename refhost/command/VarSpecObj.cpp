#include "host/command/VarSpecObj.h"

#include <utility>

#include "host/command/CommandSpec.h"
#include "host/data/QORT_DataSource.h"

class VarSpecObj::Impl {
public:
    explicit Impl(const QORT_DataSource* dataSource) : fDataSource(dataSource) {}

    const QORT_DataSource* fDataSource;
    std::vector<int> fValid;
};

VarSpecObj::VarSpecObj(const char*, const char*, const CommandDescriptor&,
                       const QORT_DataSource* dataSource, bool)
    : fImpl(std::make_unique<Impl>(dataSource))
{
}

VarSpecObj::~VarSpecObj() = default;

// Names that don't validate are never reported by this host; its jobs may hold them.
void VarSpecObj::SetErrorReport(bool) {}

bool VarSpecObj::ValidateVariables(const std::vector<QortVarName>& names, RepeatVarOptions)
{
    std::vector<int> indices;
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
    return fImpl->fDataSource ? fImpl->fDataSource->FindVarIndex(name.GetName().c_str(), 0) : -1;
}
