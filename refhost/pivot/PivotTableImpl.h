#pragma once

#include <cstdint>
#include <deque>
#include <unordered_map>
#include <unordered_set>

#include "refhost/pivot/TextIdentity.h"

#include "host/pivot/BpPivotTable.h"

namespace refhost {

class OutputBuilder;
class PivotTree;

/// A label and its notes; equal notes stand once.
struct PivotLabel {
    TextRef fText;
    std::vector<TextRef> fNotes;

    void AddNote(const BpAnnotation& annotation);
};

}  // namespace refhost

class BpCategory::Impl {
public:
    Impl(refhost::PivotTree& tree, std::uint32_t number, refhost::TextRef label)
        : fTree(tree), fNumber(number), fLabel{std::move(label), {}}
    {
    }

    refhost::PivotTree& fTree;
    std::uint32_t fNumber;  // by creation, over the whole dimension
    refhost::PivotLabel fLabel;
};

class BpGroup::Impl {
public:
    Impl(refhost::PivotTree& tree, refhost::TextRef label)
        : fTree(tree), fLabel{std::move(label), {}}
    {
    }

    template <class Item>
    using ByLabel =
        std::unordered_map<refhost::TextRef, Item*, refhost::PassedHasher, refhost::PassedEqual>;

    /// One of the two is null.
    struct Item {
        BpCategory::Impl* fCategory = nullptr;
        BpGroup::Impl* fGroup = nullptr;
    };

    refhost::PivotTree& fTree;
    refhost::PivotLabel fLabel;
    std::vector<Item> fItems;
    ByLabel<BpCategory::Impl> fCategories;
    ByLabel<BpGroup::Impl> fGroups;
};

namespace refhost {

/// A dimension while its table is written. Categories and groups stay where they are in memory,
/// since handles point to them.
class PivotTree {
public:
    PivotTree(BpPivotTable::Impl& table, std::size_t index, TextRef title, Sort sort);
    PivotTree(const PivotTree&) = delete;
    PivotTree& operator=(const PivotTree&) = delete;

    BpPivotTable::Impl& Table() const { return fTable; }
    std::size_t Index() const { return fIndex; }
    BpGroup::Impl& Root() { return fRoot; }
    void SetPosition(Place place, bool a, bool b);

    BpCategory::Impl& Category(BpGroup::Impl& group, TextRef label);
    BpGroup::Impl& Group(BpGroup::Impl& group, TextRef label);

    bool HasCategory() const { return !fCategories.empty(); }

    /// Number of the category that was asked for last.
    std::uint32_t Latest() const { return fLatest; }

    /// The dimension, complete. `places[number]` becomes each category's place, groups flattened.
    PivotDimension Finish(std::vector<std::uint32_t>& places);

private:
    BpPivotTable::Impl& fTable;
    std::size_t fIndex;
    PivotDimension fDimension;
    std::deque<BpCategory::Impl> fCategories;
    std::deque<BpGroup::Impl> fGroups;
    BpGroup::Impl fRoot;
    std::uint32_t fLatest = 0;
};

}  // namespace refhost

/// A table while it is written; it is sent when it ends. `output` may be null.
class BpPivotTable::Impl {
public:
    Impl(refhost::OutputBuilder* output, refhost::TextRef title, refhost::TextRef subtype);
    ~Impl();
    Impl(const Impl&) = delete;
    Impl& operator=(const Impl&) = delete;

    refhost::TableNode& Node() { return fNode; }
    refhost::PivotTree& AddDimension(refhost::TextRef title, Sort sort);

    /// The cell of a category and the latest categories of all other dimensions; null where one of
    /// these has none yet.
    refhost::PivotCell* CellAt(const BpCategory::Impl& category);

private:
    using At = std::vector<std::uint32_t>;

    /// Cells stand in a set by their places in the node, told apart by the numbers of their
    /// categories.
    struct AtHasher {
        const refhost::TableNode& fNode;
        std::size_t operator()(std::size_t cell) const;
    };
    struct AtEqual {
        const refhost::TableNode& fNode;
        bool operator()(std::size_t a, std::size_t b) const
        {
            return fNode.fCells[a].fAt == fNode.fCells[b].fAt;
        }
    };

    void Send();
    void Finish();

    refhost::OutputBuilder* fOutput;
    refhost::TableNode fNode;
    std::deque<refhost::PivotTree> fTrees;

    std::unordered_set<std::size_t, AtHasher, AtEqual> fCellPlaces{0, AtHasher{fNode},
                                                                   AtEqual{fNode}};
    At fAsked;  // kept for its room
};
