#pragma once

#include <map>
#include <optional>
#include <string>

#include "refhost/template/VisualizationTree.h"

namespace refhost {

/// How a variable of the host shows its values.
struct HostFormat {
    int fType = 5;
    int fWidth = 8;
    int fDecimals = 2;
};

struct ChartNumberFormat {
    int fDecimals = 0;
    bool fGrouping = false;
    std::string fPrefix;
    std::string fSuffix;
};

/// What a view set on a variable of the template. Each setting overrules the template.
struct VariableSettings {
    /// The label of the host's variable that was bound; nothing where none was.
    std::optional<std::string> fHostLabel;

    /// The format of that variable. Values of the host that stand as labels were shown by it;
    /// numbers of the chart are not.
    std::optional<HostFormat> fBoundFormat;

    /// The format to show numbers by, where one was taken from a variable of the host. Dates are
    /// seconds since 14 October 1582.
    std::optional<HostFormat> fHostFormat;

    /// Overrules the host's format.
    std::optional<ChartNumberFormat> fNumberFormat;

    /// Stands before each value; may hold line feeds.
    std::string fPrefix;

    /// Overrules the host's label.
    std::optional<std::string> fLabel;

    std::optional<bool> fCategorical;

    /// Text by key. The key of a number is its exact text, as `assignDouble(value, 16)` gives it
    /// ("0", "12.5"); the key of a text is the text.
    std::map<std::string, std::string, std::less<>> fRelabels;
};

/// The visualization as it stood when the chart was sent, with what was set on its variables. The
/// titles are in the extension's frames, also those that were set through the graph.
struct ChartDrawing {
    tree::Visualization fTree;
    std::map<std::string, VariableSettings, std::less<>> fVariables;  ///< by id of the variable

    /// Size of the picture, in units of 240 pixels; not set: the writer's usual size.
    std::optional<double> fWidth;
    std::optional<double> fHeight;

    /// Null where nothing was set.
    const VariableSettings* FindSettings(std::string_view variable) const
    {
        const auto found = fVariables.find(variable);
        return found == fVariables.end() ? nullptr : &found->second;
    }
};

}  // namespace refhost
