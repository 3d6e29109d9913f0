#include "refhost/template/TemplateGrammar.h"

#include <unordered_map>

namespace refhost {

const GrammarRow* FindElement(std::string_view name)
{
    static const auto kByName = [] {
        std::unordered_map<std::string_view, const GrammarRow*> rows;
        for (const GrammarRow& row : kGrammar)
            rows.emplace(row.fElement, &row);
        return rows;
    }();
    const auto found = kByName.find(name);
    return found == kByName.end() ? nullptr : found->second;
}

}  // namespace refhost
