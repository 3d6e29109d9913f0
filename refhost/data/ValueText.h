#pragma once

#include <string>

#include "host/data/QORT_Format.h"

class OBS;

namespace refhost {

/// What `ToString` writes, without the blanks around it; of a date all, also in a narrow format.
std::string ValueText(const OBS& value, const QORT_Format& format);

/// A string as the host holds it: filled with blanks to the format's width in bytes. A longer one
/// stays as it is.
std::string PaddedText(std::string text, const QORT_Format& format);

}  // namespace refhost
