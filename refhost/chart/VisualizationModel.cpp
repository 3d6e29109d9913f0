#include "refhost/chart/VisualizationModel.h"

#include <utility>

#include "refhost/chart/Transcoding.h"

namespace refhost {

namespace {

using Model = VisualizationModel;

/// What a face is to faces that refer to it.
class Referable {
public:
    virtual ~Referable() = default;
    virtual const std::string& Id() const = 0;
};

/// The id of an object of this model; empty for null.
std::string IdOf(const CTObject* object)
{
    const auto* const face = dynamic_cast<const Referable*>(object);
    return face ? face->Id() : std::string();
}

/// How an object stands in the record.
ChartArgument Reference(const CTObject* object)
{
    std::string id = IdOf(object);
    return id.empty() ? ChartArgument() : ChartArgument(std::move(id));
}

/// What the faces of all classes share: the record, its id, and the record of calls.
template <class Interface, class Record>
class Face : public Interface, public Referable {
public:
    Face(Model& model, Record& record, std::string_view className, const std::string& generatedId)
        : fModel(model), fRecord(record), fClass(className), fHasOwnId(!record.fId.empty())
    {
        if (!fHasOwnId) record.fId = generatedId;
        if (fHasOwnId) fShownId = ToUtf16(record.fId);
    }

    const std::string& Id() const override { return fRecord.fId; }
    const char16_t* getId() const override { return fShownId.c_str(); }

    void setId(const char16_t* id) override
    {
        Call("setId", id);
        if (!id) return;
        fShownId = id;
        fRecord.fId = ToUtf8(id);
    }

protected:
    template <class... Arguments>
    void Call(std::string_view operation, const Arguments&... arguments)
    {
        fModel.Recorder().Record(std::string(fClass).append(".").append(operation), fRecord.fId,
                                 arguments...);
    }

    Model& fModel;
    Record& fRecord;

private:
    std::string_view fClass;
    bool fHasOwnId;
    std::u16string fShownId;
};

class StyleFace final : public Face<ViZStyle, tree::Style> {
public:
    static constexpr std::string_view kClass = "ViZStyle";
    static constexpr std::string_view kKind = "style";
    using Face::Face;

    void setColor(const char16_t* color) override
    {
        Call("setColor", color);
        if (color) fRecord.fColor = ToUtf8(color);
    }

    void setFont_weight(int weight) override
    {
        Call("setFont_weight", weight);
        fRecord.fFontWeight = weight;
    }
};

class LocationFace final : public Face<ViZLocation, tree::Location> {
public:
    static constexpr std::string_view kClass = "ViZLocation";
    static constexpr std::string_view kKind = "location";
    using Face::Face;

    void setPart(ENUM_part part) override
    {
        Call("setPart", static_cast<int>(part));
        fRecord.fPart = part;
    }

    void setMethod(ENUM_method method) override
    {
        Call("setMethod", static_cast<int>(method));
        fRecord.fMethod = method;
    }

    void setValue(const char16_t* value) override
    {
        Call("setValue", value);
        fRecord.fValue = ToUtf8(value);
    }

    void setTarget(const CTFrame* target) override
    {
        Call("setTarget", Reference(target));
        fRecord.fTarget = IdOf(target);
    }

    void setSpecifiedByUser(bool specified) override { Call("setSpecifiedByUser", specified); }
};

class TextFace final : public Face<ViZText, tree::Text> {
public:
    static constexpr std::string_view kClass = "ViZText";
    static constexpr std::string_view kKind = "text";
    using Face::Face;

    void setText(const char16_t* text) override
    {
        Call("setText", text);
        fRecord.fText = ToUtf8(text);
    }
};

class LabelFace final : public Face<ViZLabel, tree::Label> {
public:
    static constexpr std::string_view kClass = "ViZLabel";
    static constexpr std::string_view kKind = "label";
    using Face::Face;

    void setStyle(const ViZStyle* style) override
    {
        Call("setStyle", Reference(style));
        fRecord.fStyle = IdOf(style);
    }

    ViZText* addText() override
    {
        Call("addText");
        return fModel.FaceOf<TextFace>(fRecord.fTexts.emplace_back());
    }
};

class LabelFrameFace final : public Face<ViZLabelFrame, tree::LabelFrame> {
public:
    static constexpr std::string_view kClass = "ViZLabelFrame";
    static constexpr std::string_view kKind = "labelFrame";
    using Face::Face;

    ViZLocation* addLocation() override
    {
        Call("addLocation");
        return fModel.FaceOf<LocationFace>(fRecord.fLocations.emplace_back());
    }

    ViZLabel* addLabel() override
    {
        Call("addLabel");
        return fModel.FaceOf<LabelFace>(fRecord.fLabels.emplace_back());
    }
};

class LineGuideFace final : public Face<ViZLineGuide, tree::LineGuide> {
public:
    static constexpr std::string_view kClass = "ViZLineGuide";
    static constexpr std::string_view kKind = "lineGuide";
    using Face::Face;

    void setX(const char16_t* x) override
    {
        Call("setX", x);
        fRecord.fDimension = tree::Dimension::X;
        fRecord.fPlace = ToUtf8(x);
    }

    void setStyle(const ViZStyle* style) override
    {
        Call("setStyle", Reference(style));
        fRecord.fStyle = IdOf(style);
    }
};

class SourceVariableFace final : public Face<ViZSourceVariable, tree::SourceVariable> {
public:
    static constexpr std::string_view kClass = "ViZSourceVariable";
    static constexpr std::string_view kKind = "sourceVariable";
    using Face::Face;
};

class FormatFace final : public Face<ViZFormat, tree::Format> {
public:
    static constexpr std::string_view kClass = "ViZFormat";
    static constexpr std::string_view kKind = "format";
    using Face::Face;

    void addRelabel(const char16_t* from, const char16_t* to) override
    {
        Call("addRelabel", from, to);
        if (from && to) fRecord.fRelabels.push_back({ToUtf8(from), ToUtf8(to)});
    }
};

class DerivedVariableFace final : public Face<ViZDerivedVariable, tree::DerivedVariable> {
public:
    static constexpr std::string_view kClass = "ViZDerivedVariable";
    static constexpr std::string_view kKind = "derivedVariable";
    using Face::Face;

    void setValue(const char16_t* value) override
    {
        Call("setValue", value);
        fRecord.fValue = ToUtf8(value);
    }

    ViZFormat* addFormat() override
    {
        Call("addFormat");
        return fModel.FaceOf<FormatFace>(fRecord.fFormats.emplace_back());
    }
};

/// Labeling and colour differ in their class only: both name a variable.
template <class Interface, class Record>
class ByVariableFace : public Face<Interface, Record> {
public:
    using Face<Interface, Record>::Face;

    void setVariable(const CTVariable* variable) override
    {
        this->Call("setVariable", Reference(variable));
        this->fRecord.fVariable = IdOf(variable);
    }
};

class LabelingFace final : public ByVariableFace<ViZLabeling, tree::Labeling> {
public:
    static constexpr std::string_view kClass = "ViZLabeling";
    static constexpr std::string_view kKind = "labeling";
    using ByVariableFace::ByVariableFace;
};

class ColorFace final : public ByVariableFace<ViZColor, tree::Color> {
public:
    static constexpr std::string_view kClass = "ViZColor";
    static constexpr std::string_view kKind = "color";
    using ByVariableFace::ByVariableFace;
};

class SchemaFace final : public Face<ViZSchema, tree::Element> {
public:
    static constexpr std::string_view kClass = "ViZSchema";
    static constexpr std::string_view kKind = "schema";
    using Face::Face;

    ViZLabeling* addLabeling() override
    {
        Call("addLabeling");
        return fModel.FaceOf<LabelingFace>(fRecord.fLabelings.emplace_back());
    }

    ViZColor* addColor() override
    {
        Call("addColor");
        return fModel.FaceOf<ColorFace>(fRecord.fColors.emplace_back());
    }
};

class LegendFace final : public Face<ViZLegend, tree::Legend> {
public:
    static constexpr std::string_view kClass = "ViZLegend";
    static constexpr std::string_view kKind = "legend";
    using Face::Face;

    void addLegendTarget(const char16_t* id, const ViZColor* target) override
    {
        Call("addLegendTarget", id, Reference(target));
        fRecord.fTargets.push_back({ToUtf8(id), IdOf(target)});
    }
};

class ExtensionFace final : public Face<ViZExtension, tree::Extension> {
public:
    static constexpr std::string_view kClass = "ViZExtension";
    static constexpr std::string_view kKind = "extension";
    using Face::Face;

    CTFrame* getSubtitle() override
    {
        Call("getSubtitle");
        return fRecord.fSubtitle ? fModel.FaceOf<LabelFrameFace>(*fRecord.fSubtitle) : nullptr;
    }

    void setLegend1(const ViZLegend* legend) override
    {
        Call("setLegend1", Reference(legend));
        const std::string id = IdOf(legend);
        fRecord.fLegends.assign(id.empty() ? 0 : 1, id);
    }
};

class GraphFace final : public Face<ViZGraph, tree::Graph> {
public:
    static constexpr std::string_view kClass = "ViZGraph";
    static constexpr std::string_view kKind = "graph";
    using Face::Face;

    ViZLocation* addLocation() override
    {
        Call("addLocation");
        return fModel.FaceOf<LocationFace>(fRecord.fLocations.emplace_back());
    }

    std::vector<ViZSchema*> getSchemas() override
    {
        Call("getSchemas");
        std::vector<ViZSchema*> schemas;
        for (auto& element : fRecord.fElements) {
            if (element.fKind == tree::ElementKind::Schema) {
                schemas.push_back(fModel.FaceOf<SchemaFace>(element));
            }
        }
        return schemas;
    }

    ViZLineGuide* addLineGuide() override
    {
        Call("addLineGuide");
        return fModel.FaceOf<LineGuideFace>(fRecord.fLineGuides.emplace_back());
    }
};

}  // namespace

template <class Face, class Record>
Face* VisualizationModel::FaceOf(Record& record)
{
    auto& face = fFaces[&record];
    if (!face) {
        const unsigned number = ++fHandedOut[Face::kKind];
        face = std::make_unique<Face>(*this, record, Face::kClass,
                                      std::string(Face::kKind) + std::to_string(number));
    }
    return static_cast<Face*>(face.get());
}

VisualizationModel::~VisualizationModel() = default;

const char16_t* VisualizationModel::getId() const
{
    fShownId = ToUtf16(fTree.fId);
    return fShownId.c_str();
}

void VisualizationModel::setId(const char16_t* id)
{
    fRecorder.Record("ViZVisualization.setId", id);
    fTree.fId = ToUtf8(id);
}

std::vector<ViZGraph*> VisualizationModel::getGraphs()
{
    fRecorder.Record("ViZVisualization.getGraphs");
    std::vector<ViZGraph*> graphs;
    for (auto& graph : fTree.fGraphs)
        graphs.push_back(FaceOf<GraphFace>(graph));
    return graphs;
}

std::vector<ViZSourceVariable*> VisualizationModel::getSourceVariables()
{
    fRecorder.Record("ViZVisualization.getSourceVariables");
    std::vector<ViZSourceVariable*> variables;
    for (auto& variable : fTree.fSourceVariables) {
        variables.push_back(FaceOf<SourceVariableFace>(variable));
    }
    return variables;
}

ViZStyle* VisualizationModel::addStyle(const char16_t* id)
{
    fRecorder.Record("ViZVisualization.addStyle", id);
    auto& style = fTree.fStyles.emplace_back();
    style.fId = ToUtf8(id);
    return FaceOf<StyleFace>(style);
}

ViZLabelFrame* VisualizationModel::addLabelFrame(const char16_t* id)
{
    fRecorder.Record("ViZVisualization.addLabelFrame", id);
    auto& frame = fTree.fLabelFrames.emplace_back();
    frame.fId = ToUtf8(id);
    return FaceOf<LabelFrameFace>(frame);
}

ViZDerivedVariable* VisualizationModel::addDerivedVariable(const char16_t* id)
{
    fRecorder.Record("ViZVisualization.addDerivedVariable", id);
    auto& variable = fTree.fDerivedVariables.emplace_back();
    variable.fId = ToUtf8(id);
    return FaceOf<DerivedVariableFace>(variable);
}

ViZLegend* VisualizationModel::addLegend(const char16_t* id)
{
    fRecorder.Record("ViZVisualization.addLegend", id);
    auto& legend = fTree.fLegends.emplace_back();
    legend.fId = ToUtf8(id);
    return FaceOf<LegendFace>(legend);
}

ViZExtension* VisualizationModel::getExtension()
{
    fRecorder.Record("ViZVisualization.getExtension");
    return fTree.fExtension ? FaceOf<ExtensionFace>(*fTree.fExtension) : nullptr;
}

ViZExtension* VisualizationModel::addExtension()
{
    fRecorder.Record("ViZVisualization.addExtension");
    if (!fTree.fExtension) fTree.fExtension.emplace();
    return FaceOf<ExtensionFace>(*fTree.fExtension);
}

}  // namespace refhost
