#include "refhost/template/VisualizationTree.h"

#include <algorithm>

#include "refhost/template/TemplateNumbers.h"

namespace refhost::tree {

namespace {

template <class Records>
const typename Records::value_type* FindById(const Records& records, std::string_view id)
{
    if (id.empty()) return nullptr;
    const auto found = std::find_if(records.rbegin(), records.rend(),
                                    [&](const auto& record) { return record.fId == id; });
    return found == records.rend() ? nullptr : &*found;
}

}  // namespace

std::optional<double> Fraction(std::string_view percentage)
{
    if (percentage.empty() || percentage.back() != '%') return std::nullopt;
    percentage.remove_suffix(1);
    const auto number = ParseNumber(percentage);
    return number ? std::optional(*number / 100) : std::nullopt;
}

std::string Label::Shown() const
{
    std::string shown;
    for (const Text& text : fTexts)
        shown += text.fText;
    return shown;
}

std::string LabelFrame::Shown() const
{
    std::string shown;
    for (const Label& label : fLabels) {
        if (&label != &fLabels.front()) shown += '\n';
        shown += label.Shown();
    }
    return shown;
}

std::optional<double> LineGuide::Place() const { return ParseNumber(fPlace); }

const Style* Visualization::FindStyle(std::string_view id) const { return FindById(fStyles, id); }

const SourceVariable* Visualization::FindSourceVariable(std::string_view id) const
{
    return FindById(fSourceVariables, id);
}

const DerivedVariable* Visualization::FindDerivedVariable(std::string_view id) const
{
    return FindById(fDerivedVariables, id);
}

const Legend* Visualization::FindLegend(std::string_view id) const
{
    return FindById(fLegends, id);
}

}  // namespace refhost::tree
