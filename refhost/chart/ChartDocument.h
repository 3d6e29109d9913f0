#pragma once

#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

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

    ViZVisualization& Model();
    refhost::OutputNodePtr MakeNode() const;

    refhost::CallRecorder fRecorder;
    std::string fDescription;
    const VarDataProcessor* fData = nullptr;

private:
    using Frame = std::optional<refhost::tree::LabelFrame>;
    void SetFrameText(const char* operation, Frame refhost::tree::Extension::*frame,
                      const char16_t* text);
    void PutFrameText(Frame refhost::tree::Extension::*frame, const std::string& words);

    void ReadDrawing();

    /// The picture and the texts beside it, as they stand by now.
    void AddDrawing(refhost::ChartNode& chart) const;

    /// Null where the template does not hold the variable, and where nothing is drawn.
    refhost::VariableSettings* SettingsOf(const std::string& variable);

    const std::string fTemplate;
    const std::string fText;
    const bool fIsShown;  // where charts are only recorded, a template is read for its model alone
    bool fIsRead = false;
    std::vector<std::pair<Frame refhost::tree::Extension::*, std::string>>
        fPendingTexts;         // set before it was read
    bool fHasDrawing = false;  // the text could be read
    refhost::ChartDrawing fDrawing;
    refhost::VisualizationModel fModel;
    std::map<std::string, XVariable::Impl, std::less<>> fHandles;
};
