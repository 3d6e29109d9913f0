#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "refhost/plot/ResolvedChart.h"
#include "refhost/template/VisualizationTree.h"

namespace refhost {

class DataVariable;

/// The categories of a variable in the order in which they are drawn.
class CategoryList {
public:
    CategoryList() = default;

    /// The order of the visualization where it names every value of the data, else the data's own,
    /// or that of time where all are texts of dates or times of a variable that was not declared
    /// categorical. At most `most` categories; the rest have no place.
    CategoryList(const DataVariable& variable, const std::vector<tree::CategoryOrder>& orders,
                 std::size_t most);

    std::size_t Count() const { return fCategories.size(); }
    const std::vector<CategoryLabel>& All() const { return fCategories; }

    /// Nothing for a key without a place.
    std::optional<std::size_t> Find(std::string_view key) const;

    /// How many categories have no place.
    std::size_t Cut() const { return fCut; }

private:
    void Add(const std::string& key, std::string label, std::size_t most);

    std::vector<CategoryLabel> fCategories;
    std::map<std::string, std::size_t, std::less<>> fPlaces;
    std::size_t fCut = 0;
};

}  // namespace refhost
