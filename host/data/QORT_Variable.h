#pragma once

#include <memory>
#include <string>

#include "host/data/QORT_Format.h"

class QORT_ValueLabels;

/// One variable of the data. The data source owns it; pointers stay valid as long as that does.
class QORT_Variable {
public:
    class Impl;
    explicit QORT_Variable(std::unique_ptr<Impl> impl);
    ~QORT_Variable();
    QORT_Variable(const QORT_Variable&) = delete;
    QORT_Variable& operator=(const QORT_Variable&) = delete;

    const std::string& GetName() const;

    /// The text by which the variable is shown: its label, or its name where it has none.
    const std::string& GetPreferredLabel() const;

    /// 0 for a numeric variable, 1 for a string variable.
    int GetType() const;

    QORT_Format GetFormat() const;
    QORT_Format GetFormatEx() const;

    /// What a `QORT_ValueLabelMap` is made from; null where no value has a label.
    const QORT_ValueLabels* GetValueLabels() const;

private:
    std::unique_ptr<Impl> fImpl;
};
