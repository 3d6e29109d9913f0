#pragma once

#include <string>

#include "host/chart/ChartString.h"
#include "host/chart/XVariable.h"

class OBS;
struct FieldInfoData;
struct FieldValue;
struct QORT_Format;

/// The text of a field's value: its label, or else the value's own text; the number itself where
/// the field has no such value or is null.
std::string ValueText(const FieldInfoData* field, int valueIndex);

/// Turns positions of a field's values into the texts of an axis, and binds the field's variable.
/// Null does nothing.
void ApplyValueLabels(const FieldInfoData* field, XVariable variable);

/// The value at a position of a field's values, of which the document numbers its data; null where
/// there is none or the host has no value for it.
const OBS* ValueAtPosition(const FieldInfoData* field, double position);

/// The text of a string field's value: of the format's width, without the blanks at its end.
std::string StringValue(const OBS& value, const QORT_Format& format);

/// The text by which a chart names a value that has no label: exact, or that of a string field.
ChartString ValueKey(const OBS& value, const QORT_Format& format);

inline constexpr int kStringFormat = 1;
