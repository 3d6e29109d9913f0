#include "refhost/chart/TemplateFiles.h"

#include <filesystem>

#include "refhost/data/FileText.h"
#include "refhost/document/HostRun.h"

namespace refhost {

namespace {

// The contract gives a document nothing but its text, so the name has to wait here.
std::string gLastFetched;

bool IsBareName(const std::string& name)
{
    return !name.empty() && name != "." && name != ".." &&
           name.find_first_of(std::string("/\\:\0", 4)) == std::string::npos;
}

std::string ReadTemplateFile(const std::string& name)
{
    if (!IsBareName(name)) return {};
    const auto path = std::filesystem::path(HostRun::Current().fTemplateFolder) / name;
    std::error_code error;
    if (!std::filesystem::is_regular_file(path, error)) return {};
    std::string text;
    if (!ReadFile(path.string(), text)) return {};
    return text;
}

}  // namespace

const std::string& FetchTemplate(const std::string& name)
{
    auto& texts = HostRun::Current().fTemplateTexts;
    auto known = texts.find(name);
    if (known == texts.end()) known = texts.emplace(name, ReadTemplateFile(name)).first;
    if (!known->second.empty()) gLastFetched = name;
    return known->second;
}

const std::string& LastFetchedTemplate() { return gLastFetched; }

}  // namespace refhost
