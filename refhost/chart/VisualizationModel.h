#pragma once

#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "refhost/chart/CallRecorder.h"
#include "refhost/template/VisualizationTree.h"

#include "host/chart/ViZ.h"

namespace refhost {

/// The object model on a visualization tree. Every object of it is a record of the tree with a
/// face; calls change the record and are recorded with the object's id before their arguments.
///
/// An object that has no id of its own gets one from its kind and its number among the objects of
/// that kind that were handed out: "lineGuide1". `getId` still gives nothing for it.
class VisualizationModel final : public ViZVisualization {
public:
    VisualizationModel(tree::Visualization& tree, CallRecorder& recorder)
        : fTree(tree), fRecorder(recorder)
    {
    }
    ~VisualizationModel() override;

    const char16_t* getId() const override;
    void setId(const char16_t* id) override;
    std::vector<ViZGraph*> getGraphs() override;
    std::vector<ViZSourceVariable*> getSourceVariables() override;
    ViZStyle* addStyle(const char16_t* id) override;
    ViZLabelFrame* addLabelFrame(const char16_t* id) override;
    ViZDerivedVariable* addDerivedVariable(const char16_t* id) override;
    ViZLegend* addLegend(const char16_t* id) override;
    ViZExtension* getExtension() override;
    ViZExtension* addExtension() override;

    /// The face of a record, made at its first use. Defined where the faces are.
    template <class Face, class Record>
    Face* FaceOf(Record& record);

    CallRecorder& Recorder() { return fRecorder; }

private:
    tree::Visualization& fTree;
    CallRecorder& fRecorder;
    std::unordered_map<const void*, std::unique_ptr<CTObject>> fFaces;
    std::map<std::string_view, unsigned> fHandedOut;  // by kind
    mutable std::u16string fShownId;
};

}  // namespace refhost
