#pragma once

#include "charts/Boxplot.h"

/// The Moses test of extreme reaction: the control group and the experimental group as boxes of
/// their own colours, with a legend that tells the sizes.
class IMoses : public Boxplot {
public:
    /// Without a record there is nothing to draw.
    IMoses(const FacSTDictionary* dictionary, const NOPROutputStats* stats,
           const NOPROutputStats::HTIMoses* test);
    ~IMoses();

    /// The group; also notes its size for the legend, since rows are filled before the document is.
    std::vector<double> CategoryCodes(const NOPROutputStats::BoxGroup& group) override;
    void EditDocument(XDocument& document) override;

private:
    struct Groups;
    std::unique_ptr<Groups> fGroups;
};
