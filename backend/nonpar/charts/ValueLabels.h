#pragma once

#include <string>

class XVariable;
struct FieldInfoData;

/// The text of a field's value: its label, or else the value's own text; the number itself where
/// the field has no such value or is null.
std::string ValueText(const FieldInfoData* field, int valueIndex);

/// Turns positions of a field's values into the texts of an axis, and binds the field's variable.
/// Null does nothing.
void ApplyValueLabels(const FieldInfoData* field, XVariable variable);
