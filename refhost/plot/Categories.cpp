#include "refhost/plot/Categories.h"

#include <algorithm>
#include <map>
#include <set>
#include <utility>

#include "refhost/plot/ChartData.h"

namespace refhost {
namespace {

struct HeldKeys {
    std::vector<std::string> fInOrder;  // in which they first occur
    std::map<std::string, std::size_t, std::less<>> fFirstRows;
};

HeldKeys KeysOf(const DataVariable& variable)
{
    HeldKeys keys;
    std::string room;
    for (std::size_t row = 0; row < variable.Rows(); ++row) {
        if (variable.IsAbsent(row)) continue;
        const std::string_view key = variable.Key(row, room);
        if (!keys.fInOrder.empty() && keys.fInOrder.back() == key) continue;  // as rows often stand
        const auto place = keys.fFirstRows.lower_bound(key);
        if (place != keys.fFirstRows.end() && place->first == key) continue;
        keys.fInOrder.emplace_back(key);
        keys.fFirstRows.emplace_hint(place, key, row);
    }
    return keys;
}

bool NamesAll(const tree::CategoryOrder& order, const HeldKeys& keys)
{
    const std::set<std::string, std::less<>> named(order.fValues.begin(), order.fValues.end());
    return std::all_of(keys.fInOrder.begin(), keys.fInOrder.end(),
                       [&named](const std::string& key) { return named.count(key) != 0; });
}

}  // namespace

CategoryList::CategoryList(const DataVariable& variable,
                           const std::vector<tree::CategoryOrder>& orders, std::size_t most)
{
    const HeldKeys keys = KeysOf(variable);
    const auto order =
        std::find_if(orders.begin(), orders.end(), [&](const tree::CategoryOrder& candidate) {
            return candidate.fVariable == variable.Id() && NamesAll(candidate, keys);
        });
    const bool isOrdered = order != orders.end();
    for (const std::string& key : isOrdered ? order->fValues : keys.fInOrder) {
        const auto row = keys.fFirstRows.find(key);
        if (row != keys.fFirstRows.end()) {
            Add(key, variable.Text(row->second), most);
        } else if (isOrdered && order->fComplete) {
            Add(key, variable.KeyText(key), most);
        }
    }
}

void CategoryList::Add(const std::string& key, std::string label, std::size_t most)
{
    if (fPlaces.count(key) != 0) return;
    if (fCategories.size() == most) {
        ++fCut;
        return;
    }
    fPlaces.emplace(key, fCategories.size());
    fCategories.push_back({key, std::move(label)});
}

std::optional<std::size_t> CategoryList::Find(std::string_view key) const
{
    const auto found = fPlaces.find(key);
    return found == fPlaces.end() ? std::nullopt : std::optional(found->second);
}

}  // namespace refhost
