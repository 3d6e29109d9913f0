#pragma once

#include <string>

#include "refhost/document/OutputNode.h"

class BpFormatSpec;

namespace refhost {

NumberFormat FormatName(const BpFormatSpec& format);

/// Digits that a format shows behind the point of this number.
int FormatDecimals(const BpFormatSpec& format, double number);

/// The number as a reader sees it: "." for a missing one. The sign of a percentage stands
/// in the text around it.
std::string FormattedNumber(const TextNumber& number);

}  // namespace refhost
