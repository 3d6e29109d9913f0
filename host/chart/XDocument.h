#pragma once

#include <memory>
#include <string>

class VarDataProcessor;
class ViZVisualization;
class XGraph;

/// A chart in the making: a template's text, its data and its settings.
class XDocument {
public:
    /// The text of a template file of the host, UTF-8; empty when it can't be had. A bare file name
    /// only.
    static std::string fetchTemplateFile(const char* name);

    /// False: a view may swap colours for patterns.
    static bool useColorsOnly();

    /// From a template's text. Text that is no template still gives a document; it has no variables
    /// and nothing to draw.
    explicit XDocument(const std::string& text);
    ~XDocument();
    XDocument(const XDocument&) = delete;
    XDocument& operator=(const XDocument&) = delete;

    void setEditor(int editor);
    void setLanguage();

    /// Both are references into the document.
    XGraph& getExternalGraph();
    ViZVisualization& getVisualization();

    void SetDescription(const char16_t* text);

    /// The processor stays the caller's, who keeps it until `SendChart`.
    void SetChartData(const VarDataProcessor* processor);
    void applyCTemplate(bool replace);

    /// Sends the chart to the host's output, under the innermost heading that is open. The
    /// arguments are true, false, false at all callers.
    void SendChart(bool visible, bool replace, bool silent);

private:
    class Impl;
    std::unique_ptr<Impl> fImpl;
};
