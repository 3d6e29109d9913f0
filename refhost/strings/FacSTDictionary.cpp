#include "host/strings/FacSTDictionary.h"

#include "refhost/strings/TextTable.h"

/// The words of all procedures stand in one table, so neither path nor procedure selects anything.
class FacSTDictionary::Impl {};

FacSTDictionary::FacSTDictionary(const std::string& /*path*/) : fImpl(std::make_unique<Impl>()) {}

FacSTDictionary::~FacSTDictionary() = default;

void FacSTDictionary::SetProcedure(const char* /*name*/) {}

std::string FacSTDictionary::LookUp(const std::string& key) const
{
    return refhost::TextTable::Active().LookUp(refhost::TextTable::Section::Charts, key);
}
