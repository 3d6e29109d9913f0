#pragma once

#include <cstdint>
#include <string>

#include "host/chart/ChartString.h"
#include "host/data/QORT_Format.h"

class QORT_Variable;

/// A number as text, in three renderings: exact, for what the chart engine reads; an integer, for
/// counts; and by a format, for what a reader sees.

/// The shortest text that reads back as the value.
ChartString ExactText(double value);

ChartString IntegerText(int value);

/// With a format: dates are converted from the document's unit, the format's width becomes 40 (in
/// the caller's copy too), and the host renders the value. With null: exact text.
std::string FormatValue(double value, QORT_Format* format);

/// Fixed notation of a plain number: width min(width, 40), type 5.
std::string FormatFixed(double value, std::uint16_t width, std::uint8_t decimals);

std::string FormatForVariable(double value, const QORT_Variable& variable);

/// The format that views show a number in where no variable gives one: width 40, type 5.
QORT_Format PlainFormat(std::uint8_t decimals);

/// The format of a variable, or `PlainFormat(decimals)` where there is none.
QORT_Format DisplayFormat(const QORT_Variable* variable, std::uint8_t decimals);

/// The format with more decimals, for numbers told more finely than the values of their field.
QORT_Format WithMoreDecimals(QORT_Format format, int more);

/// How a duration parts its days, hours, minutes and seconds, and what stands around them.
struct DurationMarks {
    const char* fPrefix;
    const char* fAfterDays;
    const char* fAfterHours;
    const char* fAfterMinutes;
    const char* fSuffix;
};

inline constexpr DurationMarks kReadableDuration = {"", " ", ":", ":", ""};
inline constexpr DurationMarks kAttributeDuration = {"P", "DT", "H", "M", "S"};

/// A spread in days told as days, hours, minutes and seconds. Seconds are rounded by the added half
/// and may come to 60; hours and minutes are cut. The missing number gives ".".
std::string DurationText(double days, const DurationMarks& marks);
