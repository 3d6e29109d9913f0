#pragma once

#include <vector>

#include "refhost/plot/ResolvedChart.h"

namespace refhost {

class JsonStream;
class LabelParameters;

/// The legends as layers without marks: what marks look like is settled already, so a legend needs
/// a scale of its own.
void WriteLegends(JsonStream& json, const std::vector<ResolvedLegend>& legends,
                  const LabelParameters& labels);

}  // namespace refhost
