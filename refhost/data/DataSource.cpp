#include <cstddef>
#include <string_view>
#include <unordered_map>
#include <utility>

#include "refhost/data/ValueLabels.h"
#include "refhost/data/VariableData.h"

#include "host/data/QORT_DataSource.h"
#include "host/data/QORT_Variable.h"

class QORT_Variable::Impl {
public:
    explicit Impl(refhost::VariableData data) : fData(std::move(data)), fLabels(fData.fValueLabels)
    {
        if (fData.fLabel.empty()) fData.fLabel = fData.fName;
    }

    refhost::VariableData fData;
    QORT_ValueLabels fLabels;
};

QORT_Variable::QORT_Variable(std::unique_ptr<Impl> impl) : fImpl(std::move(impl)) {}

QORT_Variable::~QORT_Variable() = default;

const std::string& QORT_Variable::GetName() const { return fImpl->fData.fName; }

const std::string& QORT_Variable::GetPreferredLabel() const { return fImpl->fData.fLabel; }

int QORT_Variable::GetType() const { return fImpl->fData.fIsString ? 1 : 0; }

QORT_Format QORT_Variable::GetFormat() const { return fImpl->fData.fFormat; }

QORT_Format QORT_Variable::GetFormatEx() const { return GetFormat(); }

const QORT_ValueLabels* QORT_Variable::GetValueLabels() const
{
    return fImpl->fData.fValueLabels.empty() ? nullptr : &fImpl->fLabels;
}

class QORT_DataSource::Impl {
public:
    explicit Impl(std::vector<refhost::VariableData> variables)
    {
        for (refhost::VariableData& data : variables) {
            fVariables.push_back(std::make_unique<QORT_Variable>(
                std::make_unique<QORT_Variable::Impl>(std::move(data))));
            const int index = static_cast<int>(fVariables.size()) - 1;
            fIndices.emplace(fVariables.back()->GetName(), index);
        }
    }

    std::vector<std::unique_ptr<QORT_Variable>> fVariables;
    std::unordered_map<std::string_view, int> fIndices;  // the names are those of the variables
};

QORT_DataSource::QORT_DataSource(std::unique_ptr<Impl> impl) : fImpl(std::move(impl)) {}

QORT_DataSource::~QORT_DataSource() = default;

const QORT_Variable* QORT_DataSource::GetVariable(int index) const
{
    if (index < 0 || static_cast<std::size_t>(index) >= fImpl->fVariables.size()) return nullptr;
    return fImpl->fVariables[static_cast<std::size_t>(index)].get();
}

int QORT_DataSource::FindVarIndex(const char* name, int start) const
{
    if (!name) return -1;
    const auto found = fImpl->fIndices.find(std::string_view(name));
    return found == fImpl->fIndices.end() || found->second < start ? -1 : found->second;
}

std::unique_ptr<ProcedureDataSource> refhost::MakeDataSource(std::vector<VariableData> variables)
{
    return std::make_unique<ProcedureDataSource>(
        std::make_unique<QORT_DataSource::Impl>(std::move(variables)));
}
