#include "views/independent/IMoses.h"

#include "charts/ChartWords.h"
#include "charts/NumberText.h"

#include "host/chart/ViZ.h"
#include "host/chart/XDocument.h"

namespace {

constexpr char16_t kLabelVariable[] = u"Label";
constexpr char16_t kGroupVariable[] = u"Category";
constexpr char16_t kColouredVariable[] = u"Category_Derived";
constexpr char16_t kLegend[] = u"legend1";
constexpr char16_t kLegendTarget[] = u"legend1_target";

const CTVariable* FindVariable(ViZVisualization& visualization, std::u16string_view id)
{
    for (const ViZSourceVariable* variable : visualization.getSourceVariables())
        if (variable && id == variable->getId()) return variable;
    return nullptr;
}

/// The role of a group with its size directly behind; the dictionary's text parts the two.
ChartString RoleText(const FacSTDictionary* dictionary, const char* key, int size)
{
    ChartString text = LookUpText(dictionary, key);
    BreakLines(text);
    text.appendInteger(size);
    return text;
}

/// Colours the boxes by group, through a variable of its own that the legend is made from.
ViZDerivedVariable* AddGroupColour(ViZVisualization& visualization, ViZSchema& schema)
{
    ViZDerivedVariable* groups = visualization.addDerivedVariable(kColouredVariable);
    groups->setValue(kGroupVariable);
    ViZColor* colour = schema.addColor();
    colour->setId(u"color1");
    colour->setVariable(groups);
    ViZLegend* legend = visualization.addLegend(kLegend);
    legend->addLegendTarget(kLegendTarget, colour);
    visualization.addExtension()->setLegend1(legend);
    return groups;
}

}  // namespace

/// The groups that were drawn, in the document's order: the first is the control group.
struct IMoses::Groups {
    std::vector<int> fGroupIndices;
    std::vector<int> fGroupSizes;
};

IMoses::IMoses(const FacSTDictionary* dictionary, const NOPROutputStats* stats,
               const NOPROutputStats::HTIMoses* test)
    : Boxplot(dictionary, stats), fGroups(std::make_unique<Groups>())
{
    SetTest("Independent-Samples Moses Test of Extreme Reaction", test);
}

IMoses::~IMoses() = default;

std::vector<double> IMoses::CategoryCodes(const NOPROutputStats::BoxGroup& group)
{
    fGroups->fGroupIndices.push_back(group.fGroupIndex);
    fGroups->fGroupSizes.push_back(group.fN);
    return {static_cast<double>(group.fGroupIndex)};
}

void IMoses::EditDocument(XDocument& document)
{
    ViZVisualization& visualization = document.getVisualization();
    const CTVariable* label = FindVariable(visualization, kLabelVariable);
    const CTVariable* group = FindVariable(visualization, kGroupVariable);
    const std::vector<ViZGraph*> graphs = visualization.getGraphs();
    if (graphs.empty() || !graphs.front()) return;
    const std::vector<ViZSchema*> schemas = graphs.front()->getSchemas();
    if (schemas.empty() || !schemas.front()) return;
    ViZSchema& schema = *schemas.front();
    if (label) schema.addLabeling()->setVariable(label);
    if (!group) return;

    ViZDerivedVariable* coloured = AddGroupColour(visualization, schema);
    if (fGroups->fGroupSizes.size() < 2) return;
    const ChartString control =
        RoleText(GetDictionary(), "NPAR_BOXPLOT_CONTROLGROUP", fGroups->fGroupSizes[0]);
    const ChartString experimental =
        RoleText(GetDictionary(), "NPAR_BOXPLOT_EXPERIMENTALGROUP", fGroups->fGroupSizes[1]);
    ViZFormat* format = coloured->addFormat();
    format->addRelabel(IntegerText(fGroups->fGroupIndices[0]).xc_str(), control.xc_str());
    format->addRelabel(ExactText(fGroups->fGroupIndices[1]).xc_str(), experimental.xc_str());
}
