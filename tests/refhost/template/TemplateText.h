#pragma once

#include <fstream>
#include <iterator>
#include <string>
#include <string_view>

/// The text of a template that the host brings along.
inline std::string TemplateText(std::string_view name)
{
    std::ifstream file(
        std::string(NONPAR_SOURCE_DIR "/refhost/templates/").append(name).append(".viztemplate"),
        std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

/// The text with the first occurrence of a token replaced; a token that is missing changes nothing.
inline std::string Replaced(std::string text, std::string_view token, std::string_view by)
{
    const auto at = text.find(token);
    return at == std::string::npos ? text : text.replace(at, token.size(), by);
}
