#pragma once

#include <map>
#include <memory>
#include <string>

#include "refhost/chart/CallRecorder.h"
#include "refhost/chart/VariableHandle.h"
#include "refhost/chart/VisualizationModel.h"
#include "refhost/template/ChartDrawing.h"

#include "host/chart/XDocument.h"
#include "host/chart/XGraph.h"

/// A document: the drawing that its template gives, what was set on it, and the record of the
/// calls. It is the graph as well, since that is the same chart seen from outside.
class XDocument::Impl : public XGraph {
public:
    explicit Impl(const std::string& text);

    XVariable getVariable(const char* name, int start) override;
    void setTitle(const char16_t* text) override;
    void setSubtitle(const char16_t* text) override;
    void setFootnote(const char16_t* text) override;
    void setOuterFrameWidth(double width) override;
    void setOuterFrameHeight(double height) override;

    ViZVisualization& Model() { return fModel; }
    refhost::OutputNodePtr MakeNode() const;

    refhost::CallRecorder fRecorder;
    std::string fDescription;
    const VarDataProcessor* fData = nullptr;

private:
    using Frame = std::optional<refhost::tree::LabelFrame>;
    void SetFrameText(const char* operation, Frame refhost::tree::Extension::*frame,
                      const char16_t* text);

    /// Null where the template does not hold the variable.
    refhost::VariableSettings* SettingsOf(const std::string& variable);

    const std::string fTemplate;
    const std::string fText;
    bool fHasDrawing = false;
    refhost::ChartDrawing fDrawing;
    refhost::VisualizationModel fModel;
    std::map<std::string, XVariable::Impl, std::less<>> fHandles;
};
