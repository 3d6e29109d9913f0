#pragma once

#include <pugixml.hpp>

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "refhost/template/TemplateNumbers.h"

/// Attributes of an element of a template as values. What can't be read is as if it were not there.
namespace refhost::tree {

inline std::string TextOf(const pugi::xml_node& node, const char* name)
{
    return node.attribute(name).value();
}

inline bool FlagOf(const pugi::xml_node& node, const char* name, bool otherwise)
{
    const std::string_view text = node.attribute(name).value();
    if (text == "true") return true;
    return text == "false" ? false : otherwise;
}

inline std::optional<double> NumberOf(const pugi::xml_node& node, const char* name)
{
    return ParseNumber(node.attribute(name).value());
}

/// The number where it is positive.
inline double PositiveOf(const pugi::xml_node& node, const char* name, double otherwise)
{
    const double number = NumberOf(node, name).value_or(otherwise);
    return number > 0 ? number : otherwise;
}

/// A word of a template and what it means.
template <class Meaning>
struct Word {
    std::string_view fWord;
    Meaning fMeaning;
};

template <class Meaning, std::size_t N>
std::optional<Meaning> MeaningOf(std::string_view word, const Word<Meaning> (&words)[N])
{
    for (const Word<Meaning>& row : words) {
        if (row.fWord == word) return row.fMeaning;
    }
    return std::nullopt;
}

template <class Meaning, std::size_t N>
std::optional<Meaning> WordOf(const pugi::xml_node& node, const char* name,
                              const Word<Meaning> (&words)[N])
{
    return MeaningOf<Meaning>(node.attribute(name).value(), words);
}

/// The members of a list parted by ";"; none of an empty text.
std::vector<std::string> ListOf(const pugi::xml_node& node, const char* name);

// clang-format off
inline constexpr Word<Dimension> kDimensions[] = {{"x", Dimension::X}, {"y", Dimension::Y}};
// clang-format on

}  // namespace refhost::tree
