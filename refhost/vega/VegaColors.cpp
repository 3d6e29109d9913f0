#include "refhost/vega/VegaColors.h"

#include <string_view>

#include "refhost/vega/JsonStream.h"
#include "refhost/vega/VegaTheme.h"

namespace refhost {

void WriteColor(JsonStream& json, const PaintedColor& color)
{
    if (color.fPaint == Paint::None) return json.Value("transparent");
    const std::string_view name = ThemedName(color);
    if (name.empty()) return json.Value(std::string_view(color.fColor));
    json.BeginObject();
    json.Member("expr", name);
    json.EndObject();
}

}  // namespace refhost
