#include "host/framework/CFMetaData.h"

#include <cstddef>
#include <utility>

CFDatum::CFDatum(std::string text, bool) : fKind(Kind::Text), fText(std::move(text)) {}

CFDatum::CFDatum(std::int64_t integer) : fKind(Kind::Integer), fInteger(integer) {}

CFDatum::CFDatum(double number) : fKind(Kind::Number), fNumber(number) {}

CFValue::CFValue(CFDatum datum, std::string text, FlagType flag, PartitionType partition)
    : fDatum(std::move(datum)), fText(std::move(text)), fFlag(flag), fPartition(partition)
{
}

CFField::CFField(std::string name, FieldType type, StorageType storage, RoleType role)
    : fName(std::move(name)), fType(type), fStorage(storage), fRole(role)
{
}

void CFField::SetLabel(const std::string& label) { fLabel = label; }

void CFField::SetValues(const std::vector<CFValue>& values) { fValues = values; }

void CFField::SetValueLabels(const std::vector<CFValue>& labels) { fValueLabels = labels; }

const std::string& CFField::GetName() const { return fName; }

const std::string& CFField::GetLabel() const { return fLabel; }

const std::vector<CFValue>& CFField::GetValues() const { return fValues; }

const std::vector<CFValue>& CFField::GetValueLabels() const { return fValueLabels; }

class CFMetaData::Impl {
public:
    std::vector<CFField> fFields;
};

CFMetaData::CFMetaData(CFUpperFunc*) : fImpl(std::make_unique<Impl>()) {}

CFMetaData::~CFMetaData() = default;

bool CFMetaData::AppendField(const CFField& field)
{
    fImpl->fFields.push_back(field);
    return true;
}

int CFMetaData::FieldCount() const { return static_cast<int>(fImpl->fFields.size()); }

const CFField* CFMetaData::GetField(int index) const
{
    if (index < 0 || index >= FieldCount()) return nullptr;
    return &fImpl->fFields[static_cast<std::size_t>(index)];
}
