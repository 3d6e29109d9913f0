#include "views/independent/IMedian.h"

#include "charts/ChartWords.h"
#include "charts/NumberText.h"
#include "charts/TemplateText.h"
#include "charts/ViewSteps.h"

#include "host/data/QORT_Variable.h"

namespace {

constexpr std::uint8_t kDecimalsWithoutVariable = 2;

/// One decimal more than the field itself shows.
std::uint8_t MedianDecimals(const QORT_Variable* variable)
{
    if (!variable) return kDecimalsWithoutVariable;
    return WithMoreDecimals(variable->GetFormat(), 1).fDecimals;
}

}  // namespace

IMedian::IMedian(const FacSTDictionary* dictionary, const NOPROutputStats* stats,
                 const NOPROutputStats::HTIMedian* test)
    : Boxplot(dictionary, stats)
{
    SetTest("Independent-Samples Median Test", test);
}

void IMedian::EditTemplate(std::string& text)
{
    const NOPROutputStats::BoxPlotData* boxPlot = GetBoxPlot();
    if (!boxPlot) return;
    const std::string median =
        FormatFixed(boxPlot->fGrandMedian, 40, MedianDecimals(VariableOf(GetTestField())));
    InsertBefore(text, "</graph>", R"(<lineGuide y=")" + median + R"("/>)");

    // The frame stands behind the graph, which it is placed against.
    const std::string frame =
        R"(<labelFrame><location method="sizeToContent" part="width"/>)"
        R"(<location method="fixed" part="bottom" value="35%"/>)"
        R"(<location method="same" part="right" target="graph1"/><label><text>)" +
        LookUpText(GetDictionary(), "Grand Median").toUTF8() + " = " + median +
        "</text></label></labelFrame>";
    ReplaceToken(text, "</graph>", "</graph>" + frame);
}
