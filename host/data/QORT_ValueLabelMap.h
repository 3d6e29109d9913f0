#pragma once

class OBS;
class QORT_ValueLabels;

/// Looks up the labels that a variable gives to its values. A view onto what
/// `QORT_Variable::GetValueLabels` gives, which has to outlive it; null stands for no labels.
class QORT_ValueLabelMap {
public:
    explicit QORT_ValueLabelMap(const QORT_ValueLabels* labels) : fLabels(labels) {}

    /// The label of a value, UTF-8; null where it has none. Strings compare without the blanks at
    /// their end. The text lives as long as the variable.
    const char* GetLabel(const OBS& value) const;

private:
    const QORT_ValueLabels* fLabels;
};
