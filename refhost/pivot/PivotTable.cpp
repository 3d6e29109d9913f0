#include <algorithm>
#include <new>

#include "refhost/pivot/CellText.h"
#include "refhost/pivot/PivotTableImpl.h"

#include "refhost/document/OutputBuilder.h"

using refhost::PivotCell;
using refhost::PivotItem;
using refhost::PivotTree;
using refhost::TextRef;

namespace refhost {

namespace {

std::vector<PivotItem> FinishItems(BpGroup::Impl& group, std::vector<std::uint32_t>& places,
                                   std::uint32_t& next)
{
    std::vector<PivotItem> items;
    items.reserve(group.fItems.size());
    for (const BpGroup::Impl::Item& item : group.fItems) {
        PivotLabel& label = item.fGroup ? item.fGroup->fLabel : item.fCategory->fLabel;
        PivotItem& finished = items.emplace_back();
        finished.fLabel = std::move(label.fText);
        finished.fNotes = std::move(label.fNotes);
        finished.fIsGroup = item.fGroup != nullptr;
        if (item.fGroup) {
            finished.fItems = FinishItems(*item.fGroup, places, next);
        } else {
            places[item.fCategory->fNumber] = next++;
        }
    }
    return items;
}

}  // namespace

void PivotLabel::AddNote(const BpAnnotation& annotation)
{
    TextRef note = Snapshot(annotation.GetText());
    const bool stands = std::ranges::any_of(
        fNotes, [&note](const TextRef& other) { return SamePassed(note, other); });
    if (!stands) fNotes.push_back(std::move(note));
}

PivotTree::PivotTree(BpPivotTable::Impl& table, std::size_t index, TextRef title, Sort sort)
    : fTable(table), fIndex(index), fRoot(*this, title)
{
    fDimension.fTitle = std::move(title);
    fDimension.fSort = static_cast<int>(sort);
}

void PivotTree::SetPosition(Place place, bool a, bool b)
{
    fDimension.fPlace = place == Place::Columns ? PivotPlace::Columns : PivotPlace::Rows;
    fDimension.fFlags[0] = a;
    fDimension.fFlags[1] = b;
}

BpCategory::Impl& PivotTree::Category(BpGroup::Impl& group, TextRef label)
{
    const auto [found, isNew] = group.fCategories.try_emplace(label, nullptr);
    if (isNew) {
        const auto number = static_cast<std::uint32_t>(fCategories.size());
        found->second = &fCategories.emplace_back(*this, number, std::move(label));
        group.fItems.push_back({.fCategory = found->second});
    }
    fLatest = found->second->fNumber;
    return *found->second;
}

BpGroup::Impl& PivotTree::Group(BpGroup::Impl& group, TextRef label)
{
    const auto [found, isNew] = group.fGroups.try_emplace(label, nullptr);
    if (isNew) {
        found->second = &fGroups.emplace_back(*this, std::move(label));
        group.fItems.push_back({.fGroup = found->second});
    }
    return *found->second;
}

PivotDimension PivotTree::Finish(std::vector<std::uint32_t>& places)
{
    places.resize(fCategories.size());
    std::uint32_t next = 0;
    fDimension.fItems = FinishItems(fRoot, places, next);
    return std::move(fDimension);
}

}  // namespace refhost

BpPivotTable::Impl::Impl(refhost::OutputBuilder* output, TextRef title, TextRef subtype)
    : fOutput(output)
{
    fNode.fTitle = std::move(title);
    fNode.fSubtype = std::move(subtype);
}

BpPivotTable::Impl::~Impl()
{
    if (!fOutput) return;
    try {
        Send();
    } catch (const std::bad_alloc&) {  // as where a node can't be written
    } catch (...) {
        fOutput->Fail(std::current_exception());
    }
}

PivotTree& BpPivotTable::Impl::AddDimension(TextRef title, Sort sort)
{
    return fTrees.emplace_back(*this, fTrees.size(), std::move(title), sort);
}

PivotCell* BpPivotTable::Impl::CellAt(const BpCategory::Impl& category)
{
    fAsked.resize(fTrees.size());
    for (const PivotTree& tree : fTrees) {
        if (!tree.HasCategory()) return nullptr;
        fAsked[tree.Index()] = tree.Latest();
    }
    fAsked[category.fTree.Index()] = category.fNumber;
    std::vector<PivotCell>& cells = fNode.fCells;
    if (!cells.empty() && cells.back().fAt == fAsked) return &cells.back();
    cells.emplace_back().fAt = fAsked;
    const auto [place, isNew] = fCellPlaces.insert(cells.size() - 1);
    if (!isNew) cells.pop_back();
    return &cells[*place];
}

std::size_t BpPivotTable::Impl::AtHasher::operator()(std::size_t cell) const
{
    std::size_t hash = 0;
    for (const std::uint32_t number : fNode.fCells[cell].fAt)
        hash = (hash ^ number) * 0x9e3779b97f4a7c15U + (hash >> 29U);
    return hash;
}

void BpPivotTable::Impl::Send()
{
    Finish();
    fOutput->Add(std::make_unique<refhost::OutputNode>(refhost::OutputNode{std::move(fNode)}));
}

/// From categories by creation to categories by place.
void BpPivotTable::Impl::Finish()
{
    std::vector<std::vector<std::uint32_t>> places(fTrees.size());
    for (PivotTree& tree : fTrees)
        fNode.fDimensions.push_back(tree.Finish(places[tree.Index()]));
    // A cell from before the last dimension was made crosses no category of that one.
    std::erase_if(fNode.fCells,
                  [this](const PivotCell& cell) { return cell.fAt.size() != fTrees.size(); });
    for (PivotCell& cell : fNode.fCells) {
        for (std::size_t dimension = 0; dimension < places.size(); ++dimension)
            cell.fAt[dimension] = places[dimension][cell.fAt[dimension]];
    }
}

BpPivotTable::BpPivotTable(std::unique_ptr<Impl> impl) : fImpl(std::move(impl)) {}
BpPivotTable::~BpPivotTable() = default;
BpPivotTable::BpPivotTable(BpPivotTable&&) noexcept = default;
BpPivotTable& BpPivotTable::operator=(BpPivotTable&&) noexcept = default;

void BpPivotTable::MinDataColumnWidth(int width)
{
    if (fImpl) fImpl->Node().fMinDataColumnWidth = width;
}

void BpPivotTable::MaxDataColumnWidth(int width)
{
    if (fImpl) fImpl->Node().fMaxDataColumnWidth = width;
}

void BpPivotTable::Caption(const BpCellText& text)
{
    if (fImpl) fImpl->Node().fCaption = refhost::Snapshot(text);
}

BpDimension BpPivotTable::Dimension(const BpCellText& title, Sort sort)
{
    if (!fImpl) return BpDimension(nullptr);
    return BpDimension(&fImpl->AddDimension(refhost::Snapshot(title), sort).Root());
}

void BpDimension::Position(Place place, int, bool a, bool b)
{
    if (fImpl) fImpl->fTree.SetPosition(place, a, b);
}

BpCategory BpGroup::Category(const BpCellText& text)
{
    return BpCategory(fImpl ? &fImpl->fTree.Category(*fImpl, refhost::Snapshot(text)) : nullptr);
}

BpGroup BpGroup::Group(const BpCellText& text, bool, Sort)
{
    return BpGroup(fImpl ? &fImpl->fTree.Group(*fImpl, refhost::Snapshot(text)) : nullptr);
}

void BpGroup::Note(const BpAnnotation& annotation)
{
    if (fImpl) fImpl->fLabel.AddNote(annotation);
}

void BpCategory::Note(const BpAnnotation& annotation)
{
    if (fImpl) fImpl->fLabel.AddNote(annotation);
}

void BpCategory::Cell(const BpCellText& text)
{
    PivotCell* cell = fImpl ? fImpl->fTree.Table().CellAt(*fImpl) : nullptr;
    if (cell) cell->fContent = refhost::Snapshot(text);
}

void BpCategory::CellNote(const BpAnnotation& annotation)
{
    PivotCell* cell = fImpl ? fImpl->fTree.Table().CellAt(*fImpl) : nullptr;
    if (cell) cell->fNotes.push_back(refhost::Snapshot(annotation.GetText()));
}
