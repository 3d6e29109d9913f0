#include "refhost/chart/ChartDocument.h"

#include <cmath>
#include <utility>

#include "refhost/chart/ChartData.h"
#include "refhost/chart/TemplateFiles.h"
#include "refhost/chart/Transcoding.h"
#include "refhost/document/HostRun.h"
#include "refhost/document/OutputBuilder.h"
#include "refhost/strings/TextTable.h"
#include "refhost/template/ReadTemplate.h"

using refhost::TextTable;
using refhost::tree::Extension;
using refhost::tree::LabelFrame;

namespace {

std::string ChartText(std::string_view key)
{
    return TextTable::Active().LookUp(TextTable::Section::Charts, key);
}

std::string ShownIn(const std::optional<Extension>& extension,
                    std::optional<LabelFrame> Extension::*frame)
{
    if (!extension || !((*extension).*frame)) return {};
    return ((*extension).*frame)->Shown();
}

}  // namespace

XDocument::Impl::Impl(const std::string& text)
    : fTemplate(refhost::LastFetchedTemplate()),
      fText(text),
      fIsShown(refhost::HostRun::Current().fShowsCharts),
      fModel(fDrawing.fTree, fRecorder)
{
    if (fIsShown) ReadDrawing();
}

void XDocument::Impl::ReadDrawing()
{
    auto read = refhost::ReadTemplate(fText, ChartText);
    fHasDrawing = read.has_value();
    if (read) fDrawing.fTree = *std::move(read);
    fIsRead = true;
    for (const auto& [frame, words] : fPendingTexts)
        PutFrameText(frame, words);
}

ViZVisualization& XDocument::Impl::Model()
{
    if (!fIsRead) ReadDrawing();  // the record holds ids of its objects
    return fModel;
}

refhost::VariableSettings* XDocument::Impl::SettingsOf(const std::string& variable)
{
    const auto& tree = fDrawing.fTree;
    if (!fIsShown) return nullptr;
    if (!tree.FindSourceVariable(variable) && !tree.FindDerivedVariable(variable)) return nullptr;
    return &fDrawing.fVariables[variable];
}

XVariable XDocument::Impl::getVariable(const char* name, int /*start*/)
{
    const std::string asked = name ? name : "";
    fRecorder.Record("XGraph.getVariable", asked);
    const auto found = fHandles.find(asked);
    if (found != fHandles.end()) return XVariable(&found->second);
    return XVariable(
        &fHandles.try_emplace(asked, asked, SettingsOf(asked), fRecorder).first->second);
}

void XDocument::Impl::SetFrameText(const char* operation, Frame Extension::*frame,
                                   const char16_t* text)
{
    fRecorder.Record(operation, text);
    if (!text) return;
    if (fIsRead)
        PutFrameText(frame, refhost::ToUtf8(text));
    else
        fPendingTexts.emplace_back(frame, refhost::ToUtf8(text));
}

void XDocument::Impl::PutFrameText(Frame Extension::*frame, const std::string& words)
{
    auto& extension = fDrawing.fTree.fExtension;
    if (!extension) extension.emplace();
    auto& titleFrame = (*extension).*frame;
    if (!titleFrame) titleFrame.emplace();

    // The label of the template keeps its style; only its text is another one.
    if (titleFrame->fLabels.empty()) titleFrame->fLabels.emplace_back();
    titleFrame->fLabels.resize(1);
    titleFrame->fLabels.front().fTexts = {{"", words}};
}

void XDocument::Impl::setTitle(const char16_t* text)
{
    SetFrameText("XGraph.setTitle", &Extension::fTitle, text);
}

void XDocument::Impl::setSubtitle(const char16_t* text)
{
    SetFrameText("XGraph.setSubtitle", &Extension::fSubtitle, text);
}

void XDocument::Impl::setFootnote(const char16_t* text)
{
    SetFrameText("XGraph.setFootnote", &Extension::fFootnote, text);
}

void XDocument::Impl::setOuterFrameWidth(double width)
{
    fRecorder.Record("XGraph.setOuterFrameWidth", width);
    if (std::isfinite(width) && width > 0) fDrawing.fWidth = width;
}

void XDocument::Impl::setOuterFrameHeight(double height)
{
    fRecorder.Record("XGraph.setOuterFrameHeight", height);
    if (std::isfinite(height) && height > 0) fDrawing.fHeight = height;
}

refhost::OutputNodePtr XDocument::Impl::MakeNode() const
{
    refhost::ChartNode chart;
    chart.fTemplate = fTemplate;
    chart.fText = fText;
    if (fData) chart.fSources = fData->GetImpl().Sources();
    chart.fCalls = fRecorder.Calls();
    if (fIsShown) AddDrawing(chart);

    auto node = std::make_unique<refhost::OutputNode>();
    node->fContent = std::move(chart);
    return node;
}

void XDocument::Impl::AddDrawing(refhost::ChartNode& chart) const
{
    const auto& extension = fDrawing.fTree.fExtension;
    chart.fTitle = ShownIn(extension, &Extension::fTitle);
    chart.fSubtitle = ShownIn(extension, &Extension::fSubtitle);
    chart.fFootnote = ShownIn(extension, &Extension::fFootnote);
    chart.fDescription = fDescription;
    if (fHasDrawing) chart.fDrawing = std::make_shared<const refhost::ChartDrawing>(fDrawing);
}

std::string XDocument::fetchTemplateFile(const char* name)
{
    return refhost::FetchTemplate(name ? name : "");
}

bool XDocument::useColorsOnly() { return refhost::HostRun::Current().fUseColorsOnly; }

XDocument::XDocument(const std::string& text) : fImpl(std::make_unique<Impl>(text)) {}

XDocument::~XDocument() = default;

void XDocument::setEditor(int editor) { fImpl->fRecorder.Record("XDocument.setEditor", editor); }

void XDocument::setLanguage() { fImpl->fRecorder.Record("XDocument.setLanguage"); }

XGraph& XDocument::getExternalGraph()
{
    fImpl->fRecorder.Record("XDocument.getExternalGraph");
    return *fImpl;
}

ViZVisualization& XDocument::getVisualization()
{
    fImpl->fRecorder.Record("XDocument.getVisualization");
    return fImpl->Model();
}

void XDocument::SetDescription(const char16_t* text)
{
    fImpl->fRecorder.Record("XDocument.SetDescription", text);
    fImpl->fDescription = refhost::ToUtf8(text);
}

void XDocument::SetChartData(const VarDataProcessor* processor)
{
    fImpl->fRecorder.Record("XDocument.SetChartData");
    fImpl->fData = processor;
}

void XDocument::applyCTemplate(bool replace)
{
    fImpl->fRecorder.Record("XDocument.applyCTemplate", replace);
}

void XDocument::SendChart(bool visible, bool replace, bool silent)
{
    fImpl->fRecorder.Record("XDocument.SendChart", visible, replace, silent);
    if (auto* const output = refhost::HostRun::Current().fOutput) output->Add(fImpl->MakeNode());
}
