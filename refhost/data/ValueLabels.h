#pragma once

#include <string>
#include <unordered_map>
#include <vector>

#include "refhost/data/VariableData.h"

/// The labels of a variable's values, found by hash.
class QORT_ValueLabels {
public:
    explicit QORT_ValueLabels(const std::vector<refhost::ValueLabel>& labels);

    /// Null where the value has no label.
    const std::string* Find(const OBS& value) const;

private:
    std::unordered_map<double, std::string> fOfNumbers;
    std::unordered_map<std::string, std::string>
        fOfStrings;  // keys without the blanks at their end
};
