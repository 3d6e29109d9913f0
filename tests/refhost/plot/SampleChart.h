#pragma once

#include <algorithm>
#include <cstddef>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "refhost/document/OutputNode.h"
#include "refhost/plot/ResolveChart.h"
#include "refhost/template/ChartDrawing.h"
#include "refhost/template/ReadTemplate.h"
#include "refhost/writers/ReportWords.h"

#include "support/TemplateText.h"

namespace refhost::test {

/// A chart node made of a template's text, columns of data and settings.
class SampleChart {
public:
    explicit SampleChart(std::string templateText) { fNode.fText = std::move(templateText); }

    /// Puts a text in the place of the first `token`.
    SampleChart& Replace(std::string_view token, std::string_view text)
    {
        const std::size_t at = fNode.fText.find(token);
        if (at != std::string::npos) fNode.fText.replace(at, token.size(), text);
        return *this;
    }

    SampleChart& Source(std::string name)
    {
        fNode.fSources.Own().emplace_back().fName = std::move(name);
        return *this;
    }

    SampleChart& Column(std::string name, std::vector<ChartValue> values)
    {
        if (fNode.fSources.empty()) Source("graphSource");
        ChartSource& source = fNode.fSources.Own().back();
        source.fRows = std::max(source.fRows, values.size());
        source.fColumns.push_back({std::move(name), std::move(values)});
        return *this;
    }

    SampleChart& Numbers(std::string name, const std::vector<double>& numbers)
    {
        return Column(std::move(name), {numbers.begin(), numbers.end()});
    }

    SampleChart& Texts(std::string name, const std::vector<std::string>& texts)
    {
        return Column(std::move(name), {texts.begin(), texts.end()});
    }

    /// Settings on a variable.
    VariableSettings& Set(const std::string& variable) { return fDrawing.fVariables[variable]; }

    /// The tree, read on the first call; a test may work on it as the object model does.
    tree::Visualization& Tree()
    {
        if (!fIsRead) fDrawing.fTree = ReadTemplate(fNode.fText).value_or(tree::Visualization());
        fIsRead = true;
        return fDrawing.fTree;
    }

    std::unique_ptr<ResolvedChart> Resolve(const PlotWords& words = WordsOfPlots("en"))
    {
        Tree();
        fNode.fDrawing = std::make_shared<ChartDrawing>(fDrawing);
        return ResolveChart(fNode, words);
    }

    /// What is drawn; a test that has nothing to look at fails.
    ResolvedChart Drawn(const PlotWords& words = WordsOfPlots("en"))
    {
        const auto chart = Resolve(words);
        if (!chart) throw std::runtime_error("nothing is drawn");
        return std::move(*chart);
    }

private:
    ChartNode fNode;
    ChartDrawing fDrawing;
    bool fIsRead = false;
};

/// Bars of numbers, with further markup in the graph.
inline SampleChart Histogram(const std::vector<double>& values, const std::vector<double>& counts,
                             const std::string& markup = {})
{
    SampleChart sample(TemplateText("NPARHistogram"));
    sample.Replace("</graph>", markup + "</graph>");
    sample.Numbers("value", values).Numbers("count", counts);
    return sample;
}

}  // namespace refhost::test
