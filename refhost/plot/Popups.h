#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "refhost/plot/PlotSpace.h"

namespace refhost {

/// The popup of an element's part ("median"; empty: the whole mark). Null where there is none.
const tree::Popup* FindPopup(const ChartContext& context, const tree::Element& element,
                             std::string_view part);

/// The text of a popup for a row of the data: tokens stand for the texts of their variables.
std::string PopupText(const ChartContext& context, const tree::Popup& popup, std::size_t row);

/// "name = text", or the text alone without a name.
std::string NamedValue(std::string_view name, std::string_view text);
void AppendNamedValue(std::string& out, std::string_view name, std::string_view text);

}  // namespace refhost
