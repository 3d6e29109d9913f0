#pragma once

#include "charts/Boxplot.h"

/// The Jonckheere-Terpstra test: a box for each group and nothing more.
class IJonckheere_Terpstra : public Boxplot {
public:
    /// Without a record there is nothing to draw.
    IJonckheere_Terpstra(const FacSTDictionary* dictionary, const NOPROutputStats* stats,
                         const NOPROutputStats::HTIJonckheereTerpstra* test);
};
