#include "fuzz/mutators/MarkupMutator.h"

#include <algorithm>
#include <iterator>

#include "fuzz/mutators/Chance.h"
#include "fuzz/mutators/MarkupTree.h"

namespace fuzz {

namespace {

using Element = MarkupElement;

constexpr std::size_t kMostSteps = 4;
constexpr std::size_t kMostCopies = 12;

/// Elements one below the other in order, each with the one that it stands in.
struct Place {
    Element* fParent;
    std::size_t fIndex;

    Element& Own() const { return fParent->fChildren[fIndex]; }
};

void CollectPlaces(Element& parent, std::vector<Place>& places)
{
    for (std::size_t index = 0; index < parent.fChildren.size(); ++index) {
        places.push_back({&parent, index});
        CollectPlaces(parent.fChildren[index], places);
    }
}

std::vector<std::string> Split(const std::string& list)
{
    std::vector<std::string> words;
    for (std::size_t place = 0; place < list.size();) {
        const std::size_t end = std::min(list.find(' ', place), list.size());
        if (end > place) words.push_back(list.substr(place, end - place));
        place = end + 1;
    }
    return words;
}

std::string Joined(const std::vector<std::string>& words)
{
    std::string list;
    for (const std::string& word : words)
        list.append(list.empty() ? "" : " ").append(word);
    return list;
}

template <class List>
auto At(List& list, std::size_t place)
{
    return list.begin() + static_cast<std::ptrdiff_t>(place);
}

/// Changes a tree by one step after the other. Places are looked up afresh for each.
class MarkupMutation {
public:
    MarkupMutation(Element& all, unsigned seed, const std::vector<MarkupWords>& words)
        : fAll(all), fChance(seed), fWords(words)
    {
    }

    void Run()
    {
        for (std::size_t steps = fChance.Below(kMostSteps) + 1; steps > 0; --steps) {
            fPlaces.clear();
            CollectPlaces(fAll, fPlaces);
            if (fPlaces.empty()) return;
            Place& place = fChance.From(fPlaces);
            (this->*kSteps[fChance.Below(std::size(kSteps))])(place);
        }
    }

private:
    using Step = void (MarkupMutation::*)(Place& place);

    void Double(Place& place)
    {
        const Element copy = place.Own();
        const std::size_t copies = fChance.OneIn(4) ? fChance.Below(kMostCopies) + 1 : 1;
        auto& siblings = place.fParent->fChildren;
        siblings.insert(At(siblings, place.fIndex), copies, copy);
    }

    void Drop(Place& place)
    {
        auto& siblings = place.fParent->fChildren;
        siblings.erase(At(siblings, place.fIndex));
    }

    void SwapWithSibling(Place& place)
    {
        auto& siblings = place.fParent->fChildren;
        std::swap(place.Own(), fChance.From(siblings));
    }

    /// A copy, at any other place: a table of one test in another, a test in a field.
    void CopyElsewhere(Place& place)
    {
        const Element copy = place.Own();
        Element& target = fChance.From(fPlaces).Own();
        target.fChildren.insert(At(target.fChildren, fChance.Below(target.fChildren.size() + 1)),
                                copy);
    }

    void ReplaceByAnother(Place& place)
    {
        const Element copy = fChance.From(fPlaces).Own();
        place.Own() = copy;
    }

    void ChangeValue(Place& place)
    {
        auto& attributes = place.Own().fAttributes;
        if (attributes.empty()) return ChangeText(place);
        auto& [name, value] = fChance.From(attributes);
        switch (fChance.Below(4)) {
            case 0:
                value = fChance.HostileText();
                return;
            case 1:
                value = ValueOfAnother(name);
                return;
            case 2:
                value = ChangedList(value);
                return;
            default:
                value = KnownValue(place.Own().fName, name, value);
        }
    }

    void ChangeName(Place& place)
    {
        Element& element = place.Own();
        const Element other = fChance.From(fPlaces).Own();
        if (element.fAttributes.empty() || other.fAttributes.empty() || fChance.OneIn(3))
            element.fName = other.fName;
        else if (fChance.OneIn(3))
            element.fAttributes.push_back(other.fAttributes.front());
        else
            fChance.From(element.fAttributes).first = fChance.From(other.fAttributes).first;
    }

    void DropAttribute(Place& place)
    {
        auto& attributes = place.Own().fAttributes;
        if (!attributes.empty()) attributes.erase(At(attributes, fChance.Below(attributes.size())));
    }

    void ChangeText(Place& place)
    {
        std::string& text = place.Own().fText;
        text = fChance.OneIn(8) ? fChance.HostileText() : ChangedList(text);
    }

    /// All lists of numbers of a table by the same step, so that rows stay as long as each other.
    void ChangeTexts(Place& place)
    {
        const unsigned seed = static_cast<unsigned>(fChance.Below(1U << 30U)) + 1;
        for (Element& child : place.Own().fChildren) {
            Chance same(seed);
            std::swap(same, fChance);
            child.fText = ChangedList(child.fText);
            std::swap(same, fChance);
        }
    }

    std::string ChangedList(const std::string& list)
    {
        std::vector<std::string> words = Split(list);
        if (words.empty()) return fChance.HostileText();
        const std::size_t place = fChance.Below(words.size());
        switch (fChance.Below(6)) {
            case 0:
                words[place] = fChance.HostileText();
                break;
            case 1:
                words.erase(At(words, place));
                break;
            case 2:
                words.insert(At(words, place),
                             fChance.OneIn(3) ? fChance.Below(kMostCopies) + 1 : 1,
                             std::string(words[place]));
                break;
            case 3:
                words.resize(place);
                break;
            case 4:
                std::swap(words[place], fChance.From(words));
                break;
            default:
                words[place] = fChance.From(words);
        }
        return Joined(words);
    }

    std::string ValueOfAnother(const std::string& name)
    {
        std::vector<std::string> values;
        for (const Place& place : fPlaces)
            for (const auto& [other, value] : place.Own().fAttributes)
                if (other == name) values.push_back(value);
        return values.empty() ? fChance.HostileText() : fChance.From(values);
    }

    std::string KnownValue(std::string_view element, std::string_view attribute,
                           const std::string& otherwise)
    {
        std::vector<std::string_view> lists;
        for (const MarkupWords& row : fWords) {
            const bool isOfElement = row.fElement.empty() || row.fElement == element;
            if (isOfElement && (row.fAttribute.empty() || row.fAttribute == attribute))
                lists.push_back(row.fWords);
        }
        return lists.empty() ? ChangedList(otherwise) : fChance.Word(fChance.From(lists));
    }

    // What changes values stands more than once: it is what most often leads somewhere.
    static constexpr Step kSteps[] = {
        &MarkupMutation::Double,           &MarkupMutation::Drop,
        &MarkupMutation::SwapWithSibling,  &MarkupMutation::CopyElsewhere,
        &MarkupMutation::ReplaceByAnother, &MarkupMutation::ChangeName,
        &MarkupMutation::DropAttribute,    &MarkupMutation::ChangeTexts,
        &MarkupMutation::ChangeText,       &MarkupMutation::ChangeText,
        &MarkupMutation::ChangeValue,      &MarkupMutation::ChangeValue,
        &MarkupMutation::ChangeValue,      &MarkupMutation::ChangeValue,
    };

    Element& fAll;
    Chance fChance;
    const std::vector<MarkupWords>& fWords;
    std::vector<Place> fPlaces;
};

}  // namespace

std::string MutateMarkup(std::string_view text, unsigned seed,
                         const std::vector<MarkupWords>& words)
{
    Element all = ReadMarkup(text);
    MarkupMutation(all, seed, words).Run();
    return MarkupText(all);
}

std::string CrossMarkup(std::string_view text, std::string_view other, unsigned seed)
{
    Chance chance(seed);
    Element all = ReadMarkup(text);
    Element given = ReadMarkup(other);
    std::vector<Place> places;
    std::vector<Place> gifts;
    CollectPlaces(all, places);
    CollectPlaces(given, gifts);
    if (places.empty() || gifts.empty()) return std::string(text);
    const Element& gift = chance.From(gifts).Own();
    std::vector<Place> alike;
    std::copy_if(places.begin(), places.end(), std::back_inserter(alike),
                 [&](const Place& place) { return place.Own().fName == gift.fName; });
    const Place target = chance.From(alike.empty() ? places : alike);
    auto& siblings = target.fParent->fChildren;
    if (chance.OneIn(2))
        target.Own() = gift;
    else
        siblings.insert(At(siblings, target.fIndex), gift);
    return MarkupText(all);
}

}  // namespace fuzz
