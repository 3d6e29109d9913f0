#pragma once

#include <vector>

/// The object model of a visualization. All objects belong to the document that the visualization
/// came from and live as long as it; each call adds to the visualization. Objects that are found
/// may be absent (null); objects that are added never are. Texts are copied.

class ViZGraph;
class ViZSchema;

/// Which edge or extent of a frame a location settles.
enum class ENUM_part : int { Left = 0, Right = 1, Top = 2, Bottom = 3, Width = 4, Height = 5 };

/// How it is settled: at a fixed place, by the content, at the target's place, beside the target.
enum class ENUM_method : int { Fixed = 0, SizeToContent = 1, Same = 2, Against = 3 };

/// What an object of the model is to others.
class CTObject {
public:
    virtual ~CTObject() = default;

    /// Empty where none was given.
    virtual const char16_t* getId() const = 0;
    virtual void setId(const char16_t* id) = 0;
};

/// A frame: something that has a place in the chart.
class CTFrame : public CTObject {};

class ViZStyle : public CTObject {
public:
    virtual void setColor(const char16_t* color) = 0;

    /// 2 is bold.
    virtual void setFont_weight(int weight) = 0;
};

class ViZLocation : public CTObject {
public:
    virtual void setPart(ENUM_part part) = 0;
    virtual void setMethod(ENUM_method method) = 0;

    /// A percentage of the chart ("80%").
    virtual void setValue(const char16_t* value) = 0;
    virtual void setTarget(const CTFrame* target) = 0;
    virtual void setSpecifiedByUser(bool specified) = 0;
};

class ViZText : public CTObject {
public:
    virtual void setText(const char16_t* text) = 0;
};

class ViZLabel : public CTObject {
public:
    virtual void setStyle(const ViZStyle* style) = 0;
    virtual ViZText* addText() = 0;
};

class ViZLabelFrame : public CTFrame {
public:
    virtual ViZLocation* addLocation() = 0;
    virtual ViZLabel* addLabel() = 0;
};

class ViZLineGuide : public CTObject {
public:
    /// The place on the axis, as exact text.
    virtual void setX(const char16_t* x) = 0;
    virtual void setStyle(const ViZStyle* style) = 0;
};

/// A variable of the visualization, from a source or derived.
class CTVariable : public CTObject {};

class ViZSourceVariable : public CTVariable {};

class ViZFormat : public CTObject {
public:
    virtual void addRelabel(const char16_t* from, const char16_t* to) = 0;
};

class ViZDerivedVariable : public CTVariable {
public:
    /// The expression; the id of a variable stands for its values.
    virtual void setValue(const char16_t* value) = 0;
    virtual ViZFormat* addFormat() = 0;
};

class ViZLabeling : public CTObject {
public:
    virtual void setVariable(const CTVariable* variable) = 0;
};

class ViZColor : public CTObject {
public:
    virtual void setVariable(const CTVariable* variable) = 0;
};

/// An element that draws boxes.
class ViZSchema : public CTObject {
public:
    virtual ViZLabeling* addLabeling() = 0;
    virtual ViZColor* addColor() = 0;
};

class ViZLegend : public CTObject {
public:
    virtual void addLegendTarget(const char16_t* id, const ViZColor* target) = 0;
};

/// What stands around the graph: the frames of the titles, the legend.
class ViZExtension : public CTObject {
public:
    /// The frame of the subtitle; null where there is none.
    virtual CTFrame* getSubtitle() = 0;
    virtual void setLegend1(const ViZLegend* legend) = 0;
};

class ViZGraph : public CTFrame {
public:
    virtual ViZLocation* addLocation() = 0;
    virtual std::vector<ViZSchema*> getSchemas() = 0;
    virtual ViZLineGuide* addLineGuide() = 0;
};

class ViZVisualization : public CTObject {
public:
    virtual std::vector<ViZGraph*> getGraphs() = 0;
    virtual std::vector<ViZSourceVariable*> getSourceVariables() = 0;

    virtual ViZStyle* addStyle(const char16_t* id) = 0;
    virtual ViZLabelFrame* addLabelFrame(const char16_t* id) = 0;
    virtual ViZDerivedVariable* addDerivedVariable(const char16_t* id) = 0;
    virtual ViZLegend* addLegend(const char16_t* id) = 0;

    /// The extension; null where the visualization has none.
    virtual ViZExtension* getExtension() = 0;

    /// The extension, made where there is none.
    virtual ViZExtension* addExtension() = 0;
};
