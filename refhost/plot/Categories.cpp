#include "refhost/plot/Categories.h"

#include <algorithm>
#include <charconv>
#include <map>
#include <optional>
#include <set>
#include <string_view>
#include <utility>
#include <vector>

#include "refhost/plot/ChartData.h"

#include "refhost/data/Calendar.h"

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
        if (variable.Repeats(row) || variable.IsAbsent(row)) continue;
        const std::string_view key = variable.Key(row, room);
        const auto place = keys.fFirstRows.lower_bound(key);
        if (place != keys.fFirstRows.end() && place->first == key) continue;
        keys.fInOrder.emplace_back(key);
        keys.fFirstRows.emplace_hint(place, key, row);
    }
    return keys;
}

/// Seconds of "[-][days ]hours:minutes:seconds".
std::optional<double> DurationOf(std::string_view text)
{
    const bool isNegative = text.starts_with('-');
    if (isNegative) text.remove_prefix(1);
    double seconds = 0.0;
    for (const auto& [mark, unit] : {std::pair(' ', 24.0), {':', 60.0}, {':', 60.0}, {'\0', 1.0}}) {
        const std::size_t end = mark == '\0' ? text.size() : text.find(mark);
        if (mark == ' ' && end == std::string_view::npos) continue;
        double part = 0.0;
        const char* const last = text.data() + std::min(end, text.size());
        const auto read = std::from_chars(text.data(), last, part, std::chars_format::fixed);
        if (read.ec != std::errc() || read.ptr != last || end == std::string_view::npos) return {};
        seconds = (seconds + part) * unit;
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return isNegative ? -seconds : seconds;
}

/// What a text of a date, with or without a time, or of a duration tells; nothing for any other.
std::optional<double> SecondsOf(std::string text)
{
    constexpr std::size_t kDateLength = 10;
    if (text.size() > kDateLength && text[kDateLength] == ' ') text[kDateLength] = 'T';
    const auto date = ParseIsoDate(text);
    return date ? date : DurationOf(text);
}

/// Puts keys that are all texts of dates or times into the order of time.
void SortByTime(std::vector<std::string>& keys)
{
    std::vector<std::pair<double, std::string>> times;
    for (const std::string& key : keys) {
        const auto seconds = SecondsOf(key);
        if (!seconds) return;
        times.emplace_back(*seconds, key);
    }
    std::ranges::stable_sort(times, {}, &std::pair<double, std::string>::first);
    std::ranges::transform(times, keys.begin(), &std::pair<double, std::string>::second);
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
    HeldKeys keys = KeysOf(variable);
    const auto order =
        std::find_if(orders.begin(), orders.end(), [&](const tree::CategoryOrder& candidate) {
            return candidate.fVariable == variable.Id() && NamesAll(candidate, keys);
        });
    const bool isOrdered = order != orders.end();
    if (!isOrdered && !variable.IsSetCategorical()) SortByTime(keys.fInOrder);
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
