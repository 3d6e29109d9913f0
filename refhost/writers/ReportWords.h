#pragma once

#include <string_view>

namespace refhost {

/// A word or sentence of the HTML report itself, by its key: "outline" gives "Outline" or
/// "Gliederung". A language without words of its own is answered in English, an unknown key by
/// itself.
std::string_view ReportWord(std::string_view language, std::string_view key);

}  // namespace refhost
