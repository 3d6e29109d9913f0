#pragma once

#include "charts/Boxplot.h"

/// The Kruskal-Wallis test: a box for each group, its mean rank in the popup of the median.
class KruskalWallis : public Boxplot {
public:
    /// Without a record there is nothing to draw.
    KruskalWallis(const FacSTDictionary* dictionary, const NOPROutputStats* stats,
                  const NOPROutputStats::HTIKruskalWallis* test);

    /// The group, and its mean rank for the popup.
    std::vector<double> CategoryCodes(const NOPROutputStats::BoxGroup& group) override;
    void EditTemplate(std::string& text) override;
};
