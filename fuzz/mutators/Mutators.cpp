#include "fuzz/mutators/Mutators.h"

#include <algorithm>
#include <iterator>

#include "fuzz/mutators/JsonMutator.h"
#include "fuzz/mutators/LineMutator.h"
#include "fuzz/mutators/MarkupMutator.h"
#include "fuzz/targets/ChartInput.h"

namespace fuzz {

namespace {

std::string MutateDocument(std::string_view input, unsigned seed)
{
    return MutateMarkup(input, seed, DocumentWords());
}

std::size_t DataPlace(std::string_view input)
{
    return std::min(input.find(kDataMark), input.size());
}

std::string MutateChart(std::string_view input, unsigned seed)
{
    const std::size_t place = DataPlace(input);
    if (seed % 2 == 0 && place < input.size()) {
        const std::size_t lines = place + kDataMark.size();
        return std::string(input.substr(0, lines)) + MutateLines(input.substr(lines), seed);
    }
    return MutateMarkup(input.substr(0, place), seed, TemplateWords()).append(input.substr(place));
}

/// Elements of another template, or its data.
std::string CrossChart(std::string_view input, std::string_view other, unsigned seed)
{
    const std::size_t place = DataPlace(input);
    const std::size_t otherPlace = DataPlace(other);
    if (seed % 4 == 0) return std::string(input.substr(0, place)).append(other.substr(otherPlace));
    return CrossMarkup(input.substr(0, place), other.substr(0, otherPlace), seed)
        .append(input.substr(place));
}

std::string KeepInput(std::string_view input, std::string_view, unsigned)
{
    return std::string(input);
}

constexpr Mutator kMutators[] = {
    {"document", MutateDocument, CrossMarkup},
    {"tables", MutateDocument, CrossMarkup},
    {"chart", MutateChart, CrossChart},
    {"job", MutateJson, KeepInput},
};

}  // namespace

const Mutator* FindMutator(std::string_view target)
{
    const auto* found = std::find_if(std::begin(kMutators), std::end(kMutators),
                                     [&](const Mutator& row) { return row.fTarget == target; });
    return found == std::end(kMutators) ? nullptr : found;
}

}  // namespace fuzz
