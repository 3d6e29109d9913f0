#include "fuzz/targets/HostData.h"

#include "refhost/data/VariableData.h"

namespace fuzz {

namespace {

using refhost::ValueLabel;
using refhost::VariableData;

constexpr QORT_Format kText = {8, 1, 0};

std::vector<ValueLabel> Numbered(const std::vector<std::string>& labels)
{
    std::vector<ValueLabel> values;
    for (const std::string& label : labels)
        values.push_back({OBS(static_cast<double>(values.size() + 1)), label});
    return values;
}

/// Labels of "A", "B" and so on, padded as the host holds them.
std::vector<ValueLabel> Lettered(const std::vector<std::string>& labels)
{
    std::vector<ValueLabel> values;
    for (const std::string& label : labels) {
        std::string padded(kText.fWidth, ' ');
        padded.front() = static_cast<char>('A' + values.size());
        values.push_back({OBS(padded), label});
    }
    return values;
}

// The names are those that make_seeds.py gives to fields.
// clang-format off
std::vector<VariableData> Variables()
{
    return {
        {"score",  "Score < 100 & more",   false, {8, 5, 2},  {}},
        {"grade",  "Grade \"quoted\"",     false, {4, 5, 0},  Numbered({"low", "middle", "high; highest"})},
        {"group",  "</script><b>Group",    false, {4, 5, 0},  Numbered({"<one>", "two & three", ""})},
        {"region", "",                     true,  kText,      Lettered({"north", "s\xC3\xBC" "d", "']]>\""})},
        {"day",    "Day of the visit",     false, {11, 20, 0}, {}},
        {"moment", "Moment $[0]$",         false, {20, 22, 2}, {}},
        {"length", "Length of stay",       false, {12, 21, 0}, {}},
        {"amount", "Amount\nin two lines", false, {12, 4, 3},  {}},
        {"place",  "Place ^1",             true,  {32, 1, 0},  {}},
        {"keep",   "Case is selected",     false, {1, 5, 0},   Numbered({"yes"})},
    };
}
// clang-format on

}  // namespace

const QORT_DataSource& HostData()
{
    static const auto source = refhost::MakeDataSource(Variables());
    return *source;
}

SplitResult MakeSplit(std::size_t way)
{
    static const OBS kRegion(std::string("B       "));
    static const OBS kDay(20000.0);
    SplitResult split;
    if (way % 3 == 0) return split;
    split.fSplitVariables = {3, 4};
    split.fSplitValues = {&kRegion, &kDay};
    split.fSplitAsHeading = way % 3 == 1;
    return split;
}

}  // namespace fuzz
