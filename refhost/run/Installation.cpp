#include "refhost/run/Installation.h"

#include <fmt/format.h>
#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <string_view>

#include "refhost/run/RunFailure.h"

namespace refhost {

namespace {

constexpr char kDefaultLanguage[] = "en";

/// A code becomes part of a file name, so only letters, digits, "-" and "_" are one.
bool IsLanguageCode(std::string_view code)
{
    constexpr std::string_view kLetters =
        "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789-_";
    return !code.empty() && code.find_first_not_of(kLetters) == std::string_view::npos;
}

bool HasTexts(const Installation& installation, const std::string& language)
{
    return IsLanguageCode(language) && std::filesystem::exists(TextFile(installation, language));
}

/// "de" of "de_DE.UTF-8"; the variables in the order in which the C library takes them.
std::string LanguageOfEnvironment()
{
    for (const char* name : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
        const char* value = std::getenv(name);
        if (!value || !*value) continue;
        const std::string_view text(value);
        return std::string(text.substr(0, text.find_first_of("_.@")));
    }
    return {};
}

}  // namespace

Installation Installation::OfThisProgram()
{
    std::error_code error;
    const std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe", error);
    const std::filesystem::path prefix = program.parent_path().parent_path();
    return {(prefix / "lib/nonpar/nonpar.so").string(),
            (prefix / "share/nonpar/templates").string(), (prefix / "share/nonpar/texts").string()};
}

std::string TextFile(const Installation& installation, const std::string& language)
{
    return installation.fTextFolder + "/" + language + ".json";
}

std::string ChooseLanguage(const Installation& installation, const std::string& wanted)
{
    if (!wanted.empty()) {
        if (HasTexts(installation, wanted)) return wanted;
        throw RunFailure(fmt::format("there are no texts for the language \"{}\"", wanted));
    }
    const std::string language = LanguageOfEnvironment();
    return HasTexts(installation, language) ? language : kDefaultLanguage;
}

}  // namespace refhost
