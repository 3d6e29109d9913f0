#pragma once

#include <map>
#include <string>
#include <vector>

#include "refhost/plot/ResolvedChart.h"

namespace refhost {

class JsonStream;

/// The texts of ticks and legends by key, as named parameters of the document: a text that a user
/// wrote is looked up there and never becomes part of an expression. Equal lists share a name.
class LabelParameters {
public:
    /// Reads every label of the chart; the names follow the order of plots, axes and legends.
    explicit LabelParameters(const ResolvedChart& chart);

    /// The expression that gives the label of `datum.value`.
    std::string Expression(const ResolvedAxis& axis) const;
    std::string Expression(const ResolvedLegend& legend) const;

    void Write(JsonStream& json) const;

private:
    struct Entry {
        std::string fKey;
        std::string fLabel;
        bool operator==(const Entry&) const = default;
    };
    struct List {
        std::string fName;
        std::vector<Entry> fEntries;
    };
    void Add(const void* owner, const std::string& name, std::vector<Entry> entries);
    const std::string& NameOf(const void* owner) const;

    std::vector<List> fLists;
    std::map<const void*, std::size_t> fListOf;
};

/// The encodings "x" and "y" that all layers of a plot share: scales and axes.
void WritePositions(JsonStream& json, const ResolvedPlot& plot, const LabelParameters& labels);

/// Width of the strip left of the plot that the axis takes, with its title.
double LeftStrip(const ResolvedPlot& plot);

}  // namespace refhost
