#include "fuzz/targets/ChartInput.h"
#include "fuzz/targets/FuzzTargets.h"
#include "fuzz/targets/OutputChecks.h"

#include "refhost/plot/ResolveChart.h"
#include "refhost/plot/ResolvedChart.h"
#include "refhost/vega/VegaLiteWriter.h"
#include "refhost/writers/ReportWords.h"

namespace fuzz {

void RunChart(std::string_view input)
{
    const refhost::ChartNode chart = ReadChartInput(input);
    const auto picture = refhost::ResolveChart(chart, refhost::WordsOfPlots("en"));
    if (!picture) return;
    const std::string page = refhost::VegaLiteText(*picture);
    CheckJson(page);
    Require(page.find('<') == std::string::npos, "a picture in a page opens no element");
    CheckJson(refhost::VegaLiteFile(*picture));
}

}  // namespace fuzz
