#include "refhost/plot/Popups.h"

namespace refhost {
namespace {

std::string TokenText(const ChartContext& context, const tree::Popup& popup, std::string_view token,
                      std::size_t row)
{
    for (const tree::TokenMapping& mapping : popup.fMappings) {
        if (mapping.fToken != token) continue;
        const DataVariable* variable = context.fData.Find(mapping.fVariable);
        if (!variable) return {};
        const std::string text = variable->Text(row);
        return mapping.fFirstLine ? text.substr(0, text.find('\n')) : text;
    }
    return {};
}

}  // namespace

const tree::Popup* FindPopup(const ChartContext& context, const tree::Element& element,
                             std::string_view part)
{
    for (const tree::Popup& popup : context.fTree.fPopups) {
        if (popup.fTokenTemplate.empty() || element.fId.empty()) continue;
        if (popup.fTarget == element.fId && popup.fPart == part) return &popup;
    }
    return nullptr;
}

std::string PopupText(const ChartContext& context, const tree::Popup& popup, std::size_t row)
{
    const std::string_view text = popup.fTokenTemplate;
    std::string shown;
    std::size_t at = 0;
    while (at < text.size()) {
        const std::size_t open = text.find("$[", at);
        const std::size_t close = open == text.npos ? text.npos : text.find("]$", open + 2);
        if (close == text.npos) break;
        shown.append(text.substr(at, open - at));
        shown.append(TokenText(context, popup, text.substr(open + 2, close - open - 2), row));
        at = close + 2;
    }
    shown.append(text.substr(at));
    while (!shown.empty() && (shown.back() == '\n' || shown.back() == ' ')) {
        shown.pop_back();
    }
    return shown;
}

std::string NamedValue(std::string_view name, std::string_view text)
{
    std::string named;
    AppendNamedValue(named, name, text);
    return named;
}

void AppendNamedValue(std::string& out, std::string_view name, std::string_view text)
{
    if (!name.empty()) out.append(name).append(" = ");
    out.append(text);
}

}  // namespace refhost
