#pragma once

#include "host/pivot/BpHeading.h"

/// The format of a number in a table; made by `BpProcedure`.
class BpFormatSpec {
public:
    enum class Kind {
        Significance,
        Proportion,
        Count,
        Coefficient,
        Percent,
        CountOrCoefficient,
        StdDev
    };

    explicit BpFormatSpec(Kind kind, int variable = -1) : fKind(kind), fVariable(variable) {}
    Kind GetKind() const { return fKind; }

    /// Index of the variable of a `StdDev` format; negative for all others.
    int GetVariable() const { return fVariable; }

private:
    Kind fKind;
    int fVariable;
};

/// The output procedure: the top heading, and the maker of formats.
class BpProcedure : public BpHeading {
public:
    using BpHeading::BpHeading;

    static BpFormatSpec Significance();
    static BpFormatSpec Proportion();
    static BpFormatSpec Count();
    static BpFormatSpec Coefficient();
    static BpFormatSpec Percent();

    /// `Count` for a whole number, `Coefficient` for any other.
    static BpFormatSpec CountOrCoefficent(double number);

    /// Fit for a standard deviation of the variable of that index.
    static BpFormatSpec StdDev(int variable);
};
