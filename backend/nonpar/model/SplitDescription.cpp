#include "model/HostNumberText.h"
#include "model/NOPROutputStats.h"

#include "host/data/OBS.h"
#include "host/data/QORT_DataSource.h"
#include "host/data/QORT_Format.h"
#include "host/data/QORT_ValueLabelMap.h"
#include "host/data/QORT_Variable.h"
#include "host/framework/SplitResult.h"
#include "host/pivot/BpCellText.h"
#include "host/pivot/BpHeading.h"
#include "host/pivot/BpPivotTable.h"
#include "host/pivot/BpProcedure.h"

namespace {

/// Null where the host gives fewer values than variables.
const OBS* ValueAt(const SplitResult& split, std::size_t position)
{
    return position < split.fSplitValues.size() ? split.fSplitValues[position] : nullptr;
}

std::string ValueText(const OBS& value, const QORT_Variable* variable)
{
    const char* label =
        variable ? QORT_ValueLabelMap(variable->GetValueLabels()).GetLabel(value) : nullptr;
    if (label) return label;
    if (value.IsString()) return std::string(WithoutBlanks(value.Text()));
    QORT_Format format = variable ? variable->GetFormat() : QORT_Format{};
    return HostNumberText(value.Number(), format);
}

}  // namespace

std::unique_ptr<BpHeading> NOPROutputStats::SplitHeading(BpProcedure* procedure) const
{
    if (!fDataSource || !procedure || !fSplit) return nullptr;
    if (fSplit->fSplitVariables.empty() || !fSplit->fSplitAsHeading) return nullptr;

    BpComposite text("[%1 = %2:, ^1 = ^2:]1", false);
    text.Sublist();
    for (std::size_t position = 0; position < fSplit->fSplitVariables.size(); ++position) {
        const QORT_Variable* variable = fDataSource->GetVariable(fSplit->fSplitVariables[position]);
        text.Add(BpVariable(variable, Show::Preferred));
        text.Add(BpDataValue(variable, ValueAt(*fSplit, position), Preference::Preferred));
    }
    text.EndSublist();
    text.Finish();
    return std::make_unique<BpHeading>(procedure->Heading(text));
}

void NOPROutputStats::SplitDimensions(BpPivotTable& table) const
{
    if (!fDataSource || !fSplit || fSplit->fSplitAsHeading) return;

    for (std::size_t position = 0; position < fSplit->fSplitVariables.size(); ++position) {
        const QORT_Variable* variable = fDataSource->GetVariable(fSplit->fSplitVariables[position]);
        BpDimension dimension = table.Dimension(BpVariable(variable, Show::Preferred), Sort::Split);
        dimension.Position(Place::Rows, 1, false, false);
        dimension.Category(
            BpDataValue(variable, ValueAt(*fSplit, position), Preference::Preferred));
    }
}

std::string NOPROutputStats::SplitText(bool& appendSplit) const
{
    appendSplit = false;
    if (!fDataSource || !fSplit || fSplit->fSplitVariables.empty()) return {};

    std::string text;
    for (std::size_t position = 0; position < fSplit->fSplitVariables.size(); ++position) {
        const QORT_Variable* variable = fDataSource->GetVariable(fSplit->fSplitVariables[position]);
        const OBS* value = ValueAt(*fSplit, position);
        if (position > 0) text += ',';
        if (variable) text += variable->GetPreferredLabel();
        text += ": ";
        if (value) text += ValueText(*value, variable);
    }
    appendSplit = !fSplit->fSplitAsHeading;
    return text;
}
