#pragma once

#include "charts/Boxplot.h"

/// The median test: a box for each group and a line at the grand median, which a frame names.
class IMedian : public Boxplot {
public:
    /// Without a record there is nothing to draw.
    IMedian(const FacSTDictionary* dictionary, const NOPROutputStats* stats,
            const NOPROutputStats::HTIMedian* test);

    void EditTemplate(std::string& text) override;
};
