#pragma once

#include <fstream>
#include <iterator>
#include <string>

/// The text of a template that the host brings along.
inline std::string TemplateText(const std::string& name)
{
    std::ifstream file(NONPAR_SOURCE_DIR "/refhost/templates/" + name + ".viztemplate",
                       std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}
