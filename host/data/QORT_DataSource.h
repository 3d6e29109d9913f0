#pragma once

#include <memory>

class QORT_Variable;

/// The variables of the data, by index and by name. Owned by the host.
class QORT_DataSource {
public:
    class Impl;
    explicit QORT_DataSource(std::unique_ptr<Impl> impl);
    virtual ~QORT_DataSource();
    QORT_DataSource(const QORT_DataSource&) = delete;
    QORT_DataSource& operator=(const QORT_DataSource&) = delete;

    /// The variable of an index; null where there is none.
    const QORT_Variable* GetVariable(int index) const;

    /// Index of the variable of that name, compared exactly; negative where there is none.
    /// Callers pass 0 as `start`.
    int FindVarIndex(const char* name, int start) const;

private:
    std::unique_ptr<Impl> fImpl;
};

/// The data source in the form in which the host makes a procedure.
class ProcedureDataSource : public QORT_DataSource {
public:
    using QORT_DataSource::QORT_DataSource;
};
