#include "refhost/template/ReadTemplate.h"

#include <pugixml.hpp>

#include <algorithm>
#include <new>

#include "refhost/template/ReadParts.h"
#include "refhost/template/RepairTemplate.h"
#include "refhost/template/TemplateNode.h"

namespace refhost {

namespace tree {

namespace {

// Labels keep their blanks and line ends.
constexpr unsigned kParseOptions = pugi::parse_escapes | pugi::parse_ws_pcdata_single;

constexpr int kMostDecimals = 16;

// clang-format off
constexpr Word<Dash> kDashes[] = {
    {"solid",  Dash::Solid},
    {"dashed", Dash::Dashed},
    {"dotted", Dash::Dotted},
};
// clang-format on

class Reader {
public:
    Reader(const pugi::xml_node& root, TextOfKey* textOfKey) : fRoot(root), fWords(root, textOfKey)
    {
    }

    Visualization Read()
    {
        fTree.fId = TextOf(fRoot, "id");
        for (const auto& child : fRoot.children())
            ReadChild(child);
        return std::move(fTree);
    }

private:
    void ReadChild(const pugi::xml_node& node)
    {
        struct Row {
            std::string_view fName;
            void (Reader::*fRead)(const pugi::xml_node&);
        };
        // clang-format off
        static constexpr Row kReaders[] = {
            {"sourceVariable",  &Reader::ReadSourceVariable},
            {"derivedVariable", &Reader::ReadDerivedVariable},
            {"categoryOrder",   &Reader::ReadCategoryOrder},
            {"style",           &Reader::ReadStyle},
            {"graph",           &Reader::ReadGraphNode},
            {"labelFrame",      &Reader::ReadLabelFrameNode},
            {"legend",          &Reader::ReadLegend},
            {"popup",           &Reader::ReadPopup},
            {"extension",       &Reader::ReadExtension},
        };
        // clang-format on
        const std::string_view name = node.name();
        for (const Row& row : kReaders) {
            if (row.fName == name) return (this->*row.fRead)(node);
        }
    }

    void ReadSourceVariable(const pugi::xml_node& node)
    {
        SourceVariable variable;
        variable.fId = TextOf(node, "id");
        variable.fSource = TextOf(node, "source");
        variable.fColumn = TextOf(node, "column");
        variable.fLabel = TextOf(node, "label");
        variable.fLabelsFrom = TextOf(node, "labelsFrom");
        variable.fDecimals = static_cast<int>(
            std::clamp(NumberOf(node, "decimals").value_or(-1.0), -1.0, double{kMostDecimals}));
        variable.fCategorical = FlagOf(node, "categorical", false);
        variable.fHoldsLabels = FlagOf(node, "holdsLabels", false);
        fTree.fSourceVariables.push_back(std::move(variable));
    }

    void ReadDerivedVariable(const pugi::xml_node& node)
    {
        DerivedVariable variable;
        variable.fId = TextOf(node, "id");
        variable.fValue = TextOf(node, "value");
        for (const auto& child : node.children("case")) {
            variable.fCases.push_back(
                {NumberOf(child, "above"), NumberOf(child, "below"), TextOf(child, "value")});
        }
        for (const auto& child : node.children("format")) {
            variable.fFormats.push_back(ReadFormat(child));
        }
        fTree.fDerivedVariables.push_back(std::move(variable));
    }

    Format ReadFormat(const pugi::xml_node& node) const
    {
        Format format{TextOf(node, "id"), {}};
        for (const auto& child : node.children("relabel")) {
            std::string to = TextOf(child, "to");
            if (!fWords.IsPlaceholder(to)) {
                format.fRelabels.push_back({TextOf(child, "from"), std::move(to)});
            }
        }
        return format;
    }

    void ReadCategoryOrder(const pugi::xml_node& node)
    {
        if (fWords.IsPlaceholder(node.attribute("values").value())) return;
        fTree.fOrders.push_back(
            {TextOf(node, "variable"), ListOf(node, "values"), FlagOf(node, "complete", false)});
    }

    void ReadStyle(const pugi::xml_node& node)
    {
        Style style;
        style.fId = TextOf(node, "id");
        style.fColor = TextOf(node, "color");
        style.fFill = TextOf(node, "fill");
        style.fDash = WordOf(node, "dash", kDashes);
        style.fWidth = PositiveOf(node, "width", 0.0);
        style.fFontWeight = TextOf(node, "fontWeight") == "bold" ? 2 : 0;
        style.fItalic = FlagOf(node, "italic", false);
        style.fVisible = FlagOf(node, "visible", true);
        fTree.fStyles.push_back(std::move(style));
    }

    void ReadGraphNode(const pugi::xml_node& node)
    {
        fTree.fGraphs.push_back(ReadGraph(node, fWords));
    }

    void ReadLabelFrameNode(const pugi::xml_node& node)
    {
        fTree.fLabelFrames.push_back(ReadLabelFrame(node, fWords));
    }

    /// A legend of the template is one that is drawn.
    void ReadLegend(const pugi::xml_node& node)
    {
        const std::string id = TextOf(node, "id");
        fTree.fLegends.push_back({id, {{"", TextOf(node, "target")}}, ReadLabelIn(node, fWords)});
        ExtensionOf().fLegends.push_back(id);
    }

    void ReadPopup(const pugi::xml_node& node)
    {
        Popup popup{TextOf(node, "id"),
                    TextOf(node, "target"),
                    TextOf(node, "part"),
                    TextOf(node, "tokenTemplate"),
                    {}};
        for (const auto& child : node.children("tokenMapping")) {
            popup.fMappings.push_back({TextOf(child, "valueToken"), TextOf(child, "variable"),
                                       FlagOf(child, "firstLine", false)});
        }
        popup.fTokenTemplate = fWords.Filled(std::move(popup.fTokenTemplate));
        fTree.fPopups.push_back(std::move(popup));
    }

    void ReadExtension(const pugi::xml_node& node)
    {
        Extension& extension = ExtensionOf();
        extension.fId = TextOf(node, "id");
        extension.fTitle = ReadFrame(node.child("title"));
        extension.fSubtitle = ReadFrame(node.child("subtitle"));
        extension.fFootnote = ReadFrame(node.child("footnote"));
        for (const auto& legend : node.children("legend"))
            ReadLegend(legend);
    }

    std::optional<LabelFrame> ReadFrame(const pugi::xml_node& node) const
    {
        return node ? std::optional(ReadLabelFrame(node, fWords)) : std::nullopt;
    }

    Extension& ExtensionOf()
    {
        return fTree.fExtension ? *fTree.fExtension : fTree.fExtension.emplace();
    }

    const pugi::xml_node fRoot;
    const TemplateWords fWords;
    Visualization fTree;
};

}  // namespace

}  // namespace tree

std::optional<tree::Visualization> ReadTemplate(std::string_view text, TextOfKey* textOfKey)
{
    auto repaired = RepairTemplate(text);
    if (!repaired) return std::nullopt;
    pugi::xml_document document;  // stands on the repaired text
    const auto result = document.load_buffer_inplace(repaired->data(), repaired->size(),
                                                     tree::kParseOptions, pugi::encoding_utf8);
    if (result.status == pugi::status_out_of_memory) {  // the library throws nothing
        if (const std::new_handler handler = std::get_new_handler()) handler();
        throw std::bad_alloc();
    }
    if (!result) return std::nullopt;
    const auto root = document.child("visualization");
    return root ? std::optional(tree::Reader(root, textOfKey).Read()) : std::nullopt;
}

}  // namespace refhost
